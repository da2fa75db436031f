#include "tests/common/TestSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using orbotest::runTool;
using orbotest::TempDir;
using orbotest::ToolResult;
using orbotest::writeFile;

TEST(PlistCommand, PrintsItsVersion) {
  const ToolResult Result = runTool({"--version"});
  EXPECT_EQ(Result.Status, 0);
  EXPECT_EQ(Result.Out, "Project Orbo 0.5.0\n");
}

// Help goes to standard output with status 0, misuse to standard error with
// status 2.
TEST(PlistCommand, BadArgumentsPrintTheUsage) {
  const std::vector<std::string> Misuse[] = {
      {},
      {"plist", "lint"},
      {"plist", "print", "-", "-"},
      {"plist", "convert", "--to", "json", "-", "-o"},
      {"plist", "convert", "--to=xml", "-"}};
  const std::string Usage = "orbo plist convert --to json|pretty";
  for (const auto &Args : Misuse) {
    const ToolResult Result = runTool(Args);
    EXPECT_EQ(Result.Status, 2) << Result.Err;
    EXPECT_NE(Result.Err.find(Usage), std::string::npos) << Result.Err;
    EXPECT_EQ(Result.Out, "");
  }
  const ToolResult Help = runTool({"--help"});
  EXPECT_EQ(Help.Status, 0);
  EXPECT_NE(Help.Out.find(Usage), std::string::npos) << Help.Out;
}

TEST(PlistCommand, PrintAndConvertWriteTheirForms) {
  const std::string Text = R"({"s": "say \"hi\"", "n": [1234567, true]})";
  ToolResult Result = runTool({"plist", "print", "-"}, Text);
  EXPECT_EQ(Result.Status, 0);
  EXPECT_EQ(
      Result.Out,
      "{\n    \"n\": [1.23457e+06, true],\n    \"s\": \"say \"hi\"\"\n}\n");
  EXPECT_EQ(runTool({"plist", "convert", "--to=pretty", "-"}, Text).Out,
            Result.Out);

  Result = runTool({"plist", "convert", "--to", "json", "-"}, Text);
  EXPECT_EQ(Result.Status, 0);
  EXPECT_EQ(Result.Out,
            "{\n    \"n\": [\n        1234567.0,\n        true\n    ],"
            "\n    \"s\": \"say \\\"hi\\\"\"\n}\n");
}

// Bad data is status 1 with its position, an input that cannot be read
// status 2; nothing goes to standard output.
TEST(PlistCommand, ReportsBadDataAndUnreadableInputOnStandardError) {
  TempDir Dir;
  const std::string Folder = Dir.path().string();
  using Args = std::vector<std::string>;
  for (const Args &Command :
       {Args{"plist", "print"}, Args{"plist", "convert", "--to", "json"}}) {
    Args WithInput = Command;
    WithInput.push_back("-");
    ToolResult Result = runTool(WithInput, "[1,\n  x]");
    EXPECT_EQ(Result.Status, 1) << Command[1];
    EXPECT_EQ(Result.Out, "");
    EXPECT_EQ(Result.Err,
              "<stdin>:2:3: lexical error: invalid char in json text\n");
    WithInput.back() = Folder;
    Result = runTool(WithInput);
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
