#include "plst/Parser.h"

#include "tests/plst/ItemBuilders.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>

using namespace nyPLST;
using namespace plsttest;

namespace {

enum class Outcome { True, False, Throws };
using ParseCall = std::function<bool(Parser &)>;

// Calls Parse quietly, then in throw mode set both ways, and checks each
// against Expected (a plain false in throw mode is the deliberate exception
// for elements of a numeric array that are not numbers).
void expectOutcome(const ItemRef &Input, const ParseCall &Parse,
                   Outcome Expected, const std::string &Name) {
  const bool Verdict = Expected == Outcome::True;
  Parser Quiet(Input);
  EXPECT_EQ(Parse(Quiet), Verdict) << Name;
  for (const bool ByConstructor : {true, false}) {
    Parser P(Input, ByConstructor);
    if (!ByConstructor)
      P.setThrowMode();
    try {
      EXPECT_EQ(Parse(P), Verdict) << Name;
      EXPECT_NE(Expected, Outcome::Throws) << Name;
    } catch (bool Thrown) {
      EXPECT_EQ(Expected, Outcome::Throws) << Name;
      EXPECT_FALSE(Thrown) << Name;
    }
  }
}

} // namespace

// Every kind check against every kind and null: only the matching one passes.
TEST(Parser, KindChecksThrowFalseInThrowModeOnAnyOtherKind) {
  const ItemRef Inputs[] = {boolean(false), num(1),     str(""),
                            arrayOf({}),    dictOf({}), nullptr};
  const ParseCall Calls[] = {&Parser::parseBool, &Parser::parseDouble,
                             &Parser::parseString, &Parser::parseArray,
                             &Parser::parseDictionary};
  for (int C = 0; C < 5; ++C)
    for (int I = 0; I < 6; ++I)
      expectOutcome(Inputs[I], Calls[C],
                    C == I ? Outcome::True : Outcome::Throws,
                    "call " + std::to_string(C) + " on " + std::to_string(I));
}

TEST(Parser, NumericArrayReturnsFalseForBadElementsButThrowsForBadShape) {
  const auto Any = [](Parser &P) { return P.parseNumericArray(); };
  const auto Three = [](Parser &P) { return P.parseNumericArray(3); };
  const std::tuple<const char *, ItemRef, ParseCall, Outcome> Cases[] = {
      {"numbers", arrayOf({num(1), num(2)}), Any, Outcome::True},
      {"string element", arrayOf({num(1), str("x")}), Any, Outcome::False},
      {"not an array", num(1), Any, Outcome::Throws},
      {"three numbers", arrayOf({num(1), num(2), num(3)}), Three,
       Outcome::True},
      {"bool element", arrayOf({num(1), num(2), boolean(true)}), Three,
       Outcome::False},
      // The size is tested before the elements.
      {"two strings for three", arrayOf({str("a"), str("b")}), Three,
       Outcome::Throws},
  };
  for (const auto &[Name, Input, Parse, Expected] : Cases)
    expectOutcome(Input, Parse, Expected, Name);
}
