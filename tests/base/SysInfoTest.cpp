#include "base/os/SysInfo.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <string>

namespace {

// Sets or unsets an environment variable for one test and puts it back.
class EnvironmentVariable {
public:
  explicit EnvironmentVariable(const char *Name) : Name(Name) {
    if (const char *Value = std::getenv(Name))
      Saved = Value;
  }
  ~EnvironmentVariable() {
    if (Saved)
      setenv(Name, Saved->c_str(), 1);
    else
      unsetenv(Name);
  }
  void set(const char *Value) { setenv(Name, Value, 1); }
  void unset() { unsetenv(Name); }

private:
  const char *Name;
  std::optional<std::string> Saved;
};

} // namespace

TEST(SysInfo, ResidentMemoryGrowsWithTouchedPages) {
  const std::uint64_t Before = qoOS::SysInfo::processResidentMemory();
  ASSERT_GT(Before, 0u);
  constexpr std::size_t Size = 64 << 20;
  std::unique_ptr<char[]> Block(new char[Size]);
  std::memset(Block.get(), 1, Size);
  const std::uint64_t After = qoOS::SysInfo::processResidentMemory();
  EXPECT_GE(After, Before + (Size / 2) / 1024) << "in KiB";
  EXPECT_EQ(Block[Size - 1], 1);
}

TEST(SysInfo, GetenvIsEmptyWhenUnset) {
  EnvironmentVariable Var("ORBO_SYSINFO_TEST");
  Var.set("value with spaces");
  EXPECT_EQ(qoOS::getenv("ORBO_SYSINFO_TEST"), "value with spaces");
  EXPECT_TRUE(qoOS::hasenv("ORBO_SYSINFO_TEST"));
  Var.set("");
  EXPECT_TRUE(qoOS::hasenv("ORBO_SYSINFO_TEST"));
  EXPECT_TRUE(qoOS::getenv("ORBO_SYSINFO_TEST").empty());
  Var.unset();
  EXPECT_FALSE(qoOS::hasenv("ORBO_SYSINFO_TEST"));
  EXPECT_TRUE(qoOS::getenv("ORBO_SYSINFO_TEST").empty());
}

TEST(SysInfo, TempDirectoryFollowsTMPDIR) {
  EnvironmentVariable Var("TMPDIR");
  Var.set("/var/scratch");
  EXPECT_EQ(qoOS::getTempDirectory(), qoString::IString("/var/scratch"));
  Var.set("");
  EXPECT_EQ(qoOS::getTempDirectory(), qoString::IString("/tmp"));
  Var.unset();
  EXPECT_EQ(qoOS::getTempDirectory(), qoString::IString("/tmp"));
}
