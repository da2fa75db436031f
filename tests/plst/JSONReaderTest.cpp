#include "plst/JSONReader.h"

#include "tests/plst/ItemBuilders.h"

#include "plst/PrettyPrinter.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

using namespace nyPLST;
using namespace plsttest;

namespace {

ItemRef parse(std::string_view Text) {
  ItemRef Out;
  EXPECT_TRUE(convertFromJSON(Out, Text.data(), Text.size())) << Text;
  return Out;
}

bool fails(std::string_view Text) {
  ItemRef Out = num(42);
  const ItemRef Before = Out;
  const bool Failed = !convertFromJSON(Out, Text.data(), Text.size());
  EXPECT_EQ(Out, Before) << "result changed by a failed parse of " << Text;
  return Failed;
}

} // namespace

TEST(JSONReader, BuildsTheDocumentedTree) {
  const std::pair<const char *, ItemRef> Cases[] = {
      {R"({"s": "x", "a": [true, false, [], {}]})",
       dictOf({{"s", str("x")},
               {"a", arrayOf({boolean(true), boolean(false), arrayOf({}),
                              dictOf({})})}})},
      {"[-0, -0.0, -2.5e1, 9223372036854775807, 4.9e-324]",
       arrayOf({num(0.0), num(-0.0), num(-25), num(9223372036854775807.0),
                num(4.9e-324)})},
      {"null", nullptr},
      {"[1, null, 2]", arrayOf({num(1), num(2)})},
      // A dropped null does not undo the earlier value.
      {R"({"n": null, "a": 1, "b": 0, "a": 2, "b": null})",
       dictOf({{"a", num(2)}, {"b", num(0)}})},
      {R"({"a\u0000b": 1, "a\u0000c": 2, "a": 3})",
       dictOf({{qoString::CString("a\0b", 3), num(1)},
               {qoString::CString("a\0c", 3), num(2)},
               {"a", num(3)}})},
      {"/* c */ true // line\n", boolean(true)},
      {"\f\vtrue/* unterminated", boolean(true)},
  };
  for (const auto &[Text, Expected] : Cases) {
    ItemRef Out = num(42);
    ASSERT_TRUE(convertFromJSON(Out, Text, std::strlen(Text))) << Text;
    EXPECT_TRUE(sameTree(Out.get(), Expected.get())) << Text;
  }
}

// Members are sorted when their object closes, large objects another way
// than small ones, and escaped keys are kept apart from the text.
TEST(JSONReader, ManyMembersInAnyOrderKeepLastValue) {
  const qoString::CString Last("1\xC3\xA9");
  for (const int Count : {5, 200}) {
    std::string Text = "{"; // descending keys, every other one escaped
    for (int I = Count; I > 0; --I)
      Text += "\"" + std::to_string(I) + (I % 2 ? "\\u00e9" : "\xC3\xA9") +
              "\": " + std::to_string(I) + ", ";
    Text += "\"" + Last.str() + "\": 0, \"1\\u00e9\": -1}";
    const auto D = asDictionary(parse(Text));
    ASSERT_TRUE(D) << Text;
    EXPECT_EQ(D->size(), Count);
    EXPECT_EQ(asDouble(D->find(Last))->value(), -1);
  }
}

TEST(JSONReader, MalformedTextFailsWithoutTouchingOut) {
  // Incomplete or broken; more than one value; numbers out of range; bytes
  // that are not JSON text.
  const std::vector<std::string> Groups[] = {
      {"", "   ", "[1,", "tru", "{\"a\"}", "{\"a\": 1,}",
       "[1, {\"a\": [2, {\"b\": ]}]"},
      {"1 2", "[1] [2]", std::string("[1]\0", 4)},
      {"9223372036854775808", "-9223372036854775808", "[1e400]", "00", "[NaN]"},
      {"\xEF\xBB\xBF[1]", "[\"\xFF\"]"}};
  for (const auto &Group : Groups)
    for (const auto &Text : Group)
      EXPECT_TRUE(fails(Text)) << Text;
  ItemRef Out;
  EXPECT_FALSE(convertFromJSON(Out, nullptr, 0));
  EXPECT_FALSE(convertFromJSON(Out, qoString::CString("[1]\0", 4)));
}

// yajl's own tree release overflows the stack on such input: parsing,
// copying, comparing, printing and releasing must all work without recursion.
TEST(JSONReader, MillionLevelsParseCloneCompareAndPrint) {
  const int Depth = 1000000;
  const std::string Arrays = std::string(Depth, '[') + std::string(Depth, ']');
  // Fewer levels of objects, which cost far more each.
  std::string Objects;
  for (int I = 0; I < 300000; ++I)
    Objects += "{\"k\":";
  const std::string Closed = Objects + "{}" + std::string(300000, '}');
  for (const std::string &Text : {Arrays, Closed}) {
    const auto I = parse(Text);
    ASSERT_TRUE(I);
    const auto Copy = I->clone();
    EXPECT_TRUE(I->congruent(*Copy));
    // Dictionaries indent every level: only the arrays print in linear size.
    if (I->type() == ArrayType) {
      EXPECT_TRUE(std::string(asJSON(I).view()) == Text + "\n");
    }
  }
  // Unclosed: the partial chain is released on failure.
  EXPECT_TRUE(fails(std::string(Depth, '[')));
  EXPECT_TRUE(fails(Objects));
}
