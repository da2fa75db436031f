#include "base/os/SysInfo.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

// An empty variable is set yet says nothing: an empty TMPDIR means /tmp.
TEST(SysInfo, EmptyTMPDIRMeansTheSystemDefault) {
  const char *Saved = std::getenv("TMPDIR");
  const std::string Previous = Saved ? Saved : "";
  setenv("TMPDIR", "", 1);
  EXPECT_TRUE(qoOS::hasenv("TMPDIR"));
  EXPECT_EQ(qoOS::getTempDirectory(), qoString::IString("/tmp"));
  setenv("TMPDIR", "/var/scratch", 1);
  EXPECT_EQ(qoOS::getTempDirectory(), qoString::IString("/var/scratch"));
  if (Saved)
    setenv("TMPDIR", Previous.c_str(), 1);
  else
    unsetenv("TMPDIR");
}
