//===- base/linear/Range.h - Closed intervals and axis-aligned boxes ------===//
//
// qoLinear::Range1d (and Range1f) is a closed interval [Min, Max];
// qoLinear::Range3d (and Range3f) is an axis-aligned box, the product of three
// intervals. Min above Max on any axis means empty. The default range is
// empty, with Min at +infinity and Max at -infinity, but every operation
// accepts any empty range (Min 1 and Max 0 is the bounded values' default).
// Extending an empty range by a point gives that point; uniting with an empty
// range changes nothing; an empty range contains nothing.
//
// Example:
//   qoLinear::Range3d box;                        // empty
//   box.extend(qoLinear::Point(1, 2, 3));
//   box.extend(qoLinear::Point(-1, 0, 5));        // [-1,1] x [0,2] x [3,5]
//   box.contains(qoLinear::Point(0, 1, 4));       // true
//   box.size();                                   // (2, 2, 2)
//
//===----------------------------------------------------------------------===//
#ifndef QOLINEAR_RANGE_H
#define QOLINEAR_RANGE_H

#include "base/linear/Point.h"
#include "base/linear/Vector.h"

#include <algorithm>
#include <limits>

namespace qoLinear {

template <class T> struct Range1T {
  T Min = std::numeric_limits<T>::infinity();
  T Max = -std::numeric_limits<T>::infinity();

  constexpr Range1T() = default;
  constexpr Range1T(T Min, T Max) : Min(Min), Max(Max) {}

  // Also true when either end is NaN: such a range holds nothing.
  constexpr bool empty() const { return !(Min <= Max); }
  constexpr bool contains(T V) const { return Min <= V && V <= Max; }
  constexpr bool contains(const Range1T &R) const {
    return R.empty() || (!empty() && Min <= R.Min && R.Max <= Max);
  }
  constexpr T size() const { return empty() ? T(0) : Max - Min; }
  constexpr T center() const { return (Min + Max) / 2; }

  constexpr Range1T &extend(T V) {
    if (empty()) {
      Min = Max = V;
      return *this;
    }
    Min = std::min(Min, V);
    Max = std::max(Max, V);
    return *this;
  }
  constexpr Range1T &extend(const Range1T &R) {
    if (R.empty())
      return *this;
    if (empty())
      return *this = R;
    Min = std::min(Min, R.Min);
    Max = std::max(Max, R.Max);
    return *this;
  }
  // The overlap; empty when there is none.
  constexpr Range1T intersected(const Range1T &R) const {
    if (empty() || R.empty())
      return {};
    const Range1T Overlap(std::max(Min, R.Min), std::min(Max, R.Max));
    return Overlap.empty() ? Range1T() : Overlap;
  }

  friend constexpr Range1T united(Range1T A, const Range1T &B) {
    return A.extend(B);
  }
  friend constexpr bool operator==(const Range1T &A, const Range1T &B) {
    return A.Min == B.Min && A.Max == B.Max;
  }
};

template <class T> struct Range3T {
  PointT<T> Min{std::numeric_limits<T>::infinity(),
                std::numeric_limits<T>::infinity(),
                std::numeric_limits<T>::infinity()};
  PointT<T> Max{-std::numeric_limits<T>::infinity(),
                -std::numeric_limits<T>::infinity(),
                -std::numeric_limits<T>::infinity()};

  constexpr Range3T() = default;
  constexpr Range3T(const PointT<T> &Min, const PointT<T> &Max)
      : Min(Min), Max(Max) {}

  constexpr Range1T<T> axis(int I) const { return {Min[I], Max[I]}; }
  constexpr bool empty() const {
    return axis(0).empty() || axis(1).empty() || axis(2).empty();
  }
  constexpr bool contains(const PointT<T> &P) const {
    return axis(0).contains(P.X) && axis(1).contains(P.Y) &&
           axis(2).contains(P.Z);
  }
  constexpr bool contains(const Range3T &R) const {
    return R.empty() || (!empty() && contains(R.Min) && contains(R.Max));
  }
  // The extent on each axis; zero for an empty range.
  constexpr VectorT<T> size() const {
    return empty() ? VectorT<T>() : Max - Min;
  }
  constexpr PointT<T> center() const {
    return combine(T(0.5), Min, T(0.5), Max);
  }

  constexpr Range3T &extend(const PointT<T> &P) {
    if (empty()) {
      Min = Max = P;
      return *this;
    }
    for (int I = 0; I < 3; ++I) {
      Min[I] = std::min(Min[I], P[I]);
      Max[I] = std::max(Max[I], P[I]);
    }
    return *this;
  }
  constexpr Range3T &extend(const Range3T &R) {
    if (R.empty())
      return *this;
    if (empty())
      return *this = R;
    return extend(R.Min).extend(R.Max);
  }
  constexpr Range3T intersected(const Range3T &R) const {
    if (empty() || R.empty())
      return {};
    Range3T Overlap;
    for (int I = 0; I < 3; ++I) {
      Overlap.Min[I] = std::max(Min[I], R.Min[I]);
      Overlap.Max[I] = std::min(Max[I], R.Max[I]);
    }
    return Overlap.empty() ? Range3T() : Overlap;
  }

  friend constexpr Range3T united(Range3T A, const Range3T &B) {
    return A.extend(B);
  }
  friend constexpr bool operator==(const Range3T &A, const Range3T &B) {
    return A.Min == B.Min && A.Max == B.Max;
  }
};

using Range1d = Range1T<double>;
using Range1f = Range1T<float>;
using Range3d = Range3T<double>;
using Range3f = Range3T<float>;

} // namespace qoLinear

#endif // QOLINEAR_RANGE_H
