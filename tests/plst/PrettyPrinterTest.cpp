#include "plst/PrettyPrinter.h"

#include "tests/common/TestSupport.h"
#include "tests/plst/ItemBuilders.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

using namespace nyPLST;
using namespace plsttest;

TEST(PrettyPrinter, LaysOutItemsForPeople) {
  const double Inf = std::numeric_limits<double>::infinity();
  struct Case {
    const char *Name;
    ItemRef Value;
    std::string Expected;
  };
  const Case Cases[] = {
      {"nested dictionary",
       dictOf({{"a", num(1)},
               {"b", arrayOf({num(1), num(2)})},
               {"c", dictOf({{"d", boolean(true)}})}}),
       "{\n"
       "    \"a\": 1,\n"
       "    \"b\": [1, 2],\n"
       "    \"c\": {\n"
       "        \"d\": true\n"
       "    }\n"
       "}\n"},
      {"arrays in array",
       arrayOf({arrayOf({num(1), num(2)}), arrayOf({num(3)})}),
       "[[1, 2],\n[3]]\n"},
      {"dictionaries in array",
       arrayOf({dictOf({{"a", num(1)}}), dictOf({{"b", num(2)}})}),
       "[{\n"
       "    \"a\": 1\n"
       "},\n"
       "{\n"
       "    \"b\": 2\n"
       "}]\n"},
      {"scalar after container", arrayOf({arrayOf({}), num(1), num(2)}),
       "[[],\n1, 2]\n"},
      {"empty array", arrayOf({}), "[]\n"},
      {"empty dictionary", dictOf({}), "{\n    \n}\n"},
      {"null", nullptr, "{}"},
      {"null elements keep their separators",
       arrayOf({num(1), nullptr, num(2)}), "[1, , 2]\n"},
      {"numbers through %g",
       arrayOf({num(0.1), num(1234567), num(-0.0), num(1e-5), num(123456),
                num(5e-324), num(Inf), num(-Inf), num(std::nan("")),
                num(-std::nan(""))}),
       "[0.1, 1.23457e+06, -0, 1e-05, 123456, 4.94066e-324, inf, -inf, nan, "
       "-nan]\n"},
      {"bools", arrayOf({boolean(true), boolean(false)}), "[true, false]\n"},
      {"raw string", str("say \"hi\"\\\n"), "\"say \"hi\"\\\n\"\n"},
      {"zero byte ends strings and keys",
       dictOf({{qoString::CString("k\0x", 3),
                str(qoString::CString("ab\0cd", 5))}}),
       "{\n    \"k\": \"ab\"\n}\n"},
  };
  for (const auto &C : Cases)
    EXPECT_EQ(std::string(asJSON(C.Value).view()), C.Expected) << C.Name;
}

TEST(PrettyPrinter, OutputJSONReplacesTheFileOrFailsCleanly) {
  orbotest::TempDir Dir;
  const auto Path = Dir / "out.json";
  orbotest::writeFile(Path, "a longer text that must not survive\n");
  const auto I = dictOf({{"b", num(2)}, {"a", str("x")}});
  ASSERT_TRUE(outputJSON(Path.string(), I));
  EXPECT_EQ(orbotest::readFile(Path), std::string(asJSON(I).view()));

  EXPECT_FALSE(outputJSON((Dir / "missing" / "out.json").string(), num(1)));
  // A full disk shows up on write or on close.
  if (std::filesystem::exists("/dev/full")) {
    EXPECT_FALSE(outputJSON("/dev/full", num(1)));
  }
}
