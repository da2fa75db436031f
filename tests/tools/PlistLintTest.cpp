#include "tests/common/TestSupport.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

using orbotest::runTool;
using orbotest::TempDir;
using orbotest::writeFile;

namespace {

struct Verdict {
  std::string File;
  bool Accept;
};

std::vector<Verdict> conformanceVerdicts() {
  std::ifstream Table(
      orbotest::sharedPath("conformance/JSONTestSuite/expected-yajl.tsv"));
  std::vector<Verdict> Verdicts;
  std::string Line;
  std::getline(Table, Line); // the column names
  while (std::getline(Table, Line)) {
    const std::size_t Tab = Line.find('\t');
    if (Tab == std::string::npos)
      continue;
    Verdicts.push_back({Line.substr(0, Tab), Line.substr(Tab + 1) == "accept"});
  }
  return Verdicts;
}

std::vector<std::string> splitLines(const std::string &Text) {
  std::vector<std::string> Lines;
  std::istringstream Stream(Text);
  for (std::string Line; std::getline(Stream, Line);)
    Lines.push_back(Line);
  return Lines;
}

// Lints Text saved as "in.json"; returns the line printed for it without the
// file name, e.g. " OK" or "3:5: lexical error: invalid char in json text".
std::string lintText(const std::string &Text, int *Status = nullptr) {
  TempDir Dir;
  const std::string Path = (Dir / "in.json").string();
  writeFile(Path, Text);
  const orbotest::ToolResult Result = runTool({"plist", "lint", Path});
  if (Status)
    *Status = Result.Status;
  EXPECT_EQ(Result.Err, "");
  EXPECT_EQ(Result.Out.rfind(Path + ":", 0), 0u) << Result.Out;
  std::string Line = Result.Out.substr(Path.size() + 1);
  if (!Line.empty() && Line.back() == '\n')
    Line.pop_back();
  return Line;
}

} // namespace

// One run over the whole suite: lint prints exactly one line per file, in
// argument order, starting with the name as given.
TEST(PlistLint, AgreesWithTheParserVerdictsOfTheConformanceSuite) {
  const std::vector<Verdict> Verdicts = conformanceVerdicts();
  ASSERT_GT(Verdicts.size(), 300u);
  std::vector<std::string> Args = {"plist", "lint"};
  for (const Verdict &V : Verdicts)
    Args.push_back(
        orbotest::sharedPath("conformance/JSONTestSuite/test_parsing/" + V.File)
            .string());

  const orbotest::ToolResult Result = runTool(Args);
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Err, "");
  const std::vector<std::string> Lines = splitLines(Result.Out);
  ASSERT_EQ(Lines.size(), Verdicts.size());

  std::string Mismatches;
  for (std::size_t I = 0; I < Verdicts.size(); ++I) {
    const std::string &Path = Args[I + 2];
    const std::string &Line = Lines[I];
    if (Line.rfind(Path + ":", 0) != 0) {
      Mismatches += "\n  " + Verdicts[I].File + ": unexpected line " + Line;
      continue;
    }
    const bool Accepted = Line.substr(Path.size()) == ": OK";
    if (Accepted != Verdicts[I].Accept)
      Mismatches += "\n  " + Verdicts[I].File +
                    (Accepted ? ": accepted" : ": rejected: " + Line);
  }
  EXPECT_EQ(Mismatches, "") << "verdicts that differ:" << Mismatches;
}

struct PositionCase {
  const char *Name;
  std::string Text;
  std::string Expected;
};

class PlistLintPosition : public testing::TestWithParam<PositionCase> {};

TEST_P(PlistLintPosition, PointsAtTheByteThatFailed) {
  int Status = -1;
  EXPECT_EQ(lintText(GetParam().Text, &Status), GetParam().Expected);
  EXPECT_EQ(Status, 1);
}

