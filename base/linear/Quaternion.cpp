//===- base/linear/Quaternion.cpp - Rotations as quaternions --------------===//
//
// Matrix conversions go through the column-vector rotation R (R[r][c]),
// which is what AffineMatrix::operator()(r, c) reads for c < 3.
//
//===----------------------------------------------------------------------===//
#include "base/linear/Quaternion.h"

#include <algorithm>
#include <cmath>

namespace qoLinear {
namespace {

// Below this, two unit quaternions are so close that slerp's sin() would
// lose all precision; linear interpolation is then exact enough.
constexpr double SlerpLinearThreshold = 1e-6;

} // namespace

Quaternion Quaternion::fromAxisAngle(const Normal &Axis, double Angle) {
  if (Axis.isZero())
    return {};
  const double S = std::sin(Angle / 2);
  return {Axis.x() * S, Axis.y() * S, Axis.z() * S, std::cos(Angle / 2)};
}

// Shepperd's method: derive the largest component from the diagonal first so
// that the division below never loses precision.
Quaternion Quaternion::fromMatrix(const AffineMatrix &M) {
  const double M00 = M(0, 0), M11 = M(1, 1), M22 = M(2, 2);
  const double Trace = M00 + M11 + M22;
  Quaternion Q;
  if (Trace > 0) {
    const double S = 2 * std::sqrt(1 + Trace);
    Q = {(M(2, 1) - M(1, 2)) / S, (M(0, 2) - M(2, 0)) / S,
         (M(1, 0) - M(0, 1)) / S, S / 4};
  } else if (M00 > M11 && M00 > M22) {
    const double S = 2 * std::sqrt(1 + M00 - M11 - M22);
    Q = {S / 4, (M(0, 1) + M(1, 0)) / S, (M(0, 2) + M(2, 0)) / S,
         (M(2, 1) - M(1, 2)) / S};
  } else if (M11 > M22) {
    const double S = 2 * std::sqrt(1 + M11 - M00 - M22);
    Q = {(M(0, 1) + M(1, 0)) / S, S / 4, (M(1, 2) + M(2, 1)) / S,
         (M(0, 2) - M(2, 0)) / S};
  } else {
    const double S = 2 * std::sqrt(1 + M22 - M00 - M11);
    Q = {(M(0, 2) + M(2, 0)) / S, (M(1, 2) + M(2, 1)) / S, S / 4,
         (M(1, 0) - M(0, 1)) / S};
  }
  return Q.normalized();
}

AffineMatrix Quaternion::toMatrix() const {
  const double N = lengthSquared();
  const double S = N > 0 ? 2 / N : 0;
  const double XX = X * X * S, YY = Y * Y * S, ZZ = Z * Z * S;
  const double XY = X * Y * S, XZ = X * Z * S, YZ = Y * Z * S;
  const double WX = W * X * S, WY = W * Y * S, WZ = W * Z * S;
  AffineMatrix Out;
  Out(0, 0) = 1 - (YY + ZZ);
  Out(0, 1) = XY - WZ;
  Out(0, 2) = XZ + WY;
  Out(1, 0) = XY + WZ;
  Out(1, 1) = 1 - (XX + ZZ);
  Out(1, 2) = YZ - WX;
  Out(2, 0) = XZ - WY;
  Out(2, 1) = YZ + WX;
  Out(2, 2) = 1 - (XX + YY);
  return Out;
}

void Quaternion::toAxisAngle(Normal &Axis, double &Angle) const {
  const Quaternion Q = normalized();
  const double S = std::sqrt(Q.X * Q.X + Q.Y * Q.Y + Q.Z * Q.Z);
  if (S == 0) {
    Axis = Normal(0, 0, 1);
    Angle = 0;
    return;
  }
  Axis = Normal(Q.X / S, Q.Y / S, Q.Z / S);
  Angle = 2 * std::atan2(S, Q.W);
}

double Quaternion::length() const { return std::sqrt(lengthSquared()); }

Quaternion Quaternion::normalized() const {
  const double L = length();
  if (!(L > 0))
    return {};
  return {X / L, Y / L, Z / L, W / L};
}

Quaternion Quaternion::inverse() const {
  const double N = lengthSquared();
  if (!(N > 0))
    return {};
  return {-X / N, -Y / N, -Z / N, W / N};
}

// q v q* expanded: with u the vector part, t = 2 (u x v) and
// v' = v + w t + u x t. Fifteen multiplications instead of two products.
Vector Quaternion::rotate(const Vector &V) const {
  const Vector U(X, Y, Z);
  const Vector T = cross(U, V) * 2.0;
  return V + T * W + cross(U, T);
}

Quaternion slerp(const Quaternion &A, const Quaternion &B, double T) {
  double Cos = dot(A, B);
  // q and -q are the same rotation: take the nearer one for the short arc.
  const double Sign = Cos < 0 ? -1.0 : 1.0;
  Cos = std::min(std::fabs(Cos), 1.0);
  double WA = 1 - T, WB = T;
  if (1 - Cos > SlerpLinearThreshold) {
    const double Theta = std::acos(Cos);
    const double Sin = std::sin(Theta);
    WA = std::sin((1 - T) * Theta) / Sin;
    WB = std::sin(T * Theta) / Sin;
  }
  WB *= Sign;
  return Quaternion(WA * A.X + WB * B.X, WA * A.Y + WB * B.Y,
                    WA * A.Z + WB * B.Z, WA * A.W + WB * B.W)
      .normalized();
}

} // namespace qoLinear
