#include "tests/common/TestSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using orbotest::runTool;
using orbotest::TempDir;
using orbotest::ToolResult;
using orbotest::writeFile;

// Help and the version go to standard output with status 0, misuse to
// standard error with status 2.
TEST(PlistCommand, PrintsVersionAndHelpAndUsageOnMisuse) {
  EXPECT_EQ(runTool({"--version"}).Out, "Project Orbo 0.5.0\n");
  const std::string Usage = "orbo plist convert --to json|pretty";
  const ToolResult Help = runTool({"--help"});
  EXPECT_EQ(Help.Status, 0);
  EXPECT_NE(Help.Out.find(Usage), std::string::npos) << Help.Out;
  const ToolResult Misuse = runTool({"plist", "convert", "--to=xml", "-"});
  EXPECT_EQ(Misuse.Status, 2);
  EXPECT_NE(Misuse.Err.find(Usage), std::string::npos) << Misuse.Err;
  EXPECT_EQ(Misuse.Out, "");
}

// Bad data is status 1 with its position, an input that cannot be read
// status 2; nothing goes to standard output.
TEST(PlistCommand, ReportsBadDataAndUnreadableInputOnStandardError) {
  TempDir Dir;
  const std::string Folder = Dir.path().string();
  using Args = std::vector<std::string>;
  for (Args Command : {Args{"plist", "print", "-"},
                       Args{"plist", "convert", "--to=json", "-"}}) {
    ToolResult Result = runTool(Command, "[1,\n  x]");
    EXPECT_EQ(Result.Status, 1) << Command[1];
    EXPECT_EQ(Result.Out, "");
    EXPECT_EQ(Result.Err,
              "<stdin>:2:3: lexical error: invalid char in json text\n");
    Command.back() = Folder;
    Result = runTool(Command);
    EXPECT_EQ(Result.Status, 2) << Command[1];
    EXPECT_EQ(Result.Out, "");
    EXPECT_EQ(Result.Err, "orbo: " + Folder + ": Is a directory\n");
  }
}

// The reader has no depth limit and the printer does not recurse; the strict
// writer refuses the 128th level, which is bad data, not a crash.
TEST(PlistCommand, SurvivesDeepNesting) {
  for (const std::size_t Depth : {100000u, 1000000u}) {
    TempDir Dir;
    const std::string Path = (Dir / "deep.json").string();
    const std::string Text = std::string(Depth, '[') + std::string(Depth, ']');
    writeFile(Path, Text);

    EXPECT_EQ(runTool({"plist", "lint", Path}).Out, Path + ": OK\n");

    ToolResult Result = runTool({"plist", "print", Path});
    EXPECT_EQ(Result.Status, 0) << Depth;
    EXPECT_TRUE(Result.Out == Text + "\n") << Depth;

    Result = runTool({"plist", "convert", "--to", "json", Path});
    EXPECT_EQ(Result.Status, 1) << Depth;
    EXPECT_EQ(Result.Out, "");
    EXPECT_NE(Result.Err.find("orbo: " + Path + ": "), std::string::npos)
        << Result.Err;
  }
}
