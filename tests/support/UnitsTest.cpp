#include "support/Units.h"

#include <gtest/gtest.h>

#include <cmath>

namespace Units = nySupport::Units;
using Units::Length;

TEST(Units, ConversionTableHoldsTheExactConstants) {
  const struct {
    Units::LengthUnits Unit;
    int Value;
    double Metres;
  } Table[] = {{Units::Millimetre, 0, 0.001},
               {Units::Centimetre, 1, 0.01},
               {Units::Metre, 2, 1.0},
               {Units::Kilometre, 3, 1000.0},
               {Units::Inch, 4, 0.0254},
               {Units::Foot, 5, 0.3048},
               {Units::Yard, 6, 0.9144},
               {Units::Mile, 7, 1609.344},
               {Units::Point, 8, 0.00035277777777777776}};
  static_assert(sizeof(Units::LengthUnits) == 4);
  for (const auto &Row : Table) {
    EXPECT_EQ(static_cast<int>(Row.Unit), Row.Value);
    EXPECT_EQ(Units::impl::s_conversions[Row.Unit], Row.Metres) << Row.Value;
  }
}

TEST(Units, ConvertsThroughMetres) {
  EXPECT_EQ(Length(Length(25.4, Units::Millimetre), Units::Inch).value, 1);
  EXPECT_EQ(Length(Length(72, Units::Point), Units::Inch).value, 1);
  EXPECT_EQ(Length(Length(1, Units::Mile), Units::Metre).value, 1609.344);
  EXPECT_DOUBLE_EQ(Length(Length(3, Units::Foot), Units::Yard).value, 1);

  const Length L(Length(2, Units::Kilometre), Units::Metre);
  EXPECT_EQ(L.unit, Units::Metre);
  EXPECT_EQ(L.value, 2000);
}

// 0.7 * m / m is not 0.7 for the point's factor: the same unit must copy.
TEST(Units, SameUnitCopiesTheValueExactly) {
  EXPECT_EQ(Length(Length(0.7, Units::Point), Units::Point).value, 0.7);
  EXPECT_TRUE(Units::equivalent(Length(0.7, Units::Point),
                                Length(0.7, Units::Point), 1e-300));
}

TEST(Units, RelativeTestIsStrict) {
  EXPECT_TRUE(Units::equivalent(Length(0, Units::Millimetre),
                                Length(0, Units::Inch), 0));
  EXPECT_FALSE(Units::equivalent(Length(1, Units::Metre),
                                 Length(1000, Units::Millimetre), 0));
  EXPECT_TRUE(Units::equivalent(Length(1, Units::Metre),
                                Length(1000, Units::Millimetre), 1e-12));

  // |4 - 3| / 4 is exactly 0.25.
  EXPECT_FALSE(Units::equivalent(Length(4, Units::Millimetre),
                                 Length(3, Units::Millimetre), 0.25));
  EXPECT_TRUE(Units::equivalent(Length(4, Units::Millimetre),
                                Length(3, Units::Millimetre), 0.2500001));
  EXPECT_FALSE(Units::equivalent(Length(0, Units::Millimetre),
                                 Length(1e-9, Units::Millimetre), 0.5));
}

TEST(Units, AbsoluteTestIsInclusiveInMillimetres) {
  EXPECT_TRUE(Units::equivalent(Length(1, Units::Metre),
                                Length(1001, Units::Millimetre),
                                Length(1, Units::Millimetre)));
  EXPECT_FALSE(Units::equivalent(Length(1, Units::Metre),
                                 Length(1001, Units::Millimetre),
                                 Length(0.999, Units::Millimetre)));
  EXPECT_TRUE(Units::equivalent(Length(0, Units::Metre),
                                Length(10, Units::Millimetre),
                                Length(1, Units::Centimetre)));
  EXPECT_TRUE(Units::equivalent(Length(1, Units::Inch),
                                Length(25.4, Units::Millimetre),
                                Length(1e-6, Units::Metre)));
}
