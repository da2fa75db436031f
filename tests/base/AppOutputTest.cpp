#include "base/os/AppOutput.h"

#include <gtest/gtest.h>

#include <string>
#include <unistd.h>

using qoOS::AppOutput;

// Text must leave the process at once, ahead of output that bypasses stdio.
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
  }
  EXPECT_FALSE(AppOutput::setSink(nullptr)) << "a sink was left behind";
}
