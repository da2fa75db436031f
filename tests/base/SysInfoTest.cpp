#include "base/os/SysInfo.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

TEST(SysInfo, ResidentMemoryGrowsWithTouchedPages) {
  const std::uint64_t Before = qoOS::SysInfo::processResidentMemory();
  constexpr std::size_t Size = 64 << 20;
  std::unique_ptr<char[]> Block(new char[Size]);
  std::memset(Block.get(), 1, Size);
  const std::uint64_t After = qoOS::SysInfo::processResidentMemory();
  EXPECT_GE(After, Before + (Size / 2) / 1024) << "in KiB";
  EXPECT_EQ(Block[Size - 1], 1);
}

// An empty variable is set yet says nothing: an empty TMPDIR means /tmp.
TEST(SysInfo, EmptyTMPDIRMeansTheSystemDefault) {
  const char *Saved = std::getenv("TMPDIR");
  const std::string Previous = Saved ? Saved : "";
  setenv("TMPDIR", "", 1);
  EXPECT_TRUE(qoOS::hasenv("TMPDIR"));
  EXPECT_TRUE(qoOS::getenv("TMPDIR").empty());
  EXPECT_EQ(qoOS::getTempDirectory(), qoString::IString("/tmp"));
  setenv("TMPDIR", "/var/scratch", 1);
  EXPECT_EQ(qoOS::getTempDirectory(), qoString::IString("/var/scratch"));
  if (Saved)
    setenv("TMPDIR", Previous.c_str(), 1);
  else
    unsetenv("TMPDIR");
}
