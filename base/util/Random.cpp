//===- base/util/Random.cpp - A small seeded pseudo-random generator ------===//
//
// xoshiro256** over a thread-local 256-bit state. The state must never be all
// zero; seeding through splitmix64 guarantees that for every seed, including
// 0, and spreads nearby seeds far apart.
//
//===----------------------------------------------------------------------===//
#include "base/util/Random.h"

#include <cmath>
#include <utility>

namespace qoUtil {
namespace {

// The seed every thread starts from (the 64-bit golden ratio).
constexpr std::uint64_t DefaultSeed = 0x9E3779B97F4A7C15ull;

std::uint64_t splitMix64(std::uint64_t &X) {
  std::uint64_t Z = (X += 0x9E3779B97F4A7C15ull);
  Z = (Z ^ (Z >> 30)) * 0xBF58476D1CE4E5B9ull;
  Z = (Z ^ (Z >> 27)) * 0x94D049BB133111EBull;
  return Z ^ (Z >> 31);
}

constexpr std::uint64_t rotl(std::uint64_t X, int K) {
  return (X << K) | (X >> (64 - K));
}

struct Generator {
  std::uint64_t S[4];

  explicit Generator(std::uint64_t Seed) { seed(Seed); }

  void seed(std::uint64_t Seed) {
    for (std::uint64_t &Word : S)
      Word = splitMix64(Seed);
  }

  std::uint64_t next() {
    const std::uint64_t Result = rotl(S[1] * 5, 7) * 9;
    const std::uint64_t T = S[1] << 17;
    S[2] ^= S[0];
    S[3] ^= S[1];
    S[1] ^= S[2];
    S[0] ^= S[3];
    S[2] ^= T;
    S[3] = rotl(S[3], 45);
    return Result;
  }
};

Generator &generator() {
  thread_local Generator G(DefaultSeed);
  return G;
}

} // namespace

void seedRandom(std::uint64_t Seed) { generator().seed(Seed); }

std::uint64_t randomBits() { return generator().next(); }

double random() { return double(randomBits() >> 11) * 0x1.0p-53; }

double random(double Max) { return random(0.0, Max); }

// Rounding may land a draw just below 1 on Max itself (never beyond it);
// keep that end open.
double random(double Min, double Max) {
  const double V = Min + random() * (Max - Min);
  if (V == Max && Min != Max)
    return std::nextafter(Max, Min);
  return V;
}

// Rejection keeps every value equally likely: draws below Threshold would
// make the low residues one more likely than the others.
int randomInt(int Lo, int Hi) {
  if (Lo > Hi)
    std::swap(Lo, Hi);
  const std::uint64_t Span = std::uint64_t(std::int64_t(Hi) - Lo) + 1;
  const std::uint64_t Threshold = (0 - Span) % Span;
  std::uint64_t Draw;
  do
    Draw = randomBits();
  while (Draw < Threshold);
  return int(std::int64_t(Lo) + std::int64_t(Draw % Span));
}

} // namespace qoUtil
