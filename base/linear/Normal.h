//===- base/linear/Normal.h - Unit direction vectors ----------------------===//
//
// qoLinear::Normal (doubles) and qoLinear::Normalf (floats) hold a direction
// of length 1: building or setting one normalises what it is given, so the
// invariant needs no caller's care. The zero vector is the one exception: it
// stays zero and stands for "no direction". The default is the z axis.
// fromUnit() trusts its input and stores it unchanged, for components read
// back from storage where renormalising could change the last bit.
//
// Under an affine matrix a normal transforms by the inverse transpose of the
// linear part and is renormalised (see AffineMatrix.h), so it stays
// perpendicular to the surface it belongs to under non-uniform scales.
//
// Example:
//   qoLinear::Normal n(3, 0, 4);            // (0.6, 0, 0.8)
//   double along = dot(n, qoLinear::Vector(1, 1, 1));
//   qoLinear::Vector onN = project(qoLinear::Vector(1, 1, 1), n);
//
//===----------------------------------------------------------------------===//
#ifndef QOLINEAR_NORMAL_H
#define QOLINEAR_NORMAL_H

#include "base/linear/Vector.h"

#include <cassert>
#include <cmath>

namespace qoLinear {

template <class T> class NormalT {
public:
  constexpr NormalT() = default;
  NormalT(T X, T Y, T Z) { set(X, Y, Z); }
  explicit NormalT(const VectorT<T> &V) { set(V.X, V.Y, V.Z); }
  template <class U> explicit NormalT(const NormalT<U> &N) {
    set(static_cast<T>(N.x()), static_cast<T>(N.y()), static_cast<T>(N.z()));
  }

  // Stores the components as given; the caller vouches for unit length.
  static constexpr NormalT fromUnit(T X, T Y, T Z) {
    NormalT N;
    N.X = X;
    N.Y = Y;
    N.Z = Z;
    return N;
  }

  void set(T NX, T NY, T NZ) {
    const T Length = std::sqrt(NX * NX + NY * NY + NZ * NZ);
    if (!(Length > 0)) {
      X = Y = Z = 0;
      return;
    }
    X = NX / Length;
    Y = NY / Length;
    Z = NZ / Length;
  }

  constexpr T x() const { return X; }
  constexpr T y() const { return Y; }
  constexpr T z() const { return Z; }
  constexpr T operator[](int I) const {
    assert(I >= 0 && I < 3 && "normal component out of range");
    return I == 0 ? X : (I == 1 ? Y : Z);
  }
  constexpr VectorT<T> toVector() const { return {X, Y, Z}; }
  constexpr bool isZero() const { return X == 0 && Y == 0 && Z == 0; }

  constexpr NormalT operator-() const { return fromUnit(-X, -Y, -Z); }
  friend constexpr bool operator==(const NormalT &A, const NormalT &B) {
    return A.X == B.X && A.Y == B.Y && A.Z == B.Z;
  }

private:
  T X = 0;
  T Y = 0;
  T Z = 1;
};

template <class T> constexpr T dot(const NormalT<T> &A, const VectorT<T> &B) {
  return dot(A.toVector(), B);
}
template <class T> constexpr T dot(const VectorT<T> &A, const NormalT<T> &B) {
  return dot(A, B.toVector());
}
template <class T> constexpr T dot(const NormalT<T> &A, const NormalT<T> &B) {
  return dot(A.toVector(), B.toVector());
}

// The part of V along N: (V . N) N.
template <class T>
constexpr VectorT<T> project(const VectorT<T> &V, const NormalT<T> &N) {
  return N.toVector() * dot(V, N);
}

// The direction of WA * A + WB * B, normalised.
template <class T>
NormalT<T> combine(T WA, const NormalT<T> &A, T WB, const NormalT<T> &B) {
  return NormalT<T>(A.toVector() * WA + B.toVector() * WB);
}

using Normal = NormalT<double>;
using Normalf = NormalT<float>;

} // namespace qoLinear

#endif // QOLINEAR_NORMAL_H
