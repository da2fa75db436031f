#include "base/thread/Thread.h"

#include <gtest/gtest.h>

#include <future>
#include <thread>

using qoThread::Thread;

TEST(Thread, RunsElsewhereOnceAtATimeAndDestructorWaits) {
  std::promise<void> Release;
  std::shared_future<void> Released = Release.get_future().share();
  std::thread::id RanOn;
  int Runs = 0;
  {
    Thread Worker([&] {
      RanOn = std::this_thread::get_id();
      Released.wait();
      ++Runs;
    });
    ASSERT_TRUE(Worker.start());
    EXPECT_FALSE(Worker.start());
    Release.set_value();
    Worker.wait();
    EXPECT_EQ(Runs, 1);
    EXPECT_TRUE(Worker.start()) << "a finished thread starts again";
  }
  EXPECT_EQ(Runs, 2);
  EXPECT_NE(RanOn, std::this_thread::get_id());
}
