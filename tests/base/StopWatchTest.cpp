#include "base/os/StopWatch.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

using qoOS::StopWatch;
using namespace std::chrono_literals;

TEST(StopWatch, AddsUpRunsAndHoldsStillWhenStopped) {
  StopWatch Watch;
  EXPECT_EQ(Watch.elapsed(), 0.0);
  Watch.start();
  std::this_thread::sleep_for(20ms);
  Watch.start(); // no restart while running
  std::this_thread::sleep_for(20ms);
  Watch.stop();
  const double First = Watch.elapsed();
  EXPECT_GE(First, 0.040);
  std::this_thread::sleep_for(20ms);
  EXPECT_EQ(Watch.elapsed(), First) << "stopped watches do not move";
  Watch.start();
  std::this_thread::sleep_for(10ms);
  EXPECT_TRUE(Watch.isRunning());
  EXPECT_GE(Watch.elapsed(), First + 0.010);
  Watch.stop();
  Watch.reset();
  EXPECT_FALSE(Watch.isRunning());
  EXPECT_EQ(Watch.elapsed(), 0.0);
}
