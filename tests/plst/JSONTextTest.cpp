// The three text paths together: what the strict writer writes, the reader
// reads back unchanged, and no path depends on the process's locale.
#include "tests/common/TestSupport.h"
#include "tests/plst/ItemBuilders.h"

#include "plst/JSONReader.h"
#include "plst/JSONWriter.h"
#include "plst/PrettyPrinter.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

using namespace nyPLST;
using namespace plsttest;

namespace {

ItemRef readBack(const ItemRef &I) {
  qoString::CString Text;
  convertToJSON(Text, I);
  ItemRef Out;
  EXPECT_TRUE(convertFromJSON(Out, Text)) << Text.c_str();
  return Out;
}

// Switches the whole process to a German locale (decimal comma), compiled
// into a temporary folder, for its lifetime. active() is false when the
// locale cannot be built.
class GermanLocale {
public:
  GermanLocale() : Saved(std::setlocale(LC_ALL, nullptr)) {
    const std::string Command = "localedef -i de_DE -f UTF-8 '" +
                                (Dir / "de_DE.UTF-8").string() +
                                "' >/dev/null 2>&1";
    if (std::system(Command.c_str()) != 0)
      return;
    setenv("LOCPATH", Dir.path().c_str(), 1);
    char Text[16];
    std::setlocale(LC_ALL, "de_DE.UTF-8");
    std::snprintf(Text, sizeof Text, "%g", 1.5);
    Active = std::string(Text) == "1,5";
  }
  ~GermanLocale() {
    std::setlocale(LC_ALL, Saved.c_str());
    unsetenv("LOCPATH");
  }
  bool active() const { return Active; }

private:
  std::string Saved;
  orbotest::TempDir Dir;
  bool Active = false;
};

} // namespace

TEST(JSONText, RandomTreesSurviveRoundTrip) {
  for (unsigned Seed = 1; Seed <= 300; ++Seed) {
    const auto Source = RandomTree(Seed).container(6);
    const auto Copy = readBack(Source);
    ASSERT_TRUE(Copy);
    EXPECT_TRUE(sameTree(Source.get(), Copy.get())) << Seed;
  }
}

// Strings that crashed unpatched parsers, and byte patterns the parser lets
// through: all are read, and come back from a write as they went out.
TEST(JSONText, HostileStringsReadAndRoundTrip) {
  const std::string Cases[] = {
      R"({"e":{"\uD800\\DC00":"a"}})",
      R"(["\uD8D8\\uD"])",
      R"(["\ud800\\u"])",
      R"(["\uDEAA", "\uD834\uDD1E", "\u0000"])",
      "[\"\xC0\xAF\", \"\xF4\x90\x80\x80\"]",
  };
  for (const auto &Text : Cases) {
    ItemRef Read;
    ASSERT_TRUE(convertFromJSON(Read, Text.data(), Text.size())) << Text;
    EXPECT_TRUE(sameTree(readBack(Read).get(), Read.get())) << Text;
  }
  ItemRef Lone;
  ASSERT_TRUE(convertFromJSON(Lone, qoString::CString(R"(["\uDEAA"])")));
  EXPECT_TRUE(sameTree(Lone.get(), arrayOf({str("\xED\xBA\xAA")}).get()));
}

TEST(JSONText, NumbersIgnoreProcessLocale) {
  GermanLocale German;
  if (!German.active())
    GTEST_SKIP() << "no German locale available";
  EXPECT_EQ(asJSON(arrayOf({num(1.5)})), "[1.5]\n");
  qoString::CString Strict;
  convertToJSON(Strict, num(1.5));
  EXPECT_EQ(Strict, "1.5\n");
  ItemRef Read;
  ASSERT_TRUE(convertFromJSON(Read, qoString::CString("[1.5, 2e-1]")));
  EXPECT_TRUE(sameTree(Read.get(), arrayOf({num(1.5), num(0.2)}).get()));
}
