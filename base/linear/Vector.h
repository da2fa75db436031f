//===- base/linear/Vector.h - Three-dimensional displacement vectors ------===//
//
// qoLinear::Vector (doubles) and qoLinear::Vectorf (floats) are directions
// with a length: differences of points, translations, scale factors. They are
// plain values (three public components, zero by default). Under an affine
// matrix a vector ignores the translation (see AffineMatrix.h); points and
// unit normals are the separate types Point and Normal.
//
// Example:
//   qoLinear::Vector a(1, 0, 0), b(0, 1, 0);
//   qoLinear::Vector c = cross(a, b);          // (0, 0, 1)
//   double d = dot(a + b, c);                  // 0
//   qoLinear::Vector u = (a + b).normalized(); // length 1
//
//===----------------------------------------------------------------------===//
#ifndef QOLINEAR_VECTOR_H
#define QOLINEAR_VECTOR_H

#include <cassert>
#include <cmath>

namespace qoLinear {

template <class T> struct VectorT {
  T X = 0;
  T Y = 0;
  T Z = 0;

  constexpr VectorT() = default;
  constexpr VectorT(T X, T Y, T Z) : X(X), Y(Y), Z(Z) {}
  template <class U>
  constexpr explicit VectorT(const VectorT<U> &V)
      : X(static_cast<T>(V.X)), Y(static_cast<T>(V.Y)), Z(static_cast<T>(V.Z)) {
  }

  constexpr T operator[](int I) const {
    assert(I >= 0 && I < 3 && "vector component out of range");
    return I == 0 ? X : (I == 1 ? Y : Z);
  }
  constexpr T &operator[](int I) {
    assert(I >= 0 && I < 3 && "vector component out of range");
    return I == 0 ? X : (I == 1 ? Y : Z);
  }

  constexpr VectorT operator-() const { return {-X, -Y, -Z}; }
  constexpr VectorT &operator+=(const VectorT &V) {
    X += V.X;
    Y += V.Y;
    Z += V.Z;
    return *this;
  }
  constexpr VectorT &operator-=(const VectorT &V) {
    X -= V.X;
    Y -= V.Y;
    Z -= V.Z;
    return *this;
  }
  constexpr VectorT &operator*=(T S) {
    X *= S;
    Y *= S;
    Z *= S;
    return *this;
  }
  constexpr VectorT &operator/=(T S) {
    X /= S;
    Y /= S;
    Z /= S;
    return *this;
  }

  constexpr T lengthSquared() const { return X * X + Y * Y + Z * Z; }
  T length() const { return std::sqrt(lengthSquared()); }
  constexpr bool isZero() const { return X == 0 && Y == 0 && Z == 0; }
  // The unit vector of the same direction; the zero vector stays zero.
  VectorT normalized() const {
    const T Length = length();
    return Length > 0 ? VectorT(X / Length, Y / Length, Z / Length) : *this;
  }

  friend constexpr VectorT operator+(VectorT A, const VectorT &B) {
    return A += B;
  }
  friend constexpr VectorT operator-(VectorT A, const VectorT &B) {
    return A -= B;
  }
  friend constexpr VectorT operator*(VectorT V, T S) { return V *= S; }
  friend constexpr VectorT operator*(T S, VectorT V) { return V *= S; }
  friend constexpr VectorT operator/(VectorT V, T S) { return V /= S; }
  friend constexpr bool operator==(const VectorT &A, const VectorT &B) {
    return A.X == B.X && A.Y == B.Y && A.Z == B.Z;
  }
};

template <class T> constexpr T dot(const VectorT<T> &A, const VectorT<T> &B) {
  return A.X * B.X + A.Y * B.Y + A.Z * B.Z;
}

// Right-handed: cross(x axis, y axis) is the z axis.
template <class T>
constexpr VectorT<T> cross(const VectorT<T> &A, const VectorT<T> &B) {
  return {A.Y * B.Z - A.Z * B.Y, A.Z * B.X - A.X * B.Z, A.X * B.Y - A.Y * B.X};
}

// Component-wise product and quotient, as scale factors combine.
template <class T>
constexpr VectorT<T> multiply(const VectorT<T> &A, const VectorT<T> &B) {
  return {A.X * B.X, A.Y * B.Y, A.Z * B.Z};
}
template <class T>
constexpr VectorT<T> divide(const VectorT<T> &A, const VectorT<T> &B) {
  return {A.X / B.X, A.Y / B.Y, A.Z / B.Z};
}

using Vector = VectorT<double>;
using Vectorf = VectorT<float>;

} // namespace qoLinear

#endif // QOLINEAR_VECTOR_H
