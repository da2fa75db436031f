#include "plst/internal/NumberFormat.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>

using namespace nyPLST::internal;

namespace {

// The reference texts: printf in the "C" locale the tests run in, plus the
// generator's ".0" rule for "%.20g".
std::string printfShort(double V) {
  char Text[64];
  std::snprintf(Text, sizeof Text, "%g", V);
  return Text;
}

std::string printfExact(double V) {
  char Text[64];
  std::snprintf(Text, sizeof Text, "%.20g", V);
  std::string Result = Text;
  if (std::strspn(Text, "0123456789-") == Result.size())
    Result += ".0";
  return Result;
}

std::string shortText(double V) {
  char Text[MaxDoubleText];
  return std::string(Text, formatShortDouble(V, Text));
}

std::string exactText(double V) {
  char Text[MaxDoubleText];
  return std::string(Text, formatExactDouble(V, Text));
}

std::vector<double> specialValues() {
  std::vector<double> Values = {0.0,
                                -0.0,
                                DBL_MAX,
                                -DBL_MAX,
                                DBL_MIN,
                                -DBL_MIN,
                                5e-324,
                                -5e-324,
                                DBL_EPSILON,
                                0.1,
                                1.0 / 3,
                                123456789012345678.0,
                                0.5,
                                1e15,
                                1e16,
                                1e17,
                                9007199254740993.0};
  for (int E = -325; E <= 309; ++E) {
    Values.push_back(std::pow(10.0, E));
    Values.push_back(-std::pow(10.0, E));
    Values.push_back(std::nextafter(std::pow(10.0, E), 0.0));
    Values.push_back(std::nextafter(std::pow(10.0, E), HUGE_VAL));
  }
  for (int E = -1074; E <= 1023; ++E)
    Values.push_back(std::ldexp(1.0, E));
  for (std::int64_t I = -1000; I <= 1000; ++I)
    Values.push_back(static_cast<double>(I));
  return Values;
}

// Half finite doubles spread over the whole bit space (subnormals included),
// half everyday magnitudes, where the fixed notation and rounding carries live.
std::vector<double> randomValues(std::size_t Count) {
  std::mt19937_64 Engine(20240611);
  std::uniform_real_distribution<double> Unit(-1.0, 1.0);
  std::uniform_int_distribution<int> Exponent(-12, 12);
  std::vector<double> Values;
  Values.reserve(Count);
  while (Values.size() < Count) {
    const std::uint64_t Bits = Engine();
    double V;
    std::memcpy(&V, &Bits, sizeof V);
    if (Values.size() % 2)
      V = Unit(Engine) * std::pow(10.0, Exponent(Engine));
    if (std::isfinite(V))
      Values.push_back(V);
  }
  return Values;
}

} // namespace

TEST(NumberFormat, ShortFormIsPrintfG) {
  for (const double V : specialValues())
    ASSERT_EQ(shortText(V), printfShort(V)) << V;
  for (const double V : randomValues(100000))
    ASSERT_EQ(shortText(V), printfShort(V));
  for (const double V : {HUGE_VAL, -HUGE_VAL, std::nan(""), -std::nan("")})
    EXPECT_EQ(shortText(V), printfShort(V));
}

TEST(NumberFormat, ExactFormIsGeneratorDouble) {
  for (const double V : specialValues())
    if (std::isfinite(V)) {
      ASSERT_EQ(exactText(V), printfExact(V)) << V;
    }
  for (const double V : randomValues(300000))
    ASSERT_EQ(exactText(V), printfExact(V));
}
