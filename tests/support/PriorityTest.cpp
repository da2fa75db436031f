#include "support/Priority.h"

#include <gtest/gtest.h>

#include <climits>

using nySupport::Priority;

// Extreme values catch a comparison written as a subtraction, negative ones an
// unsigned comparison. The default priority is (19, 3).
TEST(Priority, ComparesUnitThenModuleAsSignedNumbers) {
  const struct {
    Priority A;
    Priority B;
    int Expected;
  } Cases[] = {
      {Priority(0, 0), Priority(0, 0), 0},
      {Priority(-1, 0), Priority(0, 0), -1},
      {Priority(0, -5), Priority(0, 0), -1},
      {Priority(0, 99), Priority(19, 3), -1},
      {Priority(19, 3), Priority(), 0},
      {Priority(1, -100), Priority(0, 100), 1},
      {Priority(INT_MIN, 0), Priority(INT_MAX, 0), -1},
      {Priority(0, INT_MAX), Priority(0, INT_MIN), 1},
  };
  for (const auto &C : Cases) {
    SCOPED_TRACE(testing::Message()
                 << C.A.unit() << "," << C.A.module() << " vs " << C.B.unit()
                 << "," << C.B.module());
    EXPECT_EQ(nySupport::compare(C.A, C.B), C.Expected);
    EXPECT_EQ(C.A < C.B, C.Expected < 0);
  }
}
