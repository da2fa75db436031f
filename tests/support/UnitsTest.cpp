#include "support/Units.h"

#include <gtest/gtest.h>

namespace Units = nySupport::Units;
using Units::Length;

namespace {
Length mm(double V) { return Length(V, Units::Millimetre); }
} // namespace

// The same unit copies the value: 0.7 * m / m is not 0.7 for the point.
TEST(Units, ConvertsThroughMetres) {
  EXPECT_EQ(Length(mm(25.4), Units::Inch).value, 1);
  EXPECT_EQ(Length(Length(72, Units::Point), Units::Inch).value, 1);
  EXPECT_EQ(Length(Length(1, Units::Mile), Units::Metre).value, 1609.344);
  EXPECT_DOUBLE_EQ(Length(Length(3, Units::Foot), Units::Yard).value, 1);
  const Length L(Length(2, Units::Kilometre), Units::Centimetre);
  EXPECT_EQ(L.unit, Units::Centimetre);
  EXPECT_EQ(L.value, 200000);
  EXPECT_EQ(Length(Length(0.7, Units::Point), Units::Point).value, 0.7);
}

TEST(Units, RelativeTestIsStrict) {
  EXPECT_TRUE(Units::equivalent(mm(0), Length(0, Units::Inch), 0));
  EXPECT_FALSE(Units::equivalent(Length(1, Units::Metre), mm(1000), 0));
  EXPECT_TRUE(Units::equivalent(Length(1, Units::Metre), mm(1000), 1e-12));
  // |4 - 3| / 4 is exactly 0.25.
  EXPECT_FALSE(Units::equivalent(mm(4), mm(3), 0.25));
  EXPECT_TRUE(Units::equivalent(mm(4), mm(3), 0.2500001));
  EXPECT_FALSE(Units::equivalent(mm(0), mm(1e-9), 0.5));
}

TEST(Units, AbsoluteTestIsInclusiveInMillimetres) {
  const Length Metre(1, Units::Metre);
  EXPECT_TRUE(Units::equivalent(Metre, mm(1001), mm(1)));
  EXPECT_FALSE(Units::equivalent(Metre, mm(1001), mm(0.999)));
  EXPECT_TRUE(Units::equivalent(Length(0, Units::Metre), mm(10),
                                Length(1, Units::Centimetre)));
  EXPECT_TRUE(Units::equivalent(Length(1, Units::Inch), mm(25.4),
                                Length(1e-6, Units::Metre)));
}
