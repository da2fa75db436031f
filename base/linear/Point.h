//===- base/linear/Point.h - Three-dimensional positions ------------------===//
//
// qoLinear::Point (doubles) and qoLinear::Pointf (floats, also spelled
// PointFlt) are positions. The difference of two points is a Vector, and a
// point moved by a vector is a point; a weighted sum of points goes through
// combine(). Under an affine matrix a point takes the translation (see
// AffineMatrix.h). Plain values: three public components, the origin by
// default.
//
// Example:
//   qoLinear::Point a(1, 2, 3), b(4, 6, 3);
//   qoLinear::Vector d = b - a;            // (3, 4, 0)
//   double len = distance(a, b);           // 5
//   qoLinear::Point mid = combine(0.5, a, 0.5, b);
//
//===----------------------------------------------------------------------===//
#ifndef QOLINEAR_POINT_H
#define QOLINEAR_POINT_H

#include "base/linear/Vector.h"

#include <cassert>
#include <cmath>

namespace qoLinear {

template <class T> struct PointT {
  T X = 0;
  T Y = 0;
  T Z = 0;

  constexpr PointT() = default;
  constexpr PointT(T X, T Y, T Z) : X(X), Y(Y), Z(Z) {}
  // The point at V from the origin.
  constexpr explicit PointT(const VectorT<T> &V) : X(V.X), Y(V.Y), Z(V.Z) {}
  template <class U>
  constexpr explicit PointT(const PointT<U> &P)
      : X(static_cast<T>(P.X)), Y(static_cast<T>(P.Y)), Z(static_cast<T>(P.Z)) {
  }

  // The vector from the origin to this point.
  constexpr VectorT<T> toVector() const { return {X, Y, Z}; }

  constexpr T operator[](int I) const {
    assert(I >= 0 && I < 3 && "point component out of range");
    return I == 0 ? X : (I == 1 ? Y : Z);
  }
  constexpr T &operator[](int I) {
    assert(I >= 0 && I < 3 && "point component out of range");
    return I == 0 ? X : (I == 1 ? Y : Z);
  }

  constexpr PointT &operator+=(const VectorT<T> &V) {
    X += V.X;
    Y += V.Y;
    Z += V.Z;
    return *this;
  }
  constexpr PointT &operator-=(const VectorT<T> &V) {
    X -= V.X;
    Y -= V.Y;
    Z -= V.Z;
    return *this;
  }

  friend constexpr PointT operator+(PointT P, const VectorT<T> &V) {
    return P += V;
  }
  friend constexpr PointT operator-(PointT P, const VectorT<T> &V) {
    return P -= V;
  }
  friend constexpr VectorT<T> operator-(const PointT &A, const PointT &B) {
    return {A.X - B.X, A.Y - B.Y, A.Z - B.Z};
  }
  friend constexpr bool operator==(const PointT &A, const PointT &B) {
    return A.X == B.X && A.Y == B.Y && A.Z == B.Z;
  }
};

template <class T> T distance(const PointT<T> &A, const PointT<T> &B) {
  return (B - A).length();
}

// WA * A + WB * B, component-wise. The weights need not sum to 1; when they
// do, the result is an affine combination (0.5 and 0.5 give the midpoint).
template <class T>
constexpr PointT<T> combine(T WA, const PointT<T> &A, T WB,
                            const PointT<T> &B) {
  return {WA * A.X + WB * B.X, WA * A.Y + WB * B.Y, WA * A.Z + WB * B.Z};
}

using Point = PointT<double>;
using Pointf = PointT<float>;
// The spelling that the recorded-field writers use.
using PointFlt = Pointf;

} // namespace qoLinear

#endif // QOLINEAR_POINT_H
