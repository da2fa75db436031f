#include "plst/Parser.h"

#include "tests/plst/ItemBuilders.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

using namespace nyPLST;
using namespace plsttest;

namespace {

enum class Outcome { True, False, Throws };

// One parse call on one item and what it does in throw mode, where a plain
// false is the deliberate exception for elements of a numeric array that are
// not numbers. Outside throw mode the call returns Outcome == True.
struct ParseCase {
  const char *Name;
  ItemRef Input;
  std::function<bool(Parser &)> Parse;
  Outcome InThrowMode;
};

std::function<bool(Parser &)> numeric(int Size = -1) {
  return [Size](Parser &P) {
    return Size < 0 ? P.parseNumericArray() : P.parseNumericArray(Size);
  };
}

} // namespace

TEST(Parser, ThrowModeThrowsFalseExceptForNonNumericElements) {
  const ParseCase Cases[] = {
      {"BoolAsBool", boolean(false), &Parser::parseBool, Outcome::True},
      {"DoubleAsBool", num(1), &Parser::parseBool, Outcome::Throws},
      {"DoubleAsDouble", num(1), &Parser::parseDouble, Outcome::True},
      {"StringAsDouble", str("1"), &Parser::parseDouble, Outcome::Throws},
      {"StringAsString", str(""), &Parser::parseString, Outcome::True},
      {"NullAsString", nullptr, &Parser::parseString, Outcome::Throws},
      {"ArrayAsArray", arrayOf({}), &Parser::parseArray, Outcome::True},
      {"DictionaryAsArray", dictOf({}), &Parser::parseArray, Outcome::Throws},
      {"DictionaryAsDictionary", dictOf({}), &Parser::parseDictionary,
       Outcome::True},
      {"ArrayAsDictionary", arrayOf({}), &Parser::parseDictionary,
       Outcome::Throws},
      {"Numbers", arrayOf({num(1), num(2)}), numeric(), Outcome::True},
      {"StringElement", arrayOf({num(1), str("x")}), numeric(), Outcome::False},
      {"NullElement", arrayOf({num(1), nullptr}), numeric(), Outcome::False},
      {"NumericNotArray", num(1), numeric(), Outcome::Throws},
      {"ThreeNumbers", arrayOf({num(1), num(2), num(3)}), numeric(3),
       Outcome::True},
      {"ThreeWithBool", arrayOf({num(1), num(2), boolean(true)}), numeric(3),
       Outcome::False},
      {"TwoForThree", arrayOf({num(1), num(2)}), numeric(3), Outcome::Throws},
      // The size is tested before the elements, so this one throws.
      {"TwoStringsForThree", arrayOf({str("a"), str("b")}), numeric(3),
       Outcome::Throws},
  };
  for (const auto &C : Cases) {
    const bool Verdict = C.InThrowMode == Outcome::True;
    Parser Quiet(C.Input);
    EXPECT_EQ(C.Parse(Quiet), Verdict) << C.Name;
    for (const bool ByConstructor : {true, false}) {
      Parser P(C.Input, ByConstructor);
      if (!ByConstructor)
        P.setThrowMode();
      try {
        EXPECT_EQ(C.Parse(P), Verdict) << C.Name;
        EXPECT_NE(C.InThrowMode, Outcome::Throws) << C.Name;
      } catch (bool Thrown) {
        EXPECT_EQ(C.InThrowMode, Outcome::Throws) << C.Name;
        EXPECT_FALSE(Thrown) << C.Name;
      }
    }
  }
}

TEST(Parser, CheckThrowsFalseOnlyInThrowMode) {
  Parser Quiet;
  EXPECT_TRUE(Quiet.check(true));
  EXPECT_FALSE(Quiet.check(false));
  Parser Strict(nullptr, true);
  EXPECT_TRUE(Strict.check(true));
  EXPECT_THROW(Strict.check(false), bool);
}
