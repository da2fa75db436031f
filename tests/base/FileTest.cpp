#include "base/os/File.h"

#include "tests/common/TestSupport.h"

#include <gtest/gtest.h>

#include <string>

using qoOS::File;
using qoString::IString;

namespace {

IString path(const std::filesystem::path &Path) {
  return IString(Path.string());
}

std::string contents(File &Opened) {
  std::string Out;
  char Buffer[7];
  while (std::size_t N = Opened.read(Buffer, sizeof Buffer))
    Out.append(Buffer, N);
  return Out;
}

const std::string Binary("head\0\xff\x80tail\n", 12);

} // namespace

TEST(File, WritesAndReadsBinaryBytes) {
  orbotest::TempDir Dir;
  const IString Name = path(Dir / "data.bin");
  {
    File Out(Name);
    ASSERT_TRUE(Out.open(File::Write | File::Create));
    EXPECT_EQ(Out.write(Binary.data(), Binary.size()), Binary.size());
    EXPECT_EQ(Out.tell(), 12);
    EXPECT_TRUE(Out.close());
    EXPECT_FALSE(Out.error());
  }
  File In(Name);
  ASSERT_TRUE(In.open(File::Read));
  EXPECT_EQ(contents(In), Binary);
  EXPECT_FALSE(In.error()) << "reading to the end is not an error";
  ASSERT_TRUE(In.seek(-5, File::SeekEnd));
  EXPECT_EQ(contents(In), "tail\n");
}

TEST(File, ModeNineTruncatesAndAppendAddsAtTheEnd) {
  orbotest::TempDir Dir;
  orbotest::writeFile(Dir / "f", "old contents");
  File F(path(Dir / "f"));
  ASSERT_TRUE(F.open(9));
  F.write("new", 3);
  ASSERT_TRUE(F.close());
  EXPECT_EQ(orbotest::readFile(Dir / "f"), "new");

  ASSERT_TRUE(F.open(File::Append));
  F.seek(0); // O_APPEND: every write lands at the end regardless
  F.write("+more", 5);
  ASSERT_TRUE(F.close());
  EXPECT_EQ(orbotest::readFile(Dir / "f"), "new+more");

  ASSERT_TRUE(F.open(File::Read | File::Write));
  F.write("N", 1);
  ASSERT_TRUE(F.close());
  EXPECT_EQ(orbotest::readFile(Dir / "f"), "New+more");
}

namespace {

struct OpenFailure {
  const char *Name;
  const char *Relative; // under a fresh folder; "" is the folder itself
  int Mode;
};

void PrintTo(const OpenFailure &Case, std::ostream *Out) { *Out << Case.Name; }

class FileOpenFailure : public testing::TestWithParam<OpenFailure> {};

} // namespace

TEST_P(FileOpenFailure, FailsAtOpenAndReportsError) {
  orbotest::TempDir Dir;
  const OpenFailure &Case = GetParam();
  File F(path(Dir.path() / Case.Relative));
  EXPECT_FALSE(F.open(Case.Mode));
  EXPECT_FALSE(F.isOpen());
  EXPECT_TRUE(F.error());
  EXPECT_NE(F.errorNumber(), 0);
  char Byte;
  EXPECT_EQ(F.read(&Byte, 1), 0u);
  EXPECT_EQ(F.write("x", 1), 0u);
  EXPECT_FALSE(F.close());
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FileOpenFailure,
    testing::Values(OpenFailure{"MissingFile", "absent", File::Read},
                    OpenFailure{"MissingFolder", "no/such/file", 9},
                    OpenFailure{"DirectoryForReading", "", File::Read},
                    OpenFailure{"DirectoryForWriting", "", 9},
                    OpenFailure{"DirectoryForAppend", "", File::Append},
                    OpenFailure{"NoAccessMode", "f", File::Create},
                    OpenFailure{"UnknownModeBits", "f", 9 | 64}),
    [](const testing::TestParamInfo<OpenFailure> &Info) {
      return Info.param.Name;
    });

TEST(File, PathWithZeroByteNamesNoFile) {
  orbotest::TempDir Dir;
  const std::string Cut = (Dir / "cut").string();
  File F(IString(Cut + std::string("\0.txt", 5)));
  EXPECT_FALSE(F.open(9));
  EXPECT_FALSE(std::filesystem::exists(Cut)) << "must not open a prefix";
  EXPECT_FALSE(
      File::exists(IString(Dir.path().string() + std::string("\0", 1))));
  EXPECT_FALSE(File::makeDirectories(IString(Cut + std::string("\0x", 2))));
}

TEST(File, WriteToFullDeviceReportsError) {
  if (!std::filesystem::exists("/dev/full"))
    GTEST_SKIP() << "no /dev/full on this system";
  File Full(IString("/dev/full"));
  ASSERT_TRUE(Full.open(File::Write));
  EXPECT_LT(Full.write("x", 1), 1u);
  EXPECT_TRUE(Full.error());
  Full.close();
  EXPECT_TRUE(Full.error()) << "a clean close keeps the earlier error";
  ASSERT_TRUE(Full.open(File::Write));
  EXPECT_FALSE(Full.error()) << "a new open starts without error";
}

