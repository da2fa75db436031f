#include "plst/JSONWriter.h"

#include "tests/plst/ItemBuilders.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

using namespace nyPLST;
using namespace plsttest;

namespace {

// What writing I throws, with the text appended before the throw.
std::pair<std::string, std::string> failure(const ItemRef &I) {
  qoString::CString Out("prefix|");
  try {
    convertToJSON(Out, I);
  } catch (const JSONWriteError &E) {
    return {E.what(), std::string(Out.view())};
  }
  ADD_FAILURE() << "no exception";
  return {};
}

} // namespace

TEST(JSONWriter, WritesBeautifiedEscapedTextWithTwentyDigitNumbers) {
  const std::pair<ItemRef, const char *> Cases[] = {
      {dictOf({{"b", arrayOf({num(1), boolean(false), nullptr, num(-0.0),
                              num(0.1), num(1e20)})},
               {"a", dictOf({})}}),
       "{\n    \"a\": {\n\n    },\n    \"b\": [\n        1.0,\n        false,\n"
       "        null,\n        -0.0,\n        0.10000000000000000555,\n"
       "        1e+20\n    ]\n}\n"},
      {nullptr, "null\n"},
      {str(qoString::CString("q\"b\\n\n\x01\0/", 9)),
       "\"q\\\"b\\\\n\\n\\u0001\\u0000/\"\n"},
  };
  for (const auto &[Value, Expected] : Cases) {
    qoString::CString Out("x");
    EXPECT_TRUE(convertToJSON(Out, Value));
    EXPECT_EQ(std::string(Out.view()), std::string("x") + Expected);
  }
}

// The generator refuses non-finite numbers and the 128th level; whatever it
// wrote before stays in Out.
TEST(JSONWriter, RefusalThrowsAndKeepsTheTextWrittenSoFar) {
  const double Inf = std::numeric_limits<double>::infinity();
  for (const double Bad : {std::nan(""), Inf, -Inf}) {
    const auto [Message, Text] = failure(arrayOf({num(1), num(Bad)}));
    EXPECT_NE(Message.find("yajl_gen_invalid_number"), std::string::npos);
    EXPECT_EQ(Text, "prefix|[\n    1.0");
  }
  qoString::CString Out;
  EXPECT_NO_THROW(convertToJSON(Out, deepArray(127)));
  const auto [Message, Text] = failure(deepArray(128));
  EXPECT_EQ(Message.rfind("json generation failed: ", 0), 0u);
  EXPECT_NE(Message.find("yajl_max_depth_exceeded"), std::string::npos);
  EXPECT_EQ(Text.rfind("prefix|[", 0), 0u);
  // A deep tree costs no more than the refused level.
  EXPECT_FALSE(failure(deepArray(1000000)).first.empty());
}
