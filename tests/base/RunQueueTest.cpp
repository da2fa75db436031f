#include "base/thread/RunQueue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using qoThread::RunQueue;

// A task ends the wait at once; without tasks the wait lasts its timeout.
TEST(RunQueue, TasksFromManyThreadsRunOnTheProcessingThread) {
  RunQueue Queue;
  constexpr int Producers = 4, PerProducer = 2000;
  const std::thread::id Main = std::this_thread::get_id();
  int Ran = 0;
  std::atomic<int> Elsewhere = 0;
  std::vector<std::thread> Threads;
  for (int P = 0; P < Producers; ++P)
    Threads.emplace_back([&] {
      for (int I = 0; I < PerProducer; ++I)
        Queue.add([&] {
          ++Ran; // unguarded on purpose: only the processing thread runs tasks
          Elsewhere += std::this_thread::get_id() != Main;
        });
    });
  const Clock::time_point Start = Clock::now();
  std::size_t Counted = 0;
  while (Counted < Producers * PerProducer)
    Counted += Queue.waitAndProcess(10s);
  EXPECT_LT(Clock::now() - Start, 5s);
  for (auto &T : Threads)
    T.join();
  EXPECT_EQ(Ran, Producers * PerProducer);
  EXPECT_EQ(Elsewhere, 0);
  const Clock::time_point Idle = Clock::now();
  EXPECT_EQ(Queue.waitAndProcess(30ms), 0u);
  EXPECT_GE(Clock::now() - Idle, 30ms);
}

// A task added by a task waits for the next round; a throwing task leaves
// the ones after it queued ahead of newer ones; pending tasks are destroyed
// unrun.
TEST(RunQueue, DefersTasksAddedWhileProcessingAndSurvivesAThrow) {
  auto Captured = std::make_shared<int>(0);
  std::string Log;
  {
    RunQueue Queue;
    Queue.add([&] {
      Log += 'a';
      Queue.add([&] { Log += 'c'; });
    });
    Queue.add([] { throw std::runtime_error("task failed"); });
    Queue.add([&] { Log += 'b'; });
    EXPECT_THROW(Queue.process(), std::runtime_error);
    EXPECT_EQ(Queue.process(), 2u);
    EXPECT_EQ(Log, "abc");
    Queue.add([Captured] { ++*Captured; });
  }
  EXPECT_EQ(Captured.use_count(), 1);
  EXPECT_EQ(*Captured, 0);
}
