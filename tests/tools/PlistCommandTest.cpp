#include "tests/common/TestSupport.h"

#include "plst/JSONReader.h"
#include "plst/JSONWriter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using orbotest::runTool;
using orbotest::TempDir;
using orbotest::ToolResult;
using orbotest::writeFile;

namespace {

std::string nestedArrays(std::size_t Depth) {
  return std::string(Depth, '[') + std::string(Depth, ']');
}

// The strict text of Text as the library writes it, for comparing with what
// the program wrote.
std::string strictJSON(const std::string &Text) {
  qo::Reference<nyPLST::Item> Root;
  EXPECT_TRUE(nyPLST::convertFromJSON(Root, Text.data(), Text.size()));
  qoString::CString Out;
  nyPLST::convertToJSON(Out, Root);
  return Out.str();
}

} // namespace

TEST(PlistCommand, PrintsItsVersion) {
  const ToolResult Result = runTool({"--version"});
  EXPECT_EQ(Result.Status, 0);
  EXPECT_EQ(Result.Out, "Project Orbo 0.5.0\n");
}

struct UsageCase {
  std::vector<std::string> Args;
  int Status;
  bool UsageOnStdout;
};

class PlistCommandUsage : public testing::TestWithParam<UsageCase> {};

TEST_P(PlistCommandUsage, ExitsWithTheDocumentedStatus) {
  const ToolResult Result = runTool(GetParam().Args);
  EXPECT_EQ(Result.Status, GetParam().Status);
  const std::string &UsageStream =
      GetParam().UsageOnStdout ? Result.Out : Result.Err;
  EXPECT_NE(UsageStream.find("orbo plist convert --to json|pretty"),
            std::string::npos)
      << UsageStream;
  if (!GetParam().UsageOnStdout) {
    EXPECT_EQ(Result.Out, "");
  }
}

INSTANTIATE_TEST_SUITE_P(
    Arguments, PlistCommandUsage,
    testing::Values(
        UsageCase{{}, 2, false}, UsageCase{{"--help"}, 0, true},
        UsageCase{{"frob"}, 2, false}, UsageCase{{"plist"}, 2, false},
        UsageCase{{"plist", "frob", "x"}, 2, false},
        UsageCase{{"plist", "lint"}, 2, false},
        UsageCase{{"plist", "lint", "--"}, 2, false},
        UsageCase{{"plist", "lint", "--strict", "-"}, 2, false},
        UsageCase{{"plist", "print"}, 2, false},
        UsageCase{{"plist", "print", "-", "-"}, 2, false},
        UsageCase{{"plist", "convert", "-"}, 2, false},
        UsageCase{{"plist", "convert", "--to"}, 2, false},
        UsageCase{{"plist", "convert", "--to", "json"}, 2, false},
        UsageCase{{"plist", "convert", "--to", "json", "-", "-o"}, 2, false},
        UsageCase{
            {"plist", "convert", "--to", "json", "-o", "", "-"}, 2, false},
        UsageCase{{"plist", "convert", "--to", "binary", "-"}, 2, false},
        UsageCase{{"plist", "convert", "--to=xml", "-"}, 2, false},
        UsageCase{{"plist", "convert", "--to", "json", "a", "b"}, 2, false}));

TEST(PlistCommand, PrintWritesTheTextForPeople) {
  const ToolResult Result =
      runTool({"plist", "print", "-"}, R"({"b": [1, 2], "a": 1234567})");
  EXPECT_EQ(Result.Status, 0);
  EXPECT_EQ(Result.Out, "{\n    \"a\": 1.23457e+06,\n    \"b\": [1, 2]\n}\n");
  EXPECT_EQ(Result.Err, "");
}

TEST(PlistCommand, ConvertWritesEitherForm) {
  const std::string Text = R"({"s": "say \"hi\"", "n": [0.1, true]})";
  ToolResult Result = runTool({"plist", "convert", "--to", "json", "-"}, Text);
  EXPECT_EQ(Result.Status, 0);
  EXPECT_EQ(Result.Out, strictJSON(Text));

  Result = runTool({"plist", "convert", "--to=pretty", "-"}, Text);
  EXPECT_EQ(Result.Status, 0);
  EXPECT_EQ(Result.Out, runTool({"plist", "print", "-"}, Text).Out);
}

// Strings that crashed unpatched parsers, and a zero byte inside a string,
// must come back unchanged from a write and a re-read.
TEST(PlistCommand, StrictOutputReadsBackToTheSameText) {
  const std::vector<std::string> Texts = {
      R"({"e":{"\uD800\\DC00":"a"}})",
      R"(["\uD8D8\\uD"])",
      R"(["\ud800\\u"])",
      R"(["\uDEAA"])",
      R"({"a\u0000b": 1, "a\u0000c": "x\u0000y"})",
  };
  for (const std::string &Text : Texts) {
    const ToolResult Result =
        runTool({"plist", "convert", "--to", "json", "-"}, Text);
    ASSERT_EQ(Result.Status, 0) << Text << Result.Err;
    EXPECT_EQ(strictJSON(Result.Out), Result.Out) << Text;
  }
}

TEST(PlistCommand, BadDataGoesToStandardErrorWithItsPosition) {
  for (const char *Command : {"print", "convert"}) {
    std::vector<std::string> Args = {"plist", Command, "-"};
    if (Args[1] == "convert")
      Args.insert(Args.begin() + 2, {"--to", "json"});
    const ToolResult Result = runTool(Args, "[1,\n  x]");
    EXPECT_EQ(Result.Status, 1) << Command;
    EXPECT_EQ(Result.Out, "");
    EXPECT_EQ(Result.Err,
              "<stdin>:2:3: lexical error: invalid char in json text\n");
  }
}

TEST(PlistCommand, ReportsInputsThatCannotBeRead) {
  TempDir Dir;
  const std::string Missing = (Dir / "missing.json").string();
  const std::string Folder = Dir.path().string();
  const std::vector<std::pair<std::vector<std::string>, std::string>> Cases = {
      {{"plist", "print", Missing}, Missing + ": No such file or directory"},
      {{"plist", "print", Folder}, Folder + ": Is a directory"},
      {{"plist", "lint", Folder}, Folder + ": Is a directory"},
      {{"plist", "convert", "--to", "json", Folder},
       Folder + ": Is a directory"},
  };
  for (const auto &[Args, Message] : Cases) {
    const ToolResult Result = runTool(Args);
    EXPECT_EQ(Result.Status, 2) << Message;
    EXPECT_EQ(Result.Out, "");
    EXPECT_EQ(Result.Err, "orbo: " + Message + "\n");
  }
}

// The reader has no depth limit and the printer does not recurse; the strict
// writer refuses the 128th level, which is bad data, not a crash.
TEST(PlistCommand, SurvivesDeepNesting) {
  for (const std::size_t Depth : {100000u, 1000000u}) {
    TempDir Dir;
    const std::string Path = (Dir / "deep.json").string();
    const std::string Text = nestedArrays(Depth);
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

TEST(PlistCommand, StrictWriterLimitIsAt128Levels) {
  ToolResult Result =
      runTool({"plist", "convert", "--to", "json", "-"}, nestedArrays(127));
  EXPECT_EQ(Result.Status, 0);
  Result =
      runTool({"plist", "convert", "--to", "json", "-"}, nestedArrays(128));
  EXPECT_EQ(Result.Status, 1);
}
