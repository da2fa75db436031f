#include "base/util/Random.h"

#include <gtest/gtest.h>

#include <climits>
#include <set>
#include <thread>

using qoUtil::randomBits;
using qoUtil::randomInt;
using qoUtil::seedRandom;

// Each thread has its own sequence; seed 0 must not leave it stuck at zero.
TEST(Random, SameSeedSameSequenceOnEveryThread) {
  seedRandom(42);
  const std::uint64_t First = randomBits();
  seedRandom(42);
  std::thread([] {
    seedRandom(7);
    randomBits();
  }).join();
  EXPECT_EQ(First, randomBits());
  seedRandom(0);
  EXPECT_NE(randomBits() | randomBits(), 0u);
}

TEST(Random, ValuesStayInTheirRangesAndReachBothEnds) {
  seedRandom(3);
  std::set<int> Seen;
  bool Negative = false, Positive = false;
  for (int I = 0; I < 2000; ++I) {
    const double U = qoUtil::random(), Scaled = qoUtil::random(-4.0);
    const double Between = qoUtil::random(2, 3);
    ASSERT_TRUE(U >= 0 && U < 1 && Scaled <= 0 && Scaled > -4) << I;
    ASSERT_TRUE(Between >= 2 && Between < 3) << I;
    Seen.insert(randomInt(3, -2));
    // The span of the whole int range does not fit in an int.
    const int Wide = randomInt(INT_MIN, INT_MAX);
    Negative |= Wide < 0;
    Positive |= Wide > 0;
  }
  EXPECT_EQ(Seen, (std::set<int>{-2, -1, 0, 1, 2, 3}));
  EXPECT_TRUE(Negative && Positive);
}
