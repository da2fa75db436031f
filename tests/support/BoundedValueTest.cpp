#include "support/BoundedValue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using nySupport::BoundedDouble;
using nySupport::BoundedInt;

TEST(BoundedDouble, DefaultsToTheEmptyRangeOneToZero) {
  const BoundedDouble B;
  EXPECT_EQ(B.value(), 0);
  EXPECT_EQ(B.minValue(), 1);
  EXPECT_EQ(B.maxValue(), 0);
  EXPECT_TRUE(B.range().empty());
  // (0 - 1) / (0 - 1)
  EXPECT_EQ(B.fractionalValue(), 1);

  const BoundedDouble FromValue(0.5);
  EXPECT_EQ(FromValue.minValue(), 1);
  EXPECT_EQ(FromValue.maxValue(), 0);
}

TEST(BoundedDouble, StoresValuesAndRangesAsGiven) {
  BoundedDouble B(0.25, 0, 0.5);
  EXPECT_EQ(B.fractionalValue(), 0.5);
  EXPECT_EQ(B.fractionalValue(0.5), 1);

  B.setValue(2);
  EXPECT_EQ(static_cast<double>(B), 2);
  EXPECT_EQ(B.fractionalValue(), 4);

  B.setRange(5, -5);
  EXPECT_EQ(B.range(), qoLinear::Range1d(5, -5));
  B.setRange(qoLinear::Range1d(-1, 3));
  EXPECT_EQ(B.minValue(), -1);
  EXPECT_EQ(B.maxValue(), 3);

  const BoundedDouble FromRange(7, qoLinear::Range1d(6, 8));
  EXPECT_EQ(FromRange.range(), qoLinear::Range1d(6, 8));
  EXPECT_EQ(FromRange.fractionalValue(), 0.5);
}

TEST(BoundedDouble, ZeroWidthRangeDividesByZero) {
  const BoundedDouble B(2, 1, 1);
  EXPECT_EQ(B.fractionalValue(), std::numeric_limits<double>::infinity());
  EXPECT_TRUE(std::isnan(B.fractionalValue(1)));
}

TEST(BoundedInt, DefaultsToTheEmptyRangeAndStoresAsGiven) {
  BoundedInt B;
  EXPECT_EQ(B.value(), 0);
  EXPECT_EQ(B.minValue(), 1);
  EXPECT_EQ(B.maxValue(), 0);
  EXPECT_EQ(BoundedInt(4).minValue(), 1);

  B.setMinMax(0, 10);
  B.setValue(12);
  EXPECT_EQ(static_cast<int>(B), 12);
  EXPECT_EQ(B.minValue(), 0);
  EXPECT_EQ(B.maxValue(), 10);
}
