#include "base/os/DebugChannel.h"

#include "base/os/AppOutput.h"

#include <gtest/gtest.h>

using qoOS::AppOutput;
using qoOS::DebugChannel;

TEST(DebugChannel, PrintsNothingWhileOff) {
  AppOutput::Capture Captured;
  DebugChannel Channel("Quiet");
  EXPECT_FALSE(Channel.isEnabled());
  Channel.print("hidden %d\n", 1);
  Channel.enable();
  Channel.disable();
  Channel.print("hidden %d\n", 2);
  EXPECT_EQ(Captured.text(), "");
}

TEST(DebugChannel, PrintsFormattedTextUnchangedWhileOn) {
  AppOutput::Capture Captured;
  DebugChannel Channel("Loud", true);
  EXPECT_EQ(Channel.name(), "Loud");
  Channel.print("%s=%d", "x", 3);
  Channel.print("%c", '\0');
  const std::string Long(400, 'k');
  Channel.print("%s\n", Long.c_str());
  EXPECT_EQ(Captured.text(), std::string("x=3\0", 4) + Long + "\n");
}

TEST(DebugChannel, CopiesSwitchIndependently) {
  AppOutput::Capture Captured;
  DebugChannel On("Same", true);
  DebugChannel Off = On;
  Off.setEnabled(false);
  On.print("a");
  Off.print("b");
  EXPECT_EQ(Captured.text(), "a");
}
