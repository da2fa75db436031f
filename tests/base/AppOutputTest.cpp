#include "base/os/AppOutput.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

using qoOS::AppOutput;

TEST(AppOutput, DefaultsToStandardOutputInOrder) {
  testing::internal::CaptureStdout();
  std::printf("a");
  AppOutput::print("%s%d", "b", 1);
  std::printf("c");
  AppOutput::write(std::string_view("d\0e", 3));
  std::fflush(stdout);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), std::string("ab1cd\0e", 7));
}

// Text must leave the process at once, ahead of output that bypasses stdio
// (a child process, a direct descriptor write).
TEST(AppOutput, FlushesEveryPrint) {
  testing::internal::CaptureStdout();
  AppOutput::write("a");
  ASSERT_EQ(::write(STDOUT_FILENO, "b", 1), 1);
  AppOutput::print("%c", 'c');
  ASSERT_EQ(::write(STDOUT_FILENO, "d", 1), 1);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "abcd");
}

TEST(AppOutput, CapturesNestAndRestore) {
  AppOutput::Capture Outer;
  AppOutput::print("one ");
  {
    AppOutput::Capture Inner;
    AppOutput::print("two %d", 2);
    EXPECT_EQ(Inner.text(), "two 2");
  }
  AppOutput::print("three");
  EXPECT_EQ(Outer.text(), "one three");
  Outer.clear();
  AppOutput::write("four");
  EXPECT_EQ(Outer.text(), "four");
}

TEST(AppOutput, CaptureEndingRestoresStandardOutput) {
  { AppOutput::Capture Captured; }
  EXPECT_FALSE(AppOutput::setSink(nullptr)) << "a sink was left behind";
}

TEST(AppOutput, SetSinkReturnsThePreviousSink) {
  std::string First, Second;
  EXPECT_FALSE(AppOutput::setSink([&](std::string_view T) { First += T; }));
  AppOutput::print("1");
  AppOutput::Sink Previous =
      AppOutput::setSink([&](std::string_view T) { Second += T; });
  AppOutput::print("2");
  ASSERT_TRUE(Previous);
  Previous("3");
  EXPECT_TRUE(AppOutput::setSink(nullptr));
  EXPECT_EQ(First, "13");
  EXPECT_EQ(Second, "2");
}

TEST(AppOutput, PrintsLongText) {
  AppOutput::Capture Captured;
  const std::string Long(5000, 'L');
  AppOutput::print("%s!", Long.c_str());
  EXPECT_EQ(Captured.text(), Long + "!");
}

// Each print reaches the sink whole: no line is torn or lost.
TEST(AppOutput, ThreadsPrintingDoNotInterleaveWithinAPrint) {
  AppOutput::Capture Captured;
  constexpr int Threads = 4, Lines = 3000;
  std::vector<std::thread> Workers;
  for (int T = 0; T < Threads; ++T)
    Workers.emplace_back([T] {
      for (int L = 0; L < Lines; ++L)
        AppOutput::print("<%d:%04d:%s>\n", T, L, "payload-payload-payload");
    });
  for (std::thread &W : Workers)
    W.join();
  std::vector<int> Next(Threads, 0);
  std::size_t Start = 0, Count = 0;
  const std::string &Text = Captured.text();
  while (Start < Text.size()) {
    const std::size_t End = Text.find('\n', Start);
    ASSERT_NE(End, std::string::npos);
    int T = -1, L = -1;
    char Tail[64] = {};
    ASSERT_EQ(
        std::sscanf(Text.c_str() + Start, "<%d:%d:%63[^>]>", &T, &L, Tail), 3);
    ASSERT_TRUE(T >= 0 && T < Threads);
    EXPECT_EQ(L, Next[T]++) << "lines of one thread stay in order";
    EXPECT_STREQ(Tail, "payload-payload-payload");
    Start = End + 1;
    ++Count;
  }
  EXPECT_EQ(Count, static_cast<std::size_t>(Threads * Lines));
}
