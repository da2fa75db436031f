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

// The reference: printf in the "C" locale the tests run in.
std::string printed(const char *Format, double V) {
  char Text[64];
  std::snprintf(Text, sizeof Text, Format, V);
  return Text;
}

// Edges of the range, powers of ten and their neighbours (where rounding
// carries), every power of two, small integers, non-finite values, and
// random doubles: half spread over the whole bit space (subnormals
// included), half everyday magnitudes, where the fixed notation and rounding
// carries live.
std::vector<double> testValues() {
  std::vector<double> Values = {DBL_MAX, 0.1, 1.0 / 3, 123456789012345678.0};
  for (int E = -324; E <= 308; ++E) {
    const double Ten = std::pow(10.0, E);
    for (const double V :
         {Ten, std::nextafter(Ten, 0.0), std::nextafter(Ten, HUGE_VAL)})
      Values.push_back(V);
  }
  for (int E = -1074; E <= 1023; ++E)
    Values.push_back(std::ldexp(1.0, E));
  for (int I = -1000; I <= 1000; ++I)
    Values.push_back(I);
  for (std::size_t I = 0, Size = Values.size(); I < Size; ++I)
    Values.push_back(-Values[I]);
  for (const double V : {HUGE_VAL, -HUGE_VAL, std::nan(""), -std::nan("")})
    Values.push_back(V);

  std::mt19937_64 Engine(20240611);
  std::uniform_real_distribution<double> Unit(-1.0, 1.0);
  std::uniform_int_distribution<int> Exponent(-12, 12);
  for (int Count = 0; Count < 300000;) {
    const std::uint64_t Bits = Engine();
    double V;
    std::memcpy(&V, &Bits, sizeof V);
    if (Count % 2)
      V = Unit(Engine) * std::pow(10.0, Exponent(Engine));
    if (std::isfinite(V)) {
      Values.push_back(V);
      ++Count;
    }
  }
  return Values;
}

} // namespace

// The exact form is "%.20g" plus the generator's ".0" on integral texts.
TEST(NumberFormat, ShortAndExactFormsMatchPrintf) {
  for (const double V : testValues()) {
    char Text[MaxDoubleText];
    ASSERT_EQ(std::string(Text, formatShortDouble(V, Text)), printed("%g", V))
        << V;
    if (!std::isfinite(V))
      continue;
    std::string Exact = printed("%.20g", V);
    if (Exact.find_first_not_of("0123456789-") == std::string::npos)
      Exact += ".0";
    ASSERT_EQ(std::string(Text, formatExactDouble(V, Text)), Exact) << V;
  }
}
