#include "base/thread/Thread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <string>
#include <thread>

using namespace std::chrono_literals;
using qoThread::Thread;

TEST(Thread, RunsOnItsOwnThreadUntilWaitedFor) {
  std::promise<void> Release;
  std::shared_future<void> Released = Release.get_future().share();
  std::thread::id RanOn;
  Thread Worker([&] {
    RanOn = std::this_thread::get_id();
    Released.wait();
  });
  EXPECT_FALSE(Worker.isRunning());
  ASSERT_TRUE(Worker.start());
  EXPECT_TRUE(Worker.isRunning());
  EXPECT_FALSE(Worker.start());
  Release.set_value();
  Worker.wait();
  EXPECT_FALSE(Worker.isRunning());
  EXPECT_NE(RanOn, std::this_thread::get_id());
  EXPECT_NE(RanOn, std::thread::id());
}

TEST(Thread, EmitsItsRunSignalInConnectionOrder) {
  Thread Worker;
  std::string Log;
  Worker.getSigRun().addCallback([&] { Log += 'a'; });
  Worker.getSignal().addCallback([&] { Log += 'b'; });
  Worker.start();
  Worker.wait();
  EXPECT_EQ(Log, "ab");
}

TEST(Thread, StartsAgainAfterWait) {
  int Runs = 0;
  Thread Worker([&] { ++Runs; });
  Worker.wait(); // never started: returns at once
  for (int I = 0; I < 3; ++I) {
    EXPECT_TRUE(Worker.start());
    Worker.wait();
    Worker.wait();
  }
  EXPECT_EQ(Runs, 3);
}

TEST(Thread, DestructorWaits) {
  std::atomic<bool> Finished = false;
  {
    Thread Worker([&] {
      std::this_thread::sleep_for(20ms);
      Finished = true;
    });
    Worker.start();
  }
  EXPECT_TRUE(Finished);
}
