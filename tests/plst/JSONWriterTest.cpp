#include "plst/JSONWriter.h"

#include "tests/plst/ItemBuilders.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

using namespace nyPLST;
using namespace plsttest;

namespace {

std::string write(const qo::Reference<Item> &I) {
  qoString::CString Out;
  EXPECT_TRUE(convertToJSON(Out, I));
  return std::string(Out.view());
}

// What writing I throws, with the text appended before the throw.
std::pair<std::string, std::string> failure(const qo::Reference<Item> &I) {
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

TEST(JSONWriter, BeautifiedLayoutInKeyOrder) {
  const auto I =
      dictOf({{"b", arrayOf({num(1), boolean(false)})}, {"a", dictOf({})}});
  EXPECT_EQ(write(I), "{\n"
                      "    \"a\": {\n\n"
                      "    },\n"
                      "    \"b\": [\n"
                      "        1.0,\n"
                      "        false\n"
                      "    ]\n"
                      "}\n");
}

TEST(JSONWriter, AppendsToOut) {
  qoString::CString Out("x");
  convertToJSON(Out, boolean(true));
  EXPECT_EQ(Out, "xtrue\n");
}

TEST(JSONWriter, NullsAreWrittenAsNull) {
  EXPECT_EQ(write(nullptr), "null\n");
  auto A = qo::make<Array>();
  A->insert(nullptr);
  EXPECT_EQ(write(A), "[\n    null\n]\n");
}

TEST(JSONWriter, DoublesHaveTwentyDigitsAndReadAsDoubles) {
  struct Case {
    double Value;
    const char *Expected;
  };
  const Case Cases[] = {
      {0.0, "0.0\n"},
      {-0.0, "-0.0\n"},
      {3, "3.0\n"},
      {-12, "-12.0\n"},
      {0.1, "0.10000000000000000555\n"},
      {1.5, "1.5\n"},
      {1e19, "10000000000000000000.0\n"},
      {1e20, "1e+20\n"},
      {1e-7, "9.9999999999999995475e-08\n"},
  };
  for (const auto &C : Cases)
    EXPECT_EQ(write(num(C.Value)), C.Expected) << C.Value;
}

TEST(JSONWriter, StringsAreEscaped) {
  EXPECT_EQ(write(str(qoString::CString("q\"b\\n\n\x01\0/", 9))),
            "\"q\\\"b\\\\n\\n\\u0001\\u0000/\"\n");
}

TEST(JSONWriter, NonFiniteNumbersThrowKeepingText) {
  for (const double Bad : {std::numeric_limits<double>::quiet_NaN(),
                           std::numeric_limits<double>::infinity(),
                           -std::numeric_limits<double>::infinity()}) {
    const auto [Message, Text] = failure(arrayOf({num(1), num(Bad)}));
    EXPECT_NE(Message.find("yajl_gen_invalid_number"), std::string::npos);
    EXPECT_EQ(Text, "prefix|[\n    1.0");
  }
}

TEST(JSONWriter, DepthLimitThrows) {
  EXPECT_NO_THROW(write(deepArray(127)));
  const auto [Message, Text] = failure(deepArray(128));
  EXPECT_NE(Message.find("yajl_max_depth_exceeded"), std::string::npos);
  EXPECT_EQ(Message.rfind("json generation failed: ", 0), 0u);
  EXPECT_EQ(Text.rfind("prefix|[", 0), 0u);
  // A deep tree costs no more than the refused level.
  EXPECT_FALSE(failure(deepArray(1000000)).first.empty());
}
