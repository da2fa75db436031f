#include "plst/JSONReader.h"

#include "tests/plst/ItemBuilders.h"

#include <gtest/gtest.h>

#include <string>

using namespace nyPLST;
using namespace plsttest;

namespace {

// The parsed tree, or a failure with the parser's message.
::testing::AssertionResult parses(std::string_view Text,
                                  qo::Reference<Item> &Out) {
  JSONParseError Error;
  if (convertFromJSON(Out, Text.data(), Text.size(), &Error))
    return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << Error.message.c_str() << " at " << Error.offset;
}

qo::Reference<Item> parse(std::string_view Text) {
  qo::Reference<Item> Out;
  EXPECT_TRUE(parses(Text, Out)) << Text;
  return Out;
}

bool fails(std::string_view Text) {
  qo::Reference<Item> Out = num(42);
  const qo::Reference<Item> Before = Out;
  const bool Failed = !convertFromJSON(Out, Text.data(), Text.size());
  EXPECT_EQ(Out, Before) << "result changed by a failed parse of " << Text;
  return Failed;
}

} // namespace

TEST(JSONReader, BuildsItemsOfEachKind) {
  const auto I = parse(R"({"s": "x", "n": -2.5e1, "i": 3, "t": true,
                           "f": false, "a": [1, [], {}], "d": {"k": "v"}})");
  const auto Expected = dictOf(
      {{"s", str("x")},
       {"n", num(-25)},
       {"i", num(3)},
       {"t", boolean(true)},
       {"f", boolean(false)},
       {"a", arrayOf({num(1), qo::make<Array>(), qo::make<Dictionary>()})},
       {"d", dictOf({{"k", str("v")}})}});
  EXPECT_TRUE(sameTree(I.get(), Expected.get()));
}

TEST(JSONReader, NullProducesNoItem) {
  EXPECT_TRUE(
      sameTree(parse("[1, null, 2]").get(), arrayOf({num(1), num(2)}).get()));
  EXPECT_TRUE(sameTree(parse(R"({"a": null, "b": 1})").get(),
                       dictOf({{"b", num(1)}}).get()));
  qo::Reference<Item> Out = num(1);
  ASSERT_TRUE(parses("null", Out));
  EXPECT_FALSE(Out);
}

TEST(JSONReader, LastKeyWins) {
  const auto I = parse(R"({"a": 1, "b": 0, "a": 2})");
  EXPECT_TRUE(sameTree(I.get(), dictOf({{"a", num(2)}, {"b", num(0)}}).get()));
  // A dropped null does not undo the earlier value.
  EXPECT_TRUE(sameTree(parse(R"({"a": 1, "a": null})").get(),
                       dictOf({{"a", num(1)}}).get()));
}

// Members are sorted when their object closes; large objects take another
// path than small ones, and escaped keys live elsewhere than plain ones.
TEST(JSONReader, ManyMembersInAnyOrderKeepLastValue) {
  for (const int Count : {3, 31, 33, 200}) {
    // Keys "k<I mod 7>\xC3\xA9<I>" in descending I, every other one escaped.
    std::string Text = "{";
    for (int I = Count; I > 0; --I)
      Text += "\"k" + std::to_string(I % 7) + (I % 2 ? "\\u00e9" : "\xC3\xA9") +
              std::to_string(I) + "\": " + std::to_string(I) + ", ";
    Text += "\"k1\xC3\xA9"
            "1\": 0, \"k1\\u00e91\": -1, \"z\": {\"n\": null}}";
    const auto D = asDictionary(parse(Text));
    ASSERT_TRUE(D) << Text;
    EXPECT_EQ(D->size(), Count + 1);
    EXPECT_EQ(asDouble(D->find("k1\xC3\xA9"
                               "1"))
                  ->value(),
              -1);
    EXPECT_EQ(asDouble(D->find("k2\xC3\xA9"
                               "2"))
                  ->value(),
              2);
    EXPECT_TRUE(asDictionary(D->find("z"))->empty());
    const qoString::CString *Previous = nullptr;
    for (const auto &Entry : D->dictionary()) {
      if (Previous) {
        EXPECT_LT(Previous->compare(Entry.first), 0);
      }
      Previous = &Entry.first;
    }
  }
}

TEST(JSONReader, KeysWithZeroBytesStayDistinct) {
  const auto D =
      asDictionary(parse(R"({"a\u0000b": 1, "a\u0000c": 2, "a": 3})"));
  ASSERT_TRUE(D);
  EXPECT_EQ(D->size(), 3);
  EXPECT_EQ(asDouble(D->find(qoString::CString("a\0c", 3)))->value(), 2);
}

