#include "base/os/AppOutput.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

using qoOS::AppOutput;

// Text must leave the process at once, ahead of output that bypasses stdio
// (a child process, a direct descriptor write).
TEST(AppOutput, FlushesEveryPrintToStandardOutput) {
  testing::internal::CaptureStdout();
  AppOutput::write("a");
  ASSERT_EQ(::write(STDOUT_FILENO, "b", 1), 1);
  AppOutput::print("%c", 'c');
  ASSERT_EQ(::write(STDOUT_FILENO, "d", 1), 1);
  AppOutput::write(std::string_view("e\0f", 3));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), std::string("abcde\0f", 7));
}

TEST(AppOutput, CapturesNestAndRestore) {
  {
    AppOutput::Capture Outer;
    AppOutput::print("one ");
    {
      AppOutput::Capture Inner;
      const std::string Long(5000, 'L');
      AppOutput::print("%s!", Long.c_str());
      EXPECT_EQ(Inner.text(), Long + "!");
    }
    AppOutput::print("three");
    EXPECT_EQ(Outer.text(), "one three");
    Outer.clear();
    AppOutput::write("four");
    EXPECT_EQ(Outer.text(), "four");
  }
  EXPECT_FALSE(AppOutput::setSink(nullptr)) << "a sink was left behind";
}

// Each print reaches the sink whole: no line is torn or lost.
TEST(AppOutput, ThreadsPrintingDoNotInterleaveWithinAPrint) {
  AppOutput::Capture Captured;
  std::vector<std::thread> Workers;
  for (char T = 'a'; T < 'e'; ++T)
    Workers.emplace_back([T] {
      const std::string Line(40, T);
      for (int L = 0; L < 3000; ++L)
        AppOutput::print("%s\n", Line.c_str());
    });
  for (std::thread &W : Workers)
    W.join();
  std::map<std::string, int> Seen;
  std::istringstream In(Captured.text());
  for (std::string Line; std::getline(In, Line);)
    ++Seen[Line];
  EXPECT_EQ(Seen.size(), 4u);
  for (char T = 'a'; T < 'e'; ++T)
    EXPECT_EQ(Seen[std::string(40, T)], 3000) << T;
}
