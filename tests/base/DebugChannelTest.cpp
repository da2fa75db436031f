#include "base/os/DebugChannel.h"

#include "base/os/AppOutput.h"

#include <gtest/gtest.h>

using qoOS::DebugChannel;

// Copies switch on and off on their own.
TEST(DebugChannel, PrintsFormattedTextUnchangedOnlyWhileOn) {
  qoOS::AppOutput::Capture Captured;
  DebugChannel Quiet("Quiet");
  Quiet.print("hidden %d\n", 1);
  DebugChannel On("Loud", true);
  DebugChannel Off = On;
  Off.disable();
  Off.print("hidden %d\n", 2);
  const std::string Long(400, 'k');
  On.print("%s=%d%c%s", "x", 3, '\0', Long.c_str());
  EXPECT_EQ(Captured.text(), std::string("x=3\0", 4) + Long);
}
