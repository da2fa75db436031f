//===- base/linear/AffineMatrix.h - Affine transforms in 12 doubles -------===//
//
// qoLinear::AffineMatrix is an affine transform of 3-space: a linear part and
// a translation. Conventions, which every caller relies on:
//
// - Row vectors. A point p maps to p * M, that is [x y z 1] times a 4-row by
//   3-column matrix whose rows 0, 1 and 2 are the images of the x, y and z
//   axes and whose row 3 is the translation.
// - Composition reads left to right: A * B is "first A, then B", and
//   A *= B appends B. The in-place mutators append too: m.translate(v) means
//   "m, then translate by v". preMult(B) puts B first: m = B * m.
// - Angles are in radians; rotations are right-handed (a positive angle about
//   +z turns +x towards +y).
// - A Vector ignores the translation; a Normal transforms by the inverse
//   transpose of the linear part and is renormalised; a Point takes all.
//
// Storage. The class is described as 3 rows by 4 columns stored column by
// column: the 3x4 matrix A is the transpose of the 4x3 row-vector matrix
// above, so p' = A [x y z 1]^T, and
//
//   m[3 * c + r] == A(r, c) == operator()(r, c),  r in 0..2, c in 0..3.
//
// Column c < 3 of A is the image of axis c, column 3 the translation:
//
//   m[0..2] image of x, m[3..5] image of y, m[6..8] image of z,
//   m[9..11] translation.
//
// Read the other way, m[] is the 4x3 row-vector matrix row by row. A default
// matrix is the identity. inverse() of a singular matrix (zero determinant)
// is the identity, and invert() then leaves the matrix alone and returns
// false. A rotation about an invalid Line or a zero Normal is the identity.
//
// Example:
//   using namespace qoLinear;
//   AffineMatrix m = AffineMatrix::translation(Vector(1, 2, 3)); // m[9..11]
//   m.rotateZ(M_PI / 2);                  // then a quarter turn about z
//   Point p = Point(1, 0, 0) * m;         // (2, 2, 3) turned: (-2, 2, 3)
//   Point back = p * m.inverse();         // (1, 0, 0)
//   Vector v = Vector(1, 0, 0) * m;       // (0, 1, 0): no translation
//
//===----------------------------------------------------------------------===//
#ifndef QOLINEAR_AFFINEMATRIX_H
#define QOLINEAR_AFFINEMATRIX_H

#include "base/linear/Line.h"
#include "base/linear/Normal.h"
#include "base/linear/Plane.h"
#include "base/linear/Point.h"
#include "base/linear/Range.h"
#include "base/linear/Vector.h"

#include <cassert>

namespace qoLinear {

class AffineMatrix {
public:
  static constexpr int Rows = 3;
  static constexpr int Columns = 4;
  static constexpr int Size = 12;

  // The identity.
  constexpr AffineMatrix() : M{1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0} {}
  // Coefficients in storage order (m[3c + r] is row r, column c).
  constexpr explicit AffineMatrix(const double (&Coefficients)[Size]) : M{} {
    for (int I = 0; I < Size; ++I)
      M[I] = Coefficients[I];
  }
  static AffineMatrix fromData(const double *Coefficients);
  // The matrix whose columns are the images of the axes and the translation:
  // it maps the unit frame onto the frame (X, Y, Z) at Origin.
  static AffineMatrix fromAxes(const Vector &X, const Vector &Y,
                               const Vector &Z, const Point &Origin);

  static AffineMatrix identity() { return AffineMatrix(); }
  static AffineMatrix translation(const Vector &V);
  // About the axis line: points on the line stay put.
  static AffineMatrix rotation(double Angle, const Line &Axis);
  // About an axis through the origin.
  static AffineMatrix rotation(double Angle, const Normal &Axis);
  static AffineMatrix rotationX(double Angle);
  static AffineMatrix rotationY(double Angle);
  static AffineMatrix rotationZ(double Angle);
  static AffineMatrix scaling(double SX, double SY, double SZ);
  static AffineMatrix scaling(double S) { return scaling(S, S, S); }