INSTANTIATE_TEST_SUITE_P(
    Errors, PlistLintPosition,
    testing::Values(
        PositionCase{"ThirdLine", "{\n  \"a\": 1,\n    x\n}",
                     "3:5: lexical error: invalid char in json text"},
        PositionCase{"CrLfEndsLines", "{\r\n  \"a\": 1,\r\n    x\r\n}",
                     "3:5: lexical error: invalid char in json text"},
        PositionCase{"LoneCrIsAByte", "[1,\r  x]",
                     "1:7: lexical error: invalid char in json text"},
        PositionCase{"MissingColon", "{\n\"a\" 1}",
                     "2:5: parse error: object key and value must be "
                     "separated by a colon (':')"},
        PositionCase{"PrematureEnd", "{\n  \"a\": [1,",
                     "2:10: parse error: premature EOF"},
        PositionCase{"PrematureEndAfterNewline", "[1,\n2,\n",
                     "2:3: parse error: premature EOF"},
        PositionCase{"Empty", "", "1:1: parse error: premature EOF"},
        PositionCase{"OnlySpace", "  \n ", "2:1: parse error: premature EOF"},
        PositionCase{"ByteOrderMark", "\xEF\xBB\xBF[1]",
                     "1:1: lexical error: invalid char in json text"},
        PositionCase{"ZeroByteInside", std::string("[1,\0 2]", 7),
                     "1:4: lexical error: invalid char in json text"},
        PositionCase{"ZeroByteAfter", std::string("[1]\0", 4),
                     "1:4: parse error: trailing garbage"},
        PositionCase{"TwoDocuments", "1\n2",
                     "2:1: parse error: trailing garbage"},
        PositionCase{"IntegerOverflow", "[9223372036854775808]",
                     "1:2: parse error: integer overflow"},
        PositionCase{"DoubleOverflow", "{\"a\": 1e999}",
                     "1:7: parse error: numeric (floating point) overflow"}),
    [](const testing::TestParamInfo<PositionCase> &Info) {
      return Info.param.Name;
    });

TEST(PlistLint, AcceptsWhatTheReaderAccepts) {
  const std::vector<std::string> Good = {
      "[1]/* unterminated",
      "\f[1]\v",
      "null",
      "{\"a\":1,\"a\":2}",
      "[9223372036854775807, -0]",
      R"({"e":{"\uD800\\DC00":"a"}})",
      R"(["\uD8D8\\uD"])",
      R"(["\ud800\\u"])",
      "[\"a\\u0000b\"]",
  };
  for (const std::string &Text : Good)
    EXPECT_EQ(lintText(Text), " OK") << Text;
}

// Status 2 wins over 1, and the files that could be read are still reported.
TEST(PlistLint, ReportsEveryFileAndExitsWithTheWorstStatus) {
  TempDir Dir;
  writeFile(Dir / "good.json", "{}");
  writeFile(Dir / "bad.json", "{");
  const std::string Good = (Dir / "good.json").string();
  const std::string Bad = (Dir / "bad.json").string();
  const std::string Missing = (Dir / "missing.json").string();

  orbotest::ToolResult Result = runTool({"plist", "lint", Good, Bad});
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Out,
            Good + ": OK\n" + Bad + ":1:1: parse error: premature EOF\n");

  Result = runTool({"plist", "lint", Missing, Bad, Good});
  EXPECT_EQ(Result.Status, 2);
  EXPECT_EQ(Result.Out,
            Bad + ":1:1: parse error: premature EOF\n" + Good + ": OK\n");
  EXPECT_EQ(Result.Err, "orbo: " + Missing + ": No such file or directory\n");
}

TEST(PlistLint, ReadsStandardInputForADash) {
  orbotest::ToolResult Result = runTool({"plist", "lint", "-"}, "[true]");
  EXPECT_EQ(Result.Status, 0);
  EXPECT_EQ(Result.Out, "<stdin>: OK\n");

  Result = runTool({"plist", "lint", "-"}, "[tru]");
  EXPECT_EQ(Result.Status, 1);
  EXPECT_EQ(Result.Out, "<stdin>:1:4: lexical error: invalid string in json "
                        "text\n");
}
