//===- base/linear/AffineMatrix.cpp - Affine transforms in 12 doubles -----===//
//
// M[] read as the 4x3 row-vector matrix, row by row: rows 0..2 (M[3i..3i+2])
// are the images of the axes, row 3 the translation. Composition then needs
// no index juggling: row i of A * B is row i of A transformed by B, as a
// vector for the three axes and as a point for the translation.
//
//===----------------------------------------------------------------------===//
#include "base/linear/AffineMatrix.h"

#include <algorithm>
#include <cmath>

namespace qoLinear {
namespace {

// Linear part given in column-vector form R (R[r][c]): storage wants
// A(r, c) = R[r][c], which is M[3c + r].
AffineMatrix fromColumnForm(const double (&R)[3][3]) {
  AffineMatrix Out;
  for (int Row = 0; Row < 3; ++Row)
    for (int Col = 0; Col < 3; ++Col)
      Out(Row, Col) = R[Row][Col];
  return Out;
}

Vector rowOf(const double *M, int Row) {
  return {M[3 * Row], M[3 * Row + 1], M[3 * Row + 2]};
}

// The adjugate's transposed rows: the cross products of pairs of axis images.
// Dividing them by the determinant gives the columns of the inverse of the
// linear part.
void cofactorColumns(const double *M, Vector (&C)[3]) {
  const Vector A0 = rowOf(M, 0), A1 = rowOf(M, 1), A2 = rowOf(M, 2);
  C[0] = cross(A1, A2);
  C[1] = cross(A2, A0);
  C[2] = cross(A0, A1);
}

} // namespace

AffineMatrix AffineMatrix::fromData(const double *Coefficients) {
  AffineMatrix Out;
  for (int I = 0; I < Size; ++I)
    Out.M[I] = Coefficients[I];
  return Out;
}

AffineMatrix AffineMatrix::fromAxes(const Vector &X, const Vector &Y,
                                    const Vector &Z, const Point &Origin) {
  AffineMatrix Out;
  Out.setAxis(0, X);
  Out.setAxis(1, Y);
  Out.setAxis(2, Z);
  Out.setTranslationPart(Origin.toVector());
  return Out;
}

AffineMatrix AffineMatrix::translation(const Vector &V) {
  AffineMatrix Out;
  Out.setTranslationPart(V);
  return Out;
}

AffineMatrix AffineMatrix::rotation(double Angle, const Line &Axis) {
  if (!Axis.valid())
    return AffineMatrix();
  const Vector Offset = Axis.point().toVector();
  AffineMatrix Out = translation(-Offset);
  Out *=
      rotation(Angle, Normal::fromUnit(Axis.direction().X, Axis.direction().Y,
                                       Axis.direction().Z));
  Out.translate(Offset);
  return Out;
}

// Rodrigues' formula in column-vector form:
// R = cos I + sin [u]x + (1 - cos) u u^T.
AffineMatrix AffineMatrix::rotation(double Angle, const Normal &Axis) {
  if (Axis.isZero())
    return AffineMatrix();
  const double C = std::cos(Angle), S = std::sin(Angle), T = 1 - C;
  const double X = Axis.x(), Y = Axis.y(), Z = Axis.z();
  const double R[3][3] = {
      {C + X * X * T, X * Y * T - Z * S, X * Z * T + Y * S},
      {Y * X * T + Z * S, C + Y * Y * T, Y * Z * T - X * S},
      {Z * X * T - Y * S, Z * Y * T + X * S, C + Z * Z * T}};
  return fromColumnForm(R);
}

// The axis-aligned rotations are spelled out so that the untouched axis stays
// exactly 1 (Rodrigues gives cos + (1 - cos), which may round).
AffineMatrix AffineMatrix::rotationX(double Angle) {
  const double C = std::cos(Angle), S = std::sin(Angle);
  const double R[3][3] = {{1, 0, 0}, {0, C, -S}, {0, S, C}};
  return fromColumnForm(R);
}

AffineMatrix AffineMatrix::rotationY(double Angle) {
  const double C = std::cos(Angle), S = std::sin(Angle);
  const double R[3][3] = {{C, 0, S}, {0, 1, 0}, {-S, 0, C}};
  return fromColumnForm(R);
}

AffineMatrix AffineMatrix::rotationZ(double Angle) {
  const double C = std::cos(Angle), S = std::sin(Angle);
  const double R[3][3] = {{C, -S, 0}, {S, C, 0}, {0, 0, 1}};
  return fromColumnForm(R);
}

AffineMatrix AffineMatrix::scaling(double SX, double SY, double SZ) {
  AffineMatrix Out;
  Out.M[0] = SX;
  Out.M[4] = SY;
  Out.M[8] = SZ;
  return Out;
}

void AffineMatrix::setAxis(int I, const Vector &V) {
  assert(I >= 0 && I < 3 && "axis out of range");
  M[3 * I] = V.X;
  M[3 * I + 1] = V.Y;
  M[3 * I + 2] = V.Z;
}

void AffineMatrix::setTranslationPart(const Vector &V) {
  M[9] = V.X;
  M[10] = V.Y;
  M[11] = V.Z;
}

AffineMatrix &AffineMatrix::translate(const Vector &V) {
  M[9] += V.X;
  M[10] += V.Y;
  M[11] += V.Z;
  return *this;
}

AffineMatrix &AffineMatrix::rotate(double Angle, const Line &Axis) {
  return *this *= rotation(Angle, Axis);
}

AffineMatrix &AffineMatrix::rotate(double Angle, const Normal &Axis) {
  return *this *= rotation(Angle, Axis);
}

AffineMatrix &AffineMatrix::rotateX(double Angle) {
  return *this *= rotationX(Angle);
}

AffineMatrix &AffineMatrix::rotateY(double Angle) {
  return *this *= rotationY(Angle);
}

AffineMatrix &AffineMatrix::rotateZ(double Angle) {
  return *this *= rotationZ(Angle);
}

// Scaling afterwards scales every row's components.
AffineMatrix &AffineMatrix::scale(double SX, double SY, double SZ) {
  for (int Row = 0; Row < 4; ++Row) {
    M[3 * Row] *= SX;
    M[3 * Row + 1] *= SY;
    M[3 * Row + 2] *= SZ;
  }
  return *this;
}

AffineMatrix &AffineMatrix::preMult(const AffineMatrix &First) {
  return *this = First * *this;
}

AffineMatrix &AffineMatrix::operator*=(const AffineMatrix &Then) {
  return *this = *this * Then;
}

AffineMatrix operator*(const AffineMatrix &First, const AffineMatrix &Then) {
  AffineMatrix Out;
  for (int Row = 0; Row < 3; ++Row) {
    const Vector V = rowOf(First.M, Row) * Then;
    Out.M[3 * Row] = V.X;
    Out.M[3 * Row + 1] = V.Y;
    Out.M[3 * Row + 2] = V.Z;
  }
  Out.setTranslationPart((Point(First.translationPart()) * Then).toVector());
  return Out;
}

AffineMatrix &AffineMatrix::operator+=(const AffineMatrix &B) {
  for (int I = 0; I < Size; ++I)
    M[I] += B.M[I];
  return *this;
}

AffineMatrix &AffineMatrix::operator-=(const AffineMatrix &B) {
  for (int I = 0; I < Size; ++I)
    M[I] -= B.M[I];
  return *this;
}

double AffineMatrix::determinant() const {
  return dot(rowOf(M, 0), cross(rowOf(M, 1), rowOf(M, 2)));
}

// Linear part L with rows a0..a2: the inverse's columns are the cofactor
// vectors over det. The translation t becomes -t L^-1, so that
// (p L + t) L^-1 - t L^-1 == p.
AffineMatrix AffineMatrix::inverse() const {
  const double Det = determinant();
  if (Det == 0 || !std::isfinite(1 / Det))
    return AffineMatrix();
  Vector C[3];
  cofactorColumns(M, C);
  AffineMatrix Out;
  for (int Row = 0; Row < 3; ++Row)
    for (int Col = 0; Col < 3; ++Col)
      Out.M[3 * Row + Col] = C[Col][Row] / Det;
  Out.setTranslationPart(-(translationPart() * Out));
  return Out;
}

bool AffineMatrix::invert() {
  const double Det = determinant();
  if (Det == 0 || !std::isfinite(1 / Det))
    return false;
  *this = inverse();
  return true;
}

bool operator==(const AffineMatrix &A, const AffineMatrix &B) {
  for (int I = 0; I < AffineMatrix::Size; ++I)
    if (A.M[I] != B.M[I])
      return false;
  return true;
}

Point operator*(const Point &P, const AffineMatrix &M) {
  const double *A = M.data();
  return {P.X * A[0] + P.Y * A[3] + P.Z * A[6] + A[9],
          P.X * A[1] + P.Y * A[4] + P.Z * A[7] + A[10],
          P.X * A[2] + P.Y * A[5] + P.Z * A[8] + A[11]};
}

Vector operator*(const Vector &V, const AffineMatrix &M) {
  const double *A = M.data();
  return {V.X * A[0] + V.Y * A[3] + V.Z * A[6],
          V.X * A[1] + V.Y * A[4] + V.Z * A[7],
          V.X * A[2] + V.Y * A[5] + V.Z * A[8]};
}

// n (L^-1)^T: row j of (L^-1)^T is cofactor column j over det. Only the sign
// of det survives the renormalisation; keeping it keeps a mirrored normal
// pointing to the mirrored outside. A singular matrix uses the cofactors
// alone, which still give the right normal when one axis collapses.
Normal operator*(const Normal &N, const AffineMatrix &M) {
  Vector C[3];
  cofactorColumns(M.data(), C);
  const Vector Out = C[0] * N.x() + C[1] * N.y() + C[2] * N.z();
  return Normal(M.determinant() < 0 ? -Out : Out);
}

Line operator*(const Line &L, const AffineMatrix &M) {
  if (!L.valid()) {
    Line Out;
    Out.setPoint(L.point() * M);
    return Out;
  }
  return {L.point() * M, L.direction() * M};
}

ParamLine operator*(const ParamLine &L, const AffineMatrix &M) {
  return {L.Origin * M, L.Direction * M};
}

Plane operator*(const Plane &P, const AffineMatrix &M) {
  return {P.point() * M, P.normal() * M};
}

// Each output coordinate is a sum of independent terms, one per input axis,
// so its extremes come from taking each term's smaller or larger end.
Range3d operator*(const Range3d &R, const AffineMatrix &M) {
  if (R.empty())
    return R;
  const Point Moved(M.translationPart());
  Range3d Out(Moved, Moved);
  for (int To = 0; To < 3; ++To)
    for (int From = 0; From < 3; ++From) {
      const double A = M(To, From) * R.Min[From];
      const double B = M(To, From) * R.Max[From];
      Out.Min[To] += std::min(A, B);
      Out.Max[To] += std::max(A, B);
    }
  return Out;
}

} // namespace qoLinear
