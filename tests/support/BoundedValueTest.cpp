#include "support/BoundedValue.h"

#include <gtest/gtest.h>

using nySupport::BoundedDouble;

// The default range is the empty one from 1 to 0, and nothing is clamped.
TEST(BoundedDouble, DefaultsToOneToZeroAndMeasuresFromTheMinimum) {
  const BoundedDouble Default;
  EXPECT_EQ(Default.value(), 0);
  EXPECT_EQ(Default.range(), qoLinear::Range1d(1, 0));
  EXPECT_EQ(Default.fractionalValue(), 1); // (0 - 1) / (0 - 1)
  EXPECT_EQ(BoundedDouble(0.5).range(), qoLinear::Range1d(1, 0));

  BoundedDouble B(0.25, 0, 0.5);
  EXPECT_EQ(B.fractionalValue(), 0.5);
  EXPECT_EQ(B.fractionalValue(0.5), 1);
  B.setValue(2);
  EXPECT_EQ(B.fractionalValue(), 4);
  B.setRange(qoLinear::Range1d(-1, 3));
  EXPECT_EQ(B.fractionalValue(), 0.75);
  EXPECT_EQ(BoundedDouble(7, qoLinear::Range1d(6, 8)).fractionalValue(), 0.5);
}
