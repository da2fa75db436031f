#include "plst/Parser.h"

#include "tests/plst/ItemBuilders.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

using namespace nyPLST;
using plsttest::arrayOf;
using plsttest::boolean;
using plsttest::dictOf;
using plsttest::num;
using plsttest::str;
using qo::Reference;

namespace {

enum class Outcome { True, False, Throws };

// One parse call on one item: what it returns normally, and what it does in
// throw mode (where a plain false is the deliberate exception for elements
// of a numeric array that are not numbers).
struct ParseCase {
  std::string Name;
  Reference<Item> Input;
  std::function<bool(Parser &)> Parse;
  Outcome InThrowMode;
};

bool returned(Outcome O) { return O == Outcome::True; }

std::function<bool(Parser &)> numericArrayOf(int N) {
  return [N](Parser &P) { return P.parseNumericArray(N); };
}

const std::vector<ParseCase> &parseCases() {
  static const std::vector<ParseCase> Cases = {
      {"BoolAsBool", boolean(false), &Parser::parseBool, Outcome::True},
      {"DoubleAsBool", num(1), &Parser::parseBool, Outcome::Throws},
      {"DoubleAsDouble", num(1), &Parser::parseDouble, Outcome::True},
      {"StringAsDouble", str("1"), &Parser::parseDouble, Outcome::Throws},
      {"StringAsString", str(""), &Parser::parseString, Outcome::True},
      {"NullAsString", nullptr, &Parser::parseString, Outcome::Throws},
      {"ArrayAsArray", arrayOf({}), &Parser::parseArray, Outcome::True},
      {"DictionaryAsArray", dictOf({}), &Parser::parseArray, Outcome::Throws},
      {"DictionaryAsDictionary", dictOf({{"a", num(1)}}),
       &Parser::parseDictionary, Outcome::True},
      {"ArrayAsDictionary", arrayOf({}), &Parser::parseDictionary,
       Outcome::Throws},

      {"EmptyNumeric", arrayOf({}),
       [](Parser &P) { return P.parseNumericArray(); }, Outcome::True},
      {"Numbers", arrayOf({num(1), num(2)}),
       [](Parser &P) { return P.parseNumericArray(); }, Outcome::True},
      {"StringElement", arrayOf({num(1), str("x")}),
       [](Parser &P) { return P.parseNumericArray(); }, Outcome::False},
      {"NullElement", arrayOf({num(1), nullptr}),
       [](Parser &P) { return P.parseNumericArray(); }, Outcome::False},
      {"NumericNotArray", num(1),
       [](Parser &P) { return P.parseNumericArray(); }, Outcome::Throws},

      {"ThreeNumbers", arrayOf({num(1), num(2), num(3)}), numericArrayOf(3),
       Outcome::True},
      {"ZeroOfZero", arrayOf({}), numericArrayOf(0), Outcome::True},
      {"ThreeWithString", arrayOf({num(1), str("x"), num(3)}),
       numericArrayOf(3), Outcome::False},
      {"ThreeWithBool", arrayOf({num(1), num(2), boolean(true)}),
       numericArrayOf(3), Outcome::False},
      {"TwoForThree", arrayOf({num(1), num(2)}), numericArrayOf(3),
       Outcome::Throws},
      {"FourForThree", arrayOf({num(1), num(2), num(3), num(4)}),
       numericArrayOf(3), Outcome::Throws},
      // The size is tested before the elements, so this one throws.
      {"TwoStringsForThree", arrayOf({str("a"), str("b")}), numericArrayOf(3),
       Outcome::Throws},
      {"DictionaryForThree", dictOf({}), numericArrayOf(3), Outcome::Throws},
  };
  return Cases;
}

} // namespace

TEST(Parser, ReturnsTheVerdictWhenNotInThrowMode) {
  for (const auto &C : parseCases()) {
    Parser P(C.Input);
    EXPECT_EQ(C.Parse(P), returned(C.InThrowMode)) << C.Name;
  }
}

TEST(Parser, ThrowsFalseOnlyWhereThrowModeSaysSo) {
  for (const auto &C : parseCases()) {
    for (const bool ByConstructor : {true, false}) {
      Parser P(C.Input, ByConstructor);
      if (!ByConstructor)
        P.setThrowMode();
      try {
        const bool Result = C.Parse(P);
        EXPECT_NE(C.InThrowMode, Outcome::Throws) << C.Name;
        EXPECT_EQ(Result, returned(C.InThrowMode)) << C.Name;
      } catch (bool Thrown) {
        EXPECT_EQ(C.InThrowMode, Outcome::Throws) << C.Name;
        EXPECT_FALSE(Thrown) << C.Name;
      }
    }
  }
}

TEST(Parser, CheckPassesTrueAndThrowsFalseInThrowMode) {
  Parser Quiet;
  EXPECT_TRUE(Quiet.check(true));
  EXPECT_FALSE(Quiet.check(false));

  Parser Strict(nullptr, true);
  EXPECT_TRUE(Strict.throwMode());
  EXPECT_TRUE(Strict.check(true));
  EXPECT_THROW(Strict.check(false), bool);
}

TEST(Parser, SuccessfulParsesCacheTheSameObject) {
  const Reference<Item> Input = arrayOf({num(1)});
  Parser P(Input);
  EXPECT_FALSE(P.null());
  EXPECT_EQ(P.item().get(), Input.get());
  EXPECT_FALSE(P.arrayItem());

  EXPECT_FALSE(P.parseDictionary());
  EXPECT_FALSE(P.dictionaryItem());
  EXPECT_TRUE(P.parseNumericArray(1));
  EXPECT_EQ(P.arrayItem().get(), Input.get());
}

TEST(Parser, DefaultHasNoItemAndAcceptsNothing) {
  Parser P;
  EXPECT_TRUE(P.null());
  EXPECT_FALSE(P.throwMode());
  EXPECT_FALSE(P.parseBool());
  EXPECT_FALSE(P.parseNumericArray());
}
