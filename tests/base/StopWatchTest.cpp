#include "base/os/StopWatch.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

using namespace std::chrono_literals;

TEST(StopWatch, AddsUpRunsAndHoldsStillWhenStopped) {
  qoOS::StopWatch Watch;
  Watch.start();
  std::this_thread::sleep_for(20ms);
  Watch.start(); // no restart while running
  std::this_thread::sleep_for(20ms);
  Watch.stop();
  const double First = Watch.elapsed();
  EXPECT_GE(First, 0.040);
  std::this_thread::sleep_for(10ms);
  EXPECT_EQ(Watch.elapsed(), First) << "stopped watches do not move";
  Watch.reset();
  EXPECT_EQ(Watch.elapsed(), 0.0);
}
