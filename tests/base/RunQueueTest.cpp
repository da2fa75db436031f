#include "base/thread/RunQueue.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using namespace std::chrono_literals;
using qoThread::RunQueue;

TEST(RunQueue, TasksFromManyThreadsRunOnTheProcessingThread) {
  RunQueue Queue;
  constexpr int Producers = 4;
  constexpr int PerProducer = 2000;
  const std::thread::id Main = std::this_thread::get_id();
  int Ran = 0;
  std::atomic<int> Elsewhere = 0;
  std::vector<std::thread> Threads;
  for (int P = 0; P < Producers; ++P)
    Threads.emplace_back([&] {
      for (int I = 0; I < PerProducer; ++I)
        Queue.add([&] {
          ++Ran; // unguarded on purpose: only the processing thread runs tasks
          if (std::this_thread::get_id() != Main)
            ++Elsewhere;
        });
    });
  std::size_t Counted = 0;
  while (Counted < Producers * PerProducer)
    Counted += Queue.waitAndProcess(1000ms);
  for (auto &T : Threads)
    T.join();
  EXPECT_EQ(Counted, std::size_t(Producers * PerProducer));
  EXPECT_EQ(Ran, Producers * PerProducer);
  EXPECT_EQ(Elsewhere, 0);
  EXPECT_EQ(Queue.size(), 0u);
}

TEST(RunQueue, RunsInOrderAndDefersTasksAddedWhileProcessing) {
  RunQueue Queue;
  std::string Log;
  Queue.add([&] {
    Log += 'a';
    Queue.add([&] { Log += 'c'; });
  });
  Queue.add([&] { Log += 'b'; });
  EXPECT_EQ(Queue.size(), 2u);
  EXPECT_EQ(Queue.process(), 2u);
  EXPECT_EQ(Log, "ab");
  EXPECT_EQ(Queue.size(), 1u);
  EXPECT_EQ(Queue.process(), 1u);
  EXPECT_EQ(Log, "abc");
  EXPECT_EQ(Queue.process(), 0u);
}

TEST(RunQueue, WaitEndsWithTheTimeoutOrTheFirstTask) {
  RunQueue Queue;
  auto Start = std::chrono::steady_clock::now();
  EXPECT_EQ(Queue.waitAndProcess(30ms), 0u);
  EXPECT_GE(std::chrono::steady_clock::now() - Start, 30ms);

  bool Ran = false;
  std::thread Producer([&] {
    std::this_thread::sleep_for(20ms);
    Queue.add([&] { Ran = true; });
  });
  Start = std::chrono::steady_clock::now();
  EXPECT_EQ(Queue.waitAndProcess(10s), 1u);
  EXPECT_LT(std::chrono::steady_clock::now() - Start, 5s);
  EXPECT_TRUE(Ran);
  Producer.join();
}

TEST(RunQueue, ThrowingTaskKeepsTheRestQueuedInOrder) {
  RunQueue Queue;
  std::string Log;
  Queue.add([&] { Log += 'a'; });
  Queue.add([] { throw std::runtime_error("task failed"); });
  Queue.add([&] { Log += 'b'; });
  Queue.add([&] {
    Log += 'c';
    Queue.add([&] { Log += 'd'; });
  });
  EXPECT_THROW(Queue.process(), std::runtime_error);
  EXPECT_EQ(Log, "a");
  EXPECT_EQ(Queue.size(), 2u);
  EXPECT_EQ(Queue.process(), 2u);
  EXPECT_EQ(Queue.process(), 1u);
  EXPECT_EQ(Log, "abcd");
}

TEST(RunQueue, PendingTasksAreDestroyedUnrun) {
  auto Captured = std::make_shared<int>(0);
  {
    RunQueue Queue;
    Queue.add([Captured] { ++*Captured; });
    EXPECT_EQ(Captured.use_count(), 2);
  }
  EXPECT_EQ(Captured.use_count(), 1);
  EXPECT_EQ(*Captured, 0);
}
