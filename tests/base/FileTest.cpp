#include "base/os/File.h"

#include "tests/common/TestSupport.h"

#include <gtest/gtest.h>

#include <string>

using orbotest::readFile;
using orbotest::writeFile;
using qoOS::File;
using namespace std::string_view_literals;

namespace {

qoString::IString path(const std::filesystem::path &Path) {
  return qoString::IString(Path.string());
}

} // namespace

// O_APPEND puts every write at the end, whatever the position.
TEST(File, ModeNineCreatesOrTruncatesAndAppendAddsAtTheEnd) {
  orbotest::TempDir Dir;
  writeFile(Dir / "f", "old contents that are longer");
  const std::string Binary("head\0\xff\x80tail\n", 12);
  File F(path(Dir / "f"));
  ASSERT_TRUE(F.open(9));
  EXPECT_EQ(F.write(Binary.data(), Binary.size()), Binary.size());
  char Byte;
  EXPECT_EQ(F.read(&Byte, 1), 0u) << "write-only";
  EXPECT_TRUE(F.error());
  F.close();
  ASSERT_TRUE(F.open(File::Append));
  EXPECT_FALSE(F.error()) << "a new open starts without error";
  F.seek(0);
  F.write("+", 1);
  ASSERT_TRUE(F.close());
  ASSERT_TRUE(F.open(File::Read));
  char Buffer[64];
  ASSERT_EQ(F.read(Buffer, sizeof Buffer), 13u);
  EXPECT_EQ(std::string(Buffer, 13), Binary + "+");
  EXPECT_FALSE(F.error()) << "reading to the end is not an error";
  EXPECT_TRUE(File(path(Dir / "new")).open(9));
  EXPECT_TRUE(std::filesystem::exists(Dir / "new"));
}

// A zero byte must not cut the path short: that would open a prefix.
TEST(File, OpenFailsCleanly) {
  const struct {
    std::string_view Relative; // under a fresh folder; "" is the folder
    int Mode;
  } Cases[] = {{"absent", File::Read},
               {"no/such/file", 9},
               {"", 9},
               {"f", 9 | 64},
               {"cut\0.txt"sv, 9}};
  for (const auto &Case : Cases) {
    SCOPED_TRACE(testing::PrintToString(std::string(Case.Relative)));
    orbotest::TempDir Dir;
    File F(qoString::IString(Dir.path().string() + "/" +
                             std::string(Case.Relative)));
    EXPECT_FALSE(F.open(Case.Mode)) << Case.Mode;
    EXPECT_TRUE(F.error());
    EXPECT_EQ(F.write("x", 1), 0u);
    EXPECT_FALSE(std::filesystem::exists(Dir / "cut"));
  }
}

// Copying onto itself would truncate the source before reading it.
TEST(File, CopyKeepsEveryByteAndRefusesToCopyOntoItself) {
  orbotest::TempDir Dir;
  std::string Large(100000, '\0');
  for (std::size_t I = 0; I < Large.size(); ++I)
    Large[I] = static_cast<char>(I % 253);
  writeFile(Dir / "src", Large);
  ASSERT_TRUE(File::copy(path(Dir / "src"), path(Dir / "dst")));
  EXPECT_TRUE(readFile(Dir / "dst") == Large);
  EXPECT_FALSE(File::copy(path(Dir / "src"), path(Dir / "." / "src")));
  EXPECT_TRUE(readFile(Dir / "src") == Large);
}

// A failed copy removes the target it created, and only that: the device is
// reached through a link so that a regression removes only the link.
TEST(File, DeviceFailuresAreReportedAndCleanedUp) {
  if (!std::filesystem::exists("/dev/full") ||
      !std::filesystem::exists("/proc/self/mem"))
    GTEST_SKIP() << "needs /dev/full and /proc/self/mem";
  File Full(path("/dev/full"));
  ASSERT_TRUE(Full.open(File::Write));
  EXPECT_LT(Full.write("x", 1), 1u);
  Full.close();
  EXPECT_TRUE(Full.error()) << "a clean close keeps the earlier error";

  orbotest::TempDir Dir;
  // A regular file whose read at offset 0 fails (address 0 is never mapped).
  EXPECT_FALSE(File::copy(path("/proc/self/mem"), path(Dir / "dst")));
  EXPECT_FALSE(File::exists(path(Dir / "dst")));
  writeFile(Dir / "src", "bytes");
  std::filesystem::create_symlink("/dev/full", Dir / "device");
  EXPECT_FALSE(File::copy(path(Dir / "src"), path(Dir / "device")));
  EXPECT_TRUE(std::filesystem::is_symlink(Dir / "device"));
}
