#include "plst/PrettyPrinter.h"

#include "tests/common/TestSupport.h"
#include "tests/plst/ItemBuilders.h"

#include "base/os/MemoryIOStream.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

using namespace nyPLST;
using namespace plsttest;

namespace {

std::string print(const qo::Reference<Item> &I) {
  return std::string(asJSON(I).view());
}

} // namespace

TEST(PrettyPrinter, DictionaryWithNestedContainers) {
  const auto I = dictOf({{"a", num(1)},
                         {"b", arrayOf({num(1), num(2)})},
                         {"c", dictOf({{"d", boolean(true)}})}});
  EXPECT_EQ(print(I), "{\n"
                      "    \"a\": 1,\n"
                      "    \"b\": [1, 2],\n"
                      "    \"c\": {\n"
                      "        \"d\": true\n"
                      "    }\n"
                      "}\n");
}

TEST(PrettyPrinter, SeparatorBreaksLineAfterClosedContainer) {
  EXPECT_EQ(print(arrayOf({arrayOf({num(1), num(2)}), arrayOf({num(3)})})),
            "[[1, 2],\n[3]]\n");
  EXPECT_EQ(print(arrayOf({dictOf({{"a", num(1)}}), dictOf({{"b", num(2)}})})),
            "[{\n"
            "    \"a\": 1\n"
            "},\n"
            "{\n"
            "    \"b\": 2\n"
            "}]\n");
  // A scalar after a closed container inside an array still breaks the line.
  EXPECT_EQ(print(arrayOf({arrayOf({}), num(1), num(2)})), "[[],\n1, 2]\n");
}

TEST(PrettyPrinter, EmptyContainersAndNull) {
  EXPECT_EQ(print(qo::make<Array>()), "[]\n");
  EXPECT_EQ(print(qo::make<Dictionary>()), "{\n    \n}\n");
  EXPECT_EQ(print(nullptr), "{}");
  // Null elements print as nothing, their separators stay.
  auto A = qo::make<Array>();
  A->insert(num(1));
  A->insert(nullptr);
  A->insert(num(2));
  EXPECT_EQ(print(A), "[1, , 2]\n");
}

TEST(PrettyPrinter, Scalars) {
  struct Case {
    qo::Reference<Item> Value;
    const char *Expected;
  };
  const double Inf = std::numeric_limits<double>::infinity();
  const Case Cases[] = {
      {boolean(true), "true\n"},
      {boolean(false), "false\n"},
      {num(0.1), "0.1\n"},
      {num(1234567), "1.23457e+06\n"},
      {num(-0.0), "-0\n"},
      {num(1e-5), "1e-05\n"},
      {num(123456), "123456\n"},
      {num(Inf), "inf\n"},
      {num(-Inf), "-inf\n"},
      {num(std::nan("")), "nan\n"},
      {num(-std::nan("")), "-nan\n"},
      {num(5e-324), "4.94066e-324\n"},
  };
  for (const auto &C : Cases)
    EXPECT_EQ(print(C.Value), C.Expected);
}

TEST(PrettyPrinter, StringsAreRawAndEndAtZeroByte) {
  EXPECT_EQ(print(str("say \"hi\"\\\n")), "\"say \"hi\"\\\n\"\n");
  EXPECT_EQ(print(str(qoString::CString("ab\0cd", 5))), "\"ab\"\n");
  EXPECT_EQ(print(dictOf({{qoString::CString("k\0x", 3), str("\xC3\xA9")}})),
            "{\n    \"k\": \"\xC3\xA9\"\n}\n");
}

TEST(PrettyPrinter, MillionDeepArrayDoesNotRecurse) {
  const int Depth = 1000000;
  const std::string Text = print(deepArray(Depth));
  ASSERT_EQ(Text.size(), 2u * Depth + 1);
  EXPECT_EQ(Text.find(']'), static_cast<std::size_t>(Depth));
  EXPECT_EQ(Text.back(), '\n');
}

TEST(PrettyPrinter, PrintJSONLeavesStreamOpen) {
  qoOS::MemoryIOStream Stream(16);
  EXPECT_TRUE(printJSON(Stream, arrayOf({str("a long enough string")})));
  EXPECT_TRUE(printJSON(Stream, nullptr));
  EXPECT_EQ(Stream.contents(), "[\"a long enough string\"]\n\n");
  EXPECT_GT(Stream.blockCount(), 1u);
}

TEST(PrettyPrinter, OutputJSONWritesFile) {
  orbotest::TempDir Dir;
  const auto Path = Dir / "out.json";
  const auto I = dictOf({{"b", num(2)}, {"a", str("x")}});
  ASSERT_TRUE(outputJSON(Path.string(), I));
  EXPECT_EQ(orbotest::readFile(Path), print(I));
  // Truncates what was there.
  ASSERT_TRUE(outputJSON(Path.string(), boolean(false)));
  EXPECT_EQ(orbotest::readFile(Path), "false\n");
}

TEST(PrettyPrinter, OutputJSONFailsCleanly) {
  orbotest::TempDir Dir;
  EXPECT_FALSE(outputJSON((Dir / "missing" / "out.json").string(), num(1)));
  // A full disk shows up on write or on close.
  if (std::filesystem::exists("/dev/full")) {
    EXPECT_FALSE(outputJSON("/dev/full", num(1)));
  }
}