TEST(JSONReader, NumbersBecomeDoubles) {
  struct Case {
    const char *Text;
    double Value;
  };
  const Case Cases[] = {{"-0", 0.0},
                        {"-0.0", -0.0},
                        {"9223372036854775807", 9223372036854775807.0},
                        {"0.1", 0.1},
                        {"4.9e-324", 4.9e-324}};
  for (const auto &C : Cases) {
    const auto D = asDouble(parse(C.Text));
    ASSERT_TRUE(D) << C.Text;
    EXPECT_TRUE(sameTree(D.get(), num(C.Value).get())) << C.Text;
  }
}

TEST(JSONReader, CommentsAndOddWhitespaceAreAccepted) {
  for (const char *Text : {"/* c */ true", "// line\ntrue", "true /* x */",
                           "\f\vtrue", "true/* unterminated"})
    EXPECT_TRUE(sameTree(parse(Text).get(), boolean(true).get())) << Text;
}

TEST(JSONReader, MalformedTextFailsWithoutTouchingOut) {
  const std::string Cases[] = {
      "",
      "   ",
      "1 2",
      "[1] [2]",
      "[1,",
      "{\"a\"}",
      "{\"a\": 1,}",
      "9223372036854775808",
      "-9223372036854775808",
      "00",
      "\xEF\xBB\xBF[1]",
      std::string("[1]\0", 4),
      "[\"\xFF\"]",
      "[1, {\"a\": [2, {\"b\": ]}]",
      "tru",
      "[1e400]",
      "[NaN]",
  };
  for (const auto &Text : Cases)
    EXPECT_TRUE(fails(Text)) << Text;
}

// Inputs that crashed unpatched parsers, and surrogate oddities that pass the
// parser's byte-pattern check: all must parse or fail cleanly.
TEST(JSONReader, HostileStringsDoNotCrash) {
  const std::string Cases[] = {
      R"({"e":{"\uD800\\DC00":"a"}})",
      R"(["\uD8D8\\uD"])",
      R"(["\ud800\\u"])",
      R"(["\uDEAA"])",
      "[\"\xC0\xAF\"]",
      "[\"\xF4\x90\x80\x80\"]",
      R"(["\u0000"])",
      R"(["\uD834\uDD1E"])",
  };
  for (const auto &Text : Cases) {
    qo::Reference<Item> Out;
    convertFromJSON(Out, Text.data(), Text.size());
  }
  EXPECT_EQ(asString(asArray(parse(R"(["\uDEAA"])"))->objectAt(0))->value(),
            "\xED\xBA\xAA");
}

TEST(JSONReader, ErrorReportsOffsetAndMessage) {
  struct Case {
    const char *Text;
    unsigned long Offset;
    const char *Message;
  };
  const Case Cases[] = {
      {"[1, x]", 5, "lexical error: invalid char in json text"},
      {"[1] 2", 5, "parse error: trailing garbage"},
      {"[1,", 3, "parse error: premature EOF"},
      {"", 0, "parse error: premature EOF"},
      // The parser rewinds to the start of the offending number.
      {"[9223372036854775808]", 1, "parse error: integer overflow"},
  };
  for (const auto &C : Cases) {
    qo::Reference<Item> Out;
    JSONParseError Error;
    EXPECT_FALSE(convertFromJSON(Out, C.Text, std::strlen(C.Text), &Error));
    EXPECT_EQ(Error.offset, C.Offset) << C.Text;
    EXPECT_EQ(Error.message, C.Message) << C.Text;
  }
}

TEST(JSONReader, StringOverloadUsesWholeLength) {
  qo::Reference<Item> Out;
  EXPECT_FALSE(convertFromJSON(Out, nullptr, 0));
  EXPECT_FALSE(convertFromJSON(Out, qoString::CString("[1]\0", 4)));
  EXPECT_TRUE(convertFromJSON(Out, qoString::CString("[1]")));
  EXPECT_TRUE(sameTree(Out.get(), arrayOf({num(1)}).get()));
}

// yajl's own tree release overflows the stack on such input.
TEST(JSONReader, DeepNestingParsesClonesComparesAndFrees) {
  for (const int Depth : {100000, 1000000}) {
    const std::string Text = std::string(Depth, '[') + std::string(Depth, ']');
    const auto I = parse(Text);
    ASSERT_TRUE(I);
    const auto Copy = I->clone();
    EXPECT_TRUE(I->congruent(*Copy));
    EXPECT_TRUE(Copy->congruent(*I));
    // Unclosed: the partial chain is released on failure.
    EXPECT_TRUE(fails(std::string(Depth, '[')));
    std::string Objects;
    for (int I = 0; I < Depth; ++I)
      Objects += "{\"k\":";
    EXPECT_TRUE(fails(Objects));
  }
}
