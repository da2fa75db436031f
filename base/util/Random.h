//===- base/util/Random.h - A small seeded pseudo-random generator --------===//
//
// Uniform pseudo-random numbers for jitter, sampling and scripts; not for
// anything secret. Each thread has its own generator (xoshiro256**), so the
// functions need no lock and one thread's draws never disturb another's
// sequence. Every thread starts from the same fixed seed: a run is
// repeatable unless someone calls seedRandom (with the time, for instance).
//
// Example:
//   qoUtil::seedRandom(42);
//   double u = qoUtil::random();            // in [0, 1)
//   double angle = qoUtil::random(6.283);   // in [0, 6.283)
//   int face = qoUtil::randomInt(1, 6);     // 1 to 6, both included
//
//===----------------------------------------------------------------------===//
#ifndef QOUTIL_RANDOM_H
#define QOUTIL_RANDOM_H

#include <cstdint>

namespace qoUtil {

// Restarts this thread's sequence; the same seed gives the same sequence.
void seedRandom(std::uint64_t Seed);

// In [0, 1), a multiple of 2^-53.
double random();
// In [0, Max) (or (Max, 0] for a negative Max).
double random(double Max);
// In [Min, Max): Min + random() * (Max - Min). Max may be below Min.
double random(double Min, double Max);
// In [Lo, Hi], both ends included, without modulo bias. The ends may come
// in either order.
int randomInt(int Lo, int Hi);
// The raw 64 bits of the next draw.
std::uint64_t randomBits();

} // namespace qoUtil

#endif // QOUTIL_RANDOM_H
