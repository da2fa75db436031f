#include "tests/common/TestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <string>

namespace fs = std::filesystem;
using orbotest::readFile;
using orbotest::runTool;
using orbotest::TempDir;
using orbotest::ToolResult;
using orbotest::writeFile;

namespace {

const std::string OldContent = "old content, not JSON\n";

// Counts what is in Folder: a temporary left behind shows up here.
std::ptrdiff_t entriesIn(const fs::path &Folder) {
  return std::distance(fs::directory_iterator(Folder), {});
}

ToolResult convertTo(const std::string &Format, const fs::path &Out,
                     const std::string &Input) {
  return runTool({"plist", "convert", "--to", Format, "-o", Out.string(), "-"},
                 Input);
}

} // namespace

// The output is built beside the target and renamed over it, so a failure at
// any step leaves the old file as it was and no temporary behind.
TEST(AtomicFile, OnlyASuccessfulConversionReplacesTheTarget) {
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
    EXPECT_EQ(entriesIn(Dir.path()), 1);
  }
  EXPECT_EQ(convertTo("json", Dir / "out.json", "[true]").Status, 0);
  EXPECT_EQ(readFile(Dir / "out.json"), "[\n    true\n]\n");
  EXPECT_EQ(entriesIn(Dir.path()), 1);
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
  EXPECT_EQ(entriesIn(Dir.path()), 2);
  EXPECT_TRUE(fs::is_empty(Dir / "folder"));
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
  EXPECT_EQ(convertTo("json", "/dev/null", "[1]").Status, 0);
}
