//===- base/linear/Quaternion.h - Rotations as quaternions ----------------===//
//
// qoLinear::Quaternion stores four doubles in the order X, Y, Z, W: the vector
// part first, the scalar part W last (serialised forms keep this order). The
// default is the identity rotation (0, 0, 0, 1). Rotations are unit
// quaternions; the operations that build them return unit ones, and
// toMatrix() also accepts a non-unit quaternion (it divides by the squared
// length).
//
// The product is Hamilton's: P * Q rotates by Q first and then by P, so
// toMatrix(P * Q) == Q.toMatrix() * P.toMatrix() in the row-vector matrix
// convention, where the left factor happens first. fromAxisAngle(axis, a)
// turns the same way as AffineMatrix::rotation(a, axis).
//
// Example:
//   using namespace qoLinear;
//   Quaternion q = Quaternion::fromAxisAngle(Normal(0, 0, 1), M_PI / 2);
//   q.rotate(Vector(1, 0, 0));                  // (0, 1, 0)
//   Point p = Point(1, 0, 0) * q.toMatrix();    // (0, 1, 0)
//   Quaternion eighth = slerp(Quaternion(), q, 0.5); // half of it
//
//===----------------------------------------------------------------------===//
#ifndef QOLINEAR_QUATERNION_H
#define QOLINEAR_QUATERNION_H

#include "base/linear/AffineMatrix.h"
#include "base/linear/Normal.h"
#include "base/linear/Vector.h"

#include <cassert>

namespace qoLinear {

struct Quaternion {
  double X = 0;
  double Y = 0;
  double Z = 0;
  double W = 1;

  constexpr Quaternion() = default;
  constexpr Quaternion(double X, double Y, double Z, double W)
      : X(X), Y(Y), Z(Z), W(W) {}

  // The identity when Axis is zero.
  static Quaternion fromAxisAngle(const Normal &Axis, double Angle);
  // The rotation of M's linear part, which must be a rotation (orthonormal,
  // determinant 1); scale and translation are not represented.
  static Quaternion fromMatrix(const AffineMatrix &M);

  AffineMatrix toMatrix() const;
  // Angle in [0, 2 pi]; the identity gives angle 0 about the z axis.
  void toAxisAngle(Normal &Axis, double &Angle) const;

  // In storage order: X, Y, Z, W.
  constexpr double operator[](int I) const {
    assert(I >= 0 && I < 4 && "quaternion component out of range");
    return I == 0 ? X : (I == 1 ? Y : (I == 2 ? Z : W));
  }
  constexpr double &operator[](int I) {
    assert(I >= 0 && I < 4 && "quaternion component out of range");
    return I == 0 ? X : (I == 1 ? Y : (I == 2 ? Z : W));
  }

  constexpr double lengthSquared() const {
    return X * X + Y * Y + Z * Z + W * W;
  }
  double length() const;
  // The zero quaternion normalises to the identity.
  Quaternion normalized() const;
  constexpr Quaternion conjugate() const { return {-X, -Y, -Z, W}; }
  // The multiplicative inverse; the conjugate for a unit quaternion.
  Quaternion inverse() const;

  // V rotated by this (unit) quaternion: q v q*.
  Vector rotate(const Vector &V) const;

  friend constexpr Quaternion operator*(const Quaternion &P,
                                        const Quaternion &Q) {
    return {P.W * Q.X + P.X * Q.W + P.Y * Q.Z - P.Z * Q.Y,
            P.W * Q.Y - P.X * Q.Z + P.Y * Q.W + P.Z * Q.X,
            P.W * Q.Z + P.X * Q.Y - P.Y * Q.X + P.Z * Q.W,
            P.W * Q.W - P.X * Q.X - P.Y * Q.Y - P.Z * Q.Z};
  }
  Quaternion &operator*=(const Quaternion &Q) { return *this = *this * Q; }
  friend constexpr bool operator==(const Quaternion &A, const Quaternion &B) {
    return A.X == B.X && A.Y == B.Y && A.Z == B.Z && A.W == B.W;
  }
};

constexpr double dot(const Quaternion &A, const Quaternion &B) {
  return A.X * B.X + A.Y * B.Y + A.Z * B.Z + A.W * B.W;
}

// Spherical interpolation along the shorter arc: T = 0 gives A, T = 1 gives B
// (or -B, the same rotation). The result is normalised.
Quaternion slerp(const Quaternion &A, const Quaternion &B, double T);

} // namespace qoLinear

#endif // QOLINEAR_QUATERNION_H