  constexpr double operator()(int Row, int Col) const {
    assert(Row >= 0 && Row < Rows && Col >= 0 && Col < Columns &&
           "matrix element out of range");
    return M[3 * Col + Row];
  }
  constexpr double &operator()(int Row, int Col) {
    assert(Row >= 0 && Row < Rows && Col >= 0 && Col < Columns &&
           "matrix element out of range");
    return M[3 * Col + Row];
  }
  constexpr double operator[](int I) const {
    assert(I >= 0 && I < Size && "matrix coefficient out of range");
    return M[I];
  }
  constexpr double &operator[](int I) {
    assert(I >= 0 && I < Size && "matrix coefficient out of range");
    return M[I];
  }
  const double *data() const { return M; }
  double *data() { return M; }

  // Column I < 3: the image of axis I. Column 3 is translationPart().
  Vector axis(int I) const {
    assert(I >= 0 && I < 3 && "axis out of range");
    return {M[3 * I], M[3 * I + 1], M[3 * I + 2]};
  }
  Vector translationPart() const { return {M[9], M[10], M[11]}; }
  void setAxis(int I, const Vector &V);
  void setTranslationPart(const Vector &V);

  AffineMatrix &setIdentity() { return *this = AffineMatrix(); }
  // Each of these appends an operation: *this = *this * operation.
  AffineMatrix &translate(const Vector &V);
  AffineMatrix &rotate(double Angle, const Line &Axis);
  AffineMatrix &rotate(double Angle, const Normal &Axis);
  AffineMatrix &rotateX(double Angle);
  AffineMatrix &rotateY(double Angle);
  AffineMatrix &rotateZ(double Angle);
  AffineMatrix &scale(double SX, double SY, double SZ);
  AffineMatrix &scale(double S) { return scale(S, S, S); }

  // *this = First * *this: First happens before this matrix.
  AffineMatrix &preMult(const AffineMatrix &First);
  AffineMatrix &operator*=(const AffineMatrix &Then);
  friend AffineMatrix operator*(const AffineMatrix &First,
                                const AffineMatrix &Then);

  // Coefficient-wise, as scripts blend matrices.
  AffineMatrix &operator+=(const AffineMatrix &B);
  AffineMatrix &operator-=(const AffineMatrix &B);
  friend AffineMatrix operator+(AffineMatrix A, const AffineMatrix &B) {
    return A += B;
  }
  friend AffineMatrix operator-(AffineMatrix A, const AffineMatrix &B) {
    return A -= B;
  }

  // Of the linear part; negative when the matrix mirrors.
  double determinant() const;
  AffineMatrix inverse() const;
  bool invert();
  bool isIdentity() const { return *this == AffineMatrix(); }

  friend bool operator==(const AffineMatrix &A, const AffineMatrix &B);

private:
  double M[Size];
};

Point operator*(const Point &P, const AffineMatrix &M);
Vector operator*(const Vector &V, const AffineMatrix &M);
Normal operator*(const Normal &N, const AffineMatrix &M);
// The line through the transformed point along the transformed direction.
Line operator*(const Line &L, const AffineMatrix &M);
ParamLine operator*(const ParamLine &L, const AffineMatrix &M);
Plane operator*(const Plane &P, const AffineMatrix &M);
// The smallest box holding the transformed box; empty stays empty.
Range3d operator*(const Range3d &R, const AffineMatrix &M);

inline Point &operator*=(Point &P, const AffineMatrix &M) { return P = P * M; }
inline Vector &operator*=(Vector &V, const AffineMatrix &M) {
  return V = V * M;
}
inline Normal &operator*=(Normal &N, const AffineMatrix &M) {
  return N = N * M;
}

} // namespace qoLinear

#endif // QOLINEAR_AFFINEMATRIX_H