TEST(File, ReadFromWriteOnlyFileReportsError) {
  orbotest::TempDir Dir;
  File F(path(Dir / "f"));
  ASSERT_TRUE(F.open(9));
  char Byte;
  EXPECT_EQ(F.read(&Byte, 1), 0u);
  EXPECT_TRUE(F.error());
}

TEST(File, MakeDirectoriesCreatesMissingParents) {
  orbotest::TempDir Dir;
  const IString Deep = path(Dir / "a" / "b" / "c");
  EXPECT_TRUE(File::makeDirectories(Deep));
  EXPECT_TRUE(File::isDirectory(Deep));
  EXPECT_TRUE(File::makeDirectories(Deep)) << "already there";
  EXPECT_TRUE(File::makeDirectories(path(Dir / "x//y/")));
  EXPECT_TRUE(File::isDirectory(path(Dir / "x" / "y")));

  orbotest::writeFile(Dir / "plain", "");
  EXPECT_FALSE(File::makeDirectories(path(Dir / "plain" / "sub")));
  EXPECT_FALSE(File::makeDirectories(path(Dir / "plain")));
  EXPECT_FALSE(File::makeDirectories(IString()));
}

TEST(File, CopyDuplicatesBytesAndRefusesItself) {
  orbotest::TempDir Dir;
  orbotest::writeFile(Dir / "src", Binary);
  EXPECT_TRUE(File::copy(path(Dir / "src"), path(Dir / "dst")));
  EXPECT_EQ(orbotest::readFile(Dir / "dst"), Binary);

  // Copying onto itself would truncate the source before reading it.
  EXPECT_FALSE(File::copy(path(Dir / "src"), path(Dir / "." / "src")));
  EXPECT_EQ(orbotest::readFile(Dir / "src"), Binary);

  EXPECT_FALSE(File::copy(path(Dir / "absent"), path(Dir / "d2")));
  EXPECT_FALSE(File::exists(path(Dir / "d2")));
  EXPECT_FALSE(File::copy(path(Dir / "src"), path(Dir / "no" / "d3")));
  EXPECT_FALSE(File::copy(path(Dir.path()), path(Dir / "d4")));
  EXPECT_FALSE(File::exists(path(Dir / "d4")));
}

TEST(File, FailedCopyLeavesNoPartialTarget) {
  if (!std::filesystem::exists("/proc/self/mem"))
    GTEST_SKIP() << "needs /proc/self/mem";
  // /proc/self/mem is a regular file whose read at offset 0 fails (address 0
  // is never mapped), so the copy breaks off after creating its target.
  orbotest::TempDir Dir;
  EXPECT_FALSE(File::copy(IString("/proc/self/mem"), path(Dir / "dst")));
  EXPECT_FALSE(File::exists(path(Dir / "dst")));
}

// The cleanup after a failed copy must not delete what it did not create.
// The device is reached through a link so that a regression removes only
// the link.
TEST(File, FailedCopyToADeviceKeepsTheDevice) {
  if (!std::filesystem::exists("/dev/full"))
    GTEST_SKIP() << "no /dev/full on this system";
  orbotest::TempDir Dir;
  orbotest::writeFile(Dir / "src", "bytes");
  std::filesystem::create_symlink("/dev/full", Dir / "device");
  EXPECT_FALSE(File::copy(path(Dir / "src"), path(Dir / "device")));
  EXPECT_TRUE(std::filesystem::is_symlink(Dir / "device"));
}

TEST(File, CopyOfLargeFileIsComplete) {
  orbotest::TempDir Dir;
  std::string Large(300000, '\0');
  for (std::size_t I = 0; I < Large.size(); ++I)
    Large[I] = static_cast<char>(I % 253);
  orbotest::writeFile(Dir / "src", Large);
  ASSERT_TRUE(File::copy(path(Dir / "src"), path(Dir / "dst")));
  EXPECT_TRUE(orbotest::readFile(Dir / "dst") == Large);
}

TEST(File, MoveRenamesAndRemoveDeletes) {
  orbotest::TempDir Dir;
  orbotest::writeFile(Dir / "a", "payload");
  EXPECT_TRUE(File::move(path(Dir / "a"), path(Dir / "b")));
  EXPECT_FALSE(File::exists(path(Dir / "a")));
  EXPECT_EQ(orbotest::readFile(Dir / "b"), "payload");
  EXPECT_FALSE(File::move(path(Dir / "a"), path(Dir / "c")));

  EXPECT_TRUE(File::remove(path(Dir / "b")));
  EXPECT_FALSE(File::exists(path(Dir / "b")));
  EXPECT_FALSE(File::remove(path(Dir / "b")));
  ASSERT_TRUE(File::makeDirectories(path(Dir / "empty")));
  EXPECT_TRUE(File::remove(path(Dir / "empty")));
}
