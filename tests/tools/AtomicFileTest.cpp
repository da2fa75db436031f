#include "tests/common/TestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace fs = std::filesystem;
using orbotest::readFile;
using orbotest::runTool;
using orbotest::TempDir;
using orbotest::ToolResult;
using orbotest::writeFile;

namespace {

const std::string OldContent = "old content, not JSON\n";

// The names in Folder, sorted, each followed by a space.
std::string namesIn(const fs::path &Folder) {
  std::set<std::string> Names;
  for (const auto &Entry : fs::directory_iterator(Folder))
    Names.insert(Entry.path().filename().string());
  std::string Joined;
  for (const auto &Name : Names)
    Joined += Name + " ";
  return Joined;
}

ToolResult convertTo(const std::string &Format, const fs::path &Out,
                     const std::string &Input) {
  return runTool({"plist", "convert", "--to", Format, "-o", Out.string(), "-"},
                 Input);
}

} // namespace

// The output is built beside the target and renamed over it, so a failure at
// any step leaves the old file as it was and no temporary behind.
TEST(AtomicFile, FailedConversionLeavesTheTargetUntouched) {
  TempDir Dir;
  writeFile(Dir / "out.json", OldContent);
  const std::pair<std::string, std::string> Failures[] = {
      {"json", "{\"a\": [1, 2"},                               // bad data
      {"json", std::string(200, '[') + std::string(200, ']')}, // too deep
      {"pretty", ""},                                          // empty
  };
  for (const auto &[Format, Input] : Failures) {
    EXPECT_EQ(convertTo(Format, Dir / "out.json", Input).Status, 1) << Input;
    EXPECT_EQ(readFile(Dir / "out.json"), OldContent);
    EXPECT_EQ(namesIn(Dir.path()), "out.json ");
  }
}

// A rename must not lose the target's permissions nor replace a link to it.
TEST(AtomicFile, ReplacesTheTargetKeepingPermissionsAndLinks) {
  TempDir Dir;
  writeFile(Dir / "out.json", OldContent);
  const auto Mode =
      fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read;
  fs::permissions(Dir / "out.json", Mode);
  fs::create_symlink("out.json", Dir / "link.json");
  EXPECT_EQ(convertTo("json", Dir / "link.json", "[true]").Status, 0);
  EXPECT_EQ(readFile(Dir / "out.json"), "[\n    true\n]\n");
  EXPECT_EQ(fs::status(Dir / "out.json").permissions() & fs::perms::all, Mode);
  EXPECT_TRUE(fs::is_symlink(Dir / "link.json"));
  EXPECT_EQ(namesIn(Dir.path()), "link.json out.json ");
}

// Devices are written in place, not renamed over, and their write errors
// count like any other.
TEST(AtomicFile, ReportsTargetsThatCannotBeWrittenAndLeavesNothing) {
  TempDir Dir;
  writeFile(Dir / "file", "");
  fs::create_directory(Dir / "folder");
  const std::pair<fs::path, std::string> Cases[] = {
      {Dir / "missing" / "out.json", "No such file or directory"},
      {Dir / "file" / "out.json", "Not a directory"},
      {Dir / "folder", "Is a directory"},
      {"/dev/full", "No space left on device"},
  };
  for (const auto &[Out, Reason] : Cases) {
    const ToolResult Result = convertTo("json", Out, "[1]");
    EXPECT_EQ(Result.Status, 2) << Out;
    EXPECT_EQ(Result.Err, "orbo: " + Out.string() + ": " + Reason + "\n");
  }
  EXPECT_EQ(namesIn(Dir.path()), "file folder ");
  EXPECT_TRUE(fs::is_empty(Dir / "folder"));
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
  EXPECT_EQ(convertTo("json", "/dev/null", "[1]").Status, 0);
}
