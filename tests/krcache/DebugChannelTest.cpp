#include "krcache/DebugChannel.h"

#include "base/os/AppOutput.h"

#include <gtest/gtest.h>

TEST(DebugChannel, OneChannelForTheCachePrintingOnlyWhenOn) {
  qoOS::DebugChannel &Channel = qoKRCache::debugChannel();
  EXPECT_EQ(&Channel, &qoKRCache::debugChannel());
  EXPECT_EQ(Channel.name().view(), "qoKRCache");
  qoOS::AppOutput::Capture Out;
  Channel.print("Memory limit set to %.02fMB\n", 2.0);
  Channel.enable();
  Channel.print("Memory limit set to %.02fMB\n", 3.5);
  Channel.disable();
  EXPECT_EQ(Out.text(), "Memory limit set to 3.50MB\n");
}
