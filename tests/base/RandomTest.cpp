#include "base/util/Random.h"

#include <gtest/gtest.h>

#include <climits>
#include <set>

using qoUtil::randomInt;

// The span of the whole int range does not fit in an int; seed 0 must not
// leave the generator stuck at zero.
TEST(Random, SeedsRepeatAndValuesReachBothEndsOfTheirRange) {
  qoUtil::seedRandom(42);
  const std::uint64_t First = qoUtil::randomBits();
  qoUtil::seedRandom(42);
  EXPECT_EQ(First, qoUtil::randomBits());
  qoUtil::seedRandom(0);
  EXPECT_NE(qoUtil::randomBits() | qoUtil::randomBits(), 0u);
  std::set<int> Seen;
  bool Negative = false, Positive = false;
  for (int I = 0; I < 2000; ++I) {
    const double U = qoUtil::random(2, 3);
    ASSERT_TRUE(U >= 2 && U < 3) << I;
    Seen.insert(randomInt(3, -2));
    const int Wide = randomInt(INT_MIN, INT_MAX);
    Negative |= Wide < 0;
    Positive |= Wide > 0;
  }
  EXPECT_EQ(Seen, (std::set<int>{-2, -1, 0, 1, 2, 3}));
  EXPECT_TRUE(Negative && Positive);
}
