#include "base/util/Random.h"

#include <gtest/gtest.h>

#include <climits>
#include <set>
#include <thread>
#include <vector>

using qoUtil::randomBits;
using qoUtil::randomInt;
using qoUtil::seedRandom;

namespace {

std::vector<std::uint64_t> draws(int N) {
  std::vector<std::uint64_t> Out;
  for (int I = 0; I < N; ++I)
    Out.push_back(randomBits());
  return Out;
}

} // namespace

TEST(Random, SameSeedSameSequence) {
  seedRandom(42);
  const auto First = draws(8);
  seedRandom(42);
  EXPECT_EQ(First, draws(8));
  seedRandom(43);
  EXPECT_NE(First, draws(8));
  // Seed 0 must not leave the generator stuck at zero.
  seedRandom(0);
  const auto FromZero = draws(4);
  EXPECT_NE(std::vector<std::uint64_t>(4, 0), FromZero);
}

TEST(Random, ThreadsKeepTheirOwnSequence) {
  seedRandom(7);
  const auto Expected = draws(4);
  seedRandom(7);
  std::thread Other([] {
    seedRandom(99);
    draws(1000);
  });
  Other.join();
  EXPECT_EQ(Expected, draws(4));
}

TEST(Random, DoublesStayInTheirHalfOpenRanges) {
  seedRandom(1);
  double Sum = 0;
  constexpr int N = 20000;
  for (int I = 0; I < N; ++I) {
    const double U = qoUtil::random();
    ASSERT_GE(U, 0.0);
    ASSERT_LT(U, 1.0);
    Sum += U;
    const double Scaled = qoUtil::random(-4.0);
    ASSERT_LE(Scaled, 0.0);
    ASSERT_GT(Scaled, -4.0);
    const double Between = qoUtil::random(2.0, 3.0);
    ASSERT_GE(Between, 2.0);
    ASSERT_LT(Between, 3.0);
  }
  // Mean of N uniforms: standard deviation about 0.002.
  EXPECT_NEAR(0.5, Sum / N, 0.01);
  EXPECT_EQ(5.0, qoUtil::random(5.0, 5.0));
}

TEST(Random, IntegersCoverBothEnds) {
  seedRandom(3);
  std::set<int> Seen;
  for (int I = 0; I < 2000; ++I) {
    const int V = randomInt(-2, 3);
    ASSERT_GE(V, -2);
    ASSERT_LE(V, 3);
    Seen.insert(V);
  }
  EXPECT_EQ(6u, Seen.size());
  for (int I = 0; I < 100; ++I) {
    const int R = randomInt(5, 1);
    ASSERT_TRUE(R >= 1 && R <= 5);
  }
  EXPECT_EQ(9, randomInt(9, 9));
  // The full int range: the span does not fit in an int.
  bool Negative = false, Positive = false;
  for (int I = 0; I < 64; ++I) {
    const int V = randomInt(INT_MIN, INT_MAX);
    Negative |= V < 0;
    Positive |= V > 0;
  }
  EXPECT_TRUE(Negative && Positive);
}
