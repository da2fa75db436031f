#include "tests/common/TestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
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

std::vector<std::string> namesIn(const fs::path &Folder) {
  std::vector<std::string> Names;
  for (const auto &Entry : fs::directory_iterator(Folder))
    Names.push_back(Entry.path().filename().string());
  std::sort(Names.begin(), Names.end());
  return Names;
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
  const std::vector<std::pair<std::string, std::string>> Failures = {
      {"json", "{\"a\": [1, 2"},                               // bad data
      {"json", std::string(200, '[') + std::string(200, ']')}, // too deep
      {"pretty", ""},                                          // empty
  };
  for (const auto &[Format, Input] : Failures) {
    TempDir Dir;
    writeFile(Dir / "out.json", OldContent);
    const ToolResult Result = convertTo(Format, Dir / "out.json", Input);
    EXPECT_EQ(Result.Status, 1) << Input;
    EXPECT_EQ(readFile(Dir / "out.json"), OldContent);
    EXPECT_EQ(namesIn(Dir.path()), std::vector<std::string>{"out.json"});
  }
}

TEST(AtomicFile, ReplacesTheTargetAndKeepsItsPermissions) {
  TempDir Dir;
  const fs::path Out = Dir / "out.json";
  writeFile(Out, OldContent);
  fs::permissions(Out, fs::perms::owner_read | fs::perms::owner_write |
                           fs::perms::group_read);
  const ToolResult Result = convertTo("json", Out, "[true]");
  EXPECT_EQ(Result.Status, 0) << Result.Err;
  EXPECT_EQ(readFile(Out), "[\n    true\n]\n");
  EXPECT_EQ(fs::status(Out).permissions() & fs::perms::all,
            fs::perms::owner_read | fs::perms::owner_write |
                fs::perms::group_read);
  EXPECT_EQ(namesIn(Dir.path()), std::vector<std::string>{"out.json"});
}

TEST(AtomicFile, WritesThroughASymbolicLink) {
  TempDir Dir;
  writeFile(Dir / "real.json", OldContent);
  fs::create_symlink("real.json", Dir / "link.json");
  EXPECT_EQ(convertTo("json", Dir / "link.json", "[1]").Status, 0);
  EXPECT_TRUE(fs::is_symlink(Dir / "link.json"));
  EXPECT_EQ(readFile(Dir / "real.json"), "[\n    1.0\n]\n");
}

TEST(AtomicFile, ReportsTargetsThatCannotBeWritten) {
  TempDir Dir;
  writeFile(Dir / "file", "");
  fs::create_directory(Dir / "folder");
  const std::vector<std::pair<fs::path, std::string>> Cases = {
      {Dir / "missing" / "out.json", "No such file or directory"},
      {Dir / "file" / "out.json", "Not a directory"},
      {Dir / "folder", "Is a directory"},
  };
  for (const auto &[Out, Reason] : Cases) {
    const ToolResult Result = convertTo("json", Out, "[1]");
    EXPECT_EQ(Result.Status, 2) << Out;
    EXPECT_EQ(Result.Err, "orbo: " + Out.string() + ": " + Reason + "\n");
  }
  EXPECT_EQ(namesIn(Dir.path()), (std::vector<std::string>{"file", "folder"}));
  EXPECT_TRUE(fs::is_empty(Dir / "folder"));
}

TEST(AtomicFile, ReportsAReadOnlyFolder) {
  TempDir Dir;
  const fs::path Folder = Dir / "locked";
  fs::create_directory(Folder);
  fs::permissions(Folder, fs::perms::owner_read | fs::perms::owner_exec);
  {
    std::ofstream Probe(Folder / "probe");
    if (Probe)
      GTEST_SKIP() << "permissions are not enforced for this user";
  }
  const ToolResult Result = convertTo("json", Folder / "out.json", "[1]");
  EXPECT_EQ(Result.Status, 2);
  EXPECT_EQ(Result.Err, "orbo: " + (Folder / "out.json").string() +
                            ": Permission denied\n");
  EXPECT_TRUE(fs::is_empty(Folder));
}

// Devices cannot be replaced by a rename (and must not be): they are written
// in place, and their write errors still count.
TEST(AtomicFile, WritesDevicesInPlace) {
  EXPECT_EQ(convertTo("json", "/dev/null", "[1]").Status, 0);
  EXPECT_TRUE(fs::is_character_file("/dev/null"));

  const ToolResult Full = convertTo("json", "/dev/full", "[1]");
  EXPECT_EQ(Full.Status, 2);
  EXPECT_EQ(Full.Err, "orbo: /dev/full: No space left on device\n");
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}
