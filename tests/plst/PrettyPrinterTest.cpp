#include "plst/PrettyPrinter.h"

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
      {"scalars through %g, strings raw up to a zero byte, null as nothing",
       arrayOf({num(1234567), num(-0.0), nullptr, num(-Inf), num(std::nan("")),
                boolean(false), str(qoString::CString("\"\\\n\0x", 5))}),
       "[1.23457e+06, -0, , -inf, nan, false, \"\"\\\n\"]\n"},
      {"zero byte ends keys", dictOf({{qoString::CString("k\0x", 3), num(1)}}),
       "{\n    \"k\": 1\n}\n"},
  };
  for (const auto &C : Cases)
    EXPECT_EQ(std::string(asJSON(C.Value).view()), C.Expected) << C.Name;
}
