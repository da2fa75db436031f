//===- base/linear/Point2.h - Two-dimensional positions -------------------===//
//
// qoLinear::Point2 (doubles) and qoLinear::Point2f (floats, also spelled
// Point2Flt): positions in a plane such as screen or texture coordinates.
// Plain values, the origin by default. Differences and sums stay Point2: the
// plane has no separate vector type.
//
// Example:
//   qoLinear::Point2 a(1, 2), b(4, 6);
//   qoLinear::Point2 d = b - a;     // (3, 4)
//   double len = d.length();        // 5
//
//===----------------------------------------------------------------------===//
#ifndef QOLINEAR_POINT2_H
#define QOLINEAR_POINT2_H

#include <cassert>
#include <cmath>

namespace qoLinear {

template <class T> struct Point2T {
  T X = 0;
  T Y = 0;

  constexpr Point2T() = default;
  constexpr Point2T(T X, T Y) : X(X), Y(Y) {}
  template <class U>
  constexpr explicit Point2T(const Point2T<U> &P)
      : X(static_cast<T>(P.X)), Y(static_cast<T>(P.Y)) {}

  constexpr T operator[](int I) const {
    assert(I >= 0 && I < 2 && "point component out of range");
    return I == 0 ? X : Y;
  }
  constexpr T &operator[](int I) {
    assert(I >= 0 && I < 2 && "point component out of range");
    return I == 0 ? X : Y;
  }

  constexpr Point2T operator-() const { return {-X, -Y}; }
  constexpr Point2T &operator+=(const Point2T &P) {
    X += P.X;
    Y += P.Y;
    return *this;
  }
  constexpr Point2T &operator-=(const Point2T &P) {
    X -= P.X;
    Y -= P.Y;
    return *this;
  }
  constexpr Point2T &operator*=(T S) {
    X *= S;
    Y *= S;
    return *this;
  }

  constexpr T lengthSquared() const { return X * X + Y * Y; }
  T length() const { return std::sqrt(lengthSquared()); }

  friend constexpr Point2T operator+(Point2T A, const Point2T &B) {
    return A += B;
  }
  friend constexpr Point2T operator-(Point2T A, const Point2T &B) {
    return A -= B;
  }
  friend constexpr Point2T operator*(Point2T P, T S) { return P *= S; }
  friend constexpr Point2T operator*(T S, Point2T P) { return P *= S; }
  friend constexpr bool operator==(const Point2T &A, const Point2T &B) {
    return A.X == B.X && A.Y == B.Y;
  }
};

template <class T> constexpr T dot(const Point2T<T> &A, const Point2T<T> &B) {
  return A.X * B.X + A.Y * B.Y;
}

using Point2 = Point2T<double>;
using Point2f = Point2T<float>;
// The spelling that the recorded-field writers use.
using Point2Flt = Point2f;

} // namespace qoLinear

#endif // QOLINEAR_POINT2_H
