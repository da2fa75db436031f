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

qo::Reference<Item> readBack(const qo::Reference<Item> &I) {
  qoString::CString Text;
  convertToJSON(Text, I);
  qo::Reference<Item> Out;
  EXPECT_TRUE(convertFromJSON(Out, Text)) << Text.c_str();
  return Out;
}

// Switches the whole process to a German locale (decimal comma) for its
// lifetime, compiling the locale into a temporary folder when the system
// lacks it. active() is false when neither works.
class GermanLocale {
public:
  GermanLocale() : Saved(std::setlocale(LC_ALL, nullptr)) {
    if (tryGerman())
      return;
    const std::string Command = "localedef -i de_DE -f UTF-8 '" +
                                (Dir / "de_DE.UTF-8").string() +
                                "' >/dev/null 2>&1";
    if (std::system(Command.c_str()) != 0)
      return;
    setenv("LOCPATH", Dir.path().c_str(), 1);
    UsesLocPath = true;
    tryGerman();
  }
  ~GermanLocale() {
    std::setlocale(LC_ALL, Saved.c_str());
    if (UsesLocPath)
      unsetenv("LOCPATH");
  }
  bool active() const { return Active; }

private:
  bool tryGerman() {
    Active = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
    char Text[16];
    std::snprintf(Text, sizeof Text, "%g", 1.5);
    Active = Active && std::string(Text) == "1,5";
    return Active;
  }

  std::string Saved;
  orbotest::TempDir Dir;
  bool UsesLocPath = false;
  bool Active = false;
};

} // namespace

TEST(JSONText, RandomTreesSurviveRoundTrip) {
  for (unsigned Seed = 1; Seed <= 300; ++Seed) {
    const auto Source = RandomTree(Seed).container(6);
    const auto Copy = readBack(Source);
    ASSERT_TRUE(Copy);
    EXPECT_TRUE(Source->congruent(*Copy)) << Seed;
    EXPECT_TRUE(Copy->congruent(*Source)) << Seed;
    EXPECT_TRUE(sameTree(Source.get(), Copy.get())) << Seed;
  }
}

TEST(JSONText, RoundTripDropsNullsAndKeepsOddBytes) {
  auto A = qo::make<Array>();
  A->insert(num(1));
  A->insert(nullptr);
  EXPECT_TRUE(sameTree(readBack(A).get(), arrayOf({num(1)}).get()));

  // Byte patterns the parser lets through must come back as they went out.
  qo::Reference<Item> Odd;
  const std::string Text =
      "[\"\\uDEAA\", \"\xC0\xAF\", \"\xF4\x90\x80\x80\", \"\\u0000\"]";
  ASSERT_TRUE(convertFromJSON(Odd, Text.data(), Text.size()));
  EXPECT_TRUE(sameTree(readBack(Odd).get(), Odd.get()));
}

TEST(JSONText, QuoteIsEscapedOnlyByStrictWriter) {
  const auto I = str("a\"b");
  EXPECT_EQ(asJSON(I), "\"a\"b\"\n");
  qoString::CString Strict;
  convertToJSON(Strict, I);
  EXPECT_EQ(Strict, "\"a\\\"b\"\n");
}

TEST(JSONText, NumbersIgnoreProcessLocale) {
  GermanLocale German;
  if (!German.active())
    GTEST_SKIP() << "no German locale available";
  EXPECT_EQ(asJSON(arrayOf({num(1.5)})), "[1.5]\n");
  qoString::CString Strict;
  convertToJSON(Strict, num(1.5));
  EXPECT_EQ(Strict, "1.5\n");
  qo::Reference<Item> Read;
  ASSERT_TRUE(convertFromJSON(Read, qoString::CString("[1.5, 2e-1]")));
  EXPECT_TRUE(sameTree(Read.get(), arrayOf({num(1.5), num(0.2)}).get()));
}
