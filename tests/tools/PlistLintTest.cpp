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

// Lines end at "\n" (a lone "\r" is a byte), columns count bytes from 1.
TEST(PlistLint, PointsAtTheLineAndColumnThatFailed) {
  const std::pair<std::string, std::string> Cases[] = {
      {"{\r\n  \"a\": 1,\r\n    x\r\n}",
       "3:5: lexical error: invalid char in json text"},
      {"[1,\r  x]", "1:7: lexical error: invalid char in json text"},
      {"{\n  \"a\": [1,", "2:10: parse error: premature EOF"},
      {std::string("[1]\0", 4), "1:4: parse error: trailing garbage"},
      // The parser rewinds to the start of the offending number.
      {"[9223372036854775808]", "1:2: parse error: integer overflow"},
  };
  for (const auto &[Text, Expected] : Cases) {
    const orbotest::ToolResult Result = runTool({"plist", "lint", "-"}, Text);
    EXPECT_EQ(Result.Out, "<stdin>:" + Expected + "\n");
    EXPECT_EQ(Result.Status, 1) << Expected;
  }
}

// Status 2 wins over 1, and the files that could be read are still reported,
// standard input ("-") among them.
TEST(PlistLint, ReportsEveryFileAndExitsWithTheWorstStatus) {
  TempDir Dir;
  const std::string Good = (Dir / "good.json").string();
  const std::string Empty = (Dir / "empty.json").string();
  const std::string Missing = (Dir / "missing.json").string();
  writeFile(Good, "{}");
  writeFile(Empty, "");
  const orbotest::ToolResult Result = runTool(
      {"plist", "lint", Good, Missing, "-", Empty}, "[1]/* unterminated");
  EXPECT_EQ(Result.Status, 2);
  EXPECT_EQ(Result.Out, Good + ": OK\n<stdin>: OK\n" + Empty +
                            ":1:1: parse error: premature EOF\n");
  EXPECT_EQ(Result.Err, "orbo: " + Missing + ": No such file or directory\n");
}
