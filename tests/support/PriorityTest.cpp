#include "support/Priority.h"

#include <gtest/gtest.h>

#include <climits>

using nySupport::Priority;

TEST(Priority, DefaultsToUnitNineteenModuleThree) {
  const Priority P;
  EXPECT_EQ(P.unit(), 19);
  EXPECT_EQ(P.module(), 3);
}

namespace {
struct CompareCase {
  Priority A;
  Priority B;
  int Expected;
};
} // namespace

// Extreme values catch a comparison written as a subtraction, negative ones an
// unsigned comparison.
TEST(Priority, ComparesUnitThenModuleAsSignedNumbers) {
  const CompareCase Cases[] = {
      {Priority(0, 0), Priority(0, 0), 0},
      {Priority(-1, 0), Priority(0, 0), -1},
      {Priority(0, 0), Priority(-1, 0), 1},
      {Priority(0, 5), Priority(0, 0), 1},
      {Priority(0, -5), Priority(0, 0), -1},
      {Priority(0, 99), Priority(19, 3), -1},
      {Priority(19, 3), Priority(), 0},
      {Priority(1, -100), Priority(0, 100), 1},
      {Priority(INT_MIN, 0), Priority(INT_MAX, 0), -1},
      {Priority(INT_MAX, 0), Priority(INT_MIN, 0), 1},
      {Priority(0, INT_MIN), Priority(0, INT_MAX), -1},
      {Priority(0, INT_MAX), Priority(0, INT_MIN), 1},
  };
  for (const CompareCase &C : Cases) {
    SCOPED_TRACE(testing::Message()
                 << "(" << C.A.unit() << ", " << C.A.module() << ") vs ("
                 << C.B.unit() << ", " << C.B.module() << ")");
    EXPECT_EQ(nySupport::compare(C.A, C.B), C.Expected);
    EXPECT_EQ(C.A < C.B, C.Expected < 0);
    EXPECT_EQ(C.A > C.B, C.Expected > 0);
    EXPECT_EQ(C.A == C.B, C.Expected == 0);
    EXPECT_EQ(C.A != C.B, C.Expected != 0);
  }
}
