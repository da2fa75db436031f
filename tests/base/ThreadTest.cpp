#include "base/thread/Thread.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

using namespace std::chrono_literals;
using qoThread::Thread;

TEST(Thread, RunsOnItsOwnThreadAndStartsAgainAfterWait) {
  std::promise<void> Release;
  std::shared_future<void> Released = Release.get_future().share();
  std::thread::id RanOn;
  int Runs = 0;
  Thread Worker([&] {
    RanOn = std::this_thread::get_id();
    Released.wait();
    ++Runs;
  });
  Worker.wait(); // never started: returns at once
  ASSERT_TRUE(Worker.start());
  EXPECT_TRUE(Worker.isRunning());
  EXPECT_FALSE(Worker.start());
  Release.set_value();
  Worker.wait();
  EXPECT_FALSE(Worker.isRunning());
  EXPECT_NE(RanOn, std::this_thread::get_id());
  EXPECT_TRUE(Worker.start());
  Worker.wait();
  EXPECT_EQ(Runs, 2);
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
