#include "base/linear/AffineMatrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace qoLinear;

namespace {

constexpr double Tolerance = 1e-11;
const double QuarterTurn = std::acos(0.0);

// Points and vectors alike: the difference is a vector.
template <class T> void expectNear(const T &Expected, const T &Actual) {
  EXPECT_LT((Expected - Actual).length(), Tolerance)
      << "(" << Actual.X << ", " << Actual.Y << ", " << Actual.Z << ")";
}

void expectNear(const AffineMatrix &Expected, const AffineMatrix &Actual) {
  for (int I = 0; I < AffineMatrix::Size; ++I)
    EXPECT_NEAR(Expected[I], Actual[I], Tolerance) << "coefficient " << I;
}

} // namespace

// Element (r, c) of the 3x4 form is stored at 3c + r.
TEST(AffineMatrix, StoresThreeByFourColumnByColumn) {
  AffineMatrix M;
  double Next = 1;
  for (int Row = 0; Row < 3; ++Row)
    for (int Col = 0; Col < 4; ++Col)
      M(Row, Col) = Next++;
  const double Flat[12] = {1, 5, 9, 2, 6, 10, 3, 7, 11, 4, 8, 12};
  for (int I = 0; I < 12; ++I)
    EXPECT_EQ(Flat[I], M.data()[I]) << I;
  // Row r gives output coordinate r; vectors ignore the translation column.
  EXPECT_EQ(Point(1 + 4, 5 + 8, 9 + 12), Point(1, 0, 0) * M);
  EXPECT_EQ(Vector(3, 7, 11), Vector(0, 0, 1) * M);
}

// Row vectors: A * B is "first A, then B", and every mutator appends.
TEST(AffineMatrix, ComposesLeftFactorFirst) {
  const AffineMatrix T = AffineMatrix::translation(Vector(1, 0, 0));
  const AffineMatrix R = AffineMatrix::rotationZ(QuarterTurn);
  expectNear(Point(0, 2, 0), Point(1, 0, 0) * (T * R));

  AffineMatrix Appended = T, Mutated = T, Prepended = R;
  Appended *= R;
  Mutated.rotateZ(QuarterTurn);
  Prepended.preMult(T);
  expectNear(T * R, Appended);
  expectNear(T * R, Mutated);
  expectNear(T * R, Prepended);
}

TEST(AffineMatrix, RotatesRightHandedAboutAnOffOriginLine) {
  const AffineMatrix R = AffineMatrix::rotation(
      QuarterTurn, Line(Point(1, 1, 0), Vector(0, 0, 5)));
  // (2, 1) is one unit along +x from the axis; a positive quarter turn about
  // +z takes it one unit along +y.
  expectNear(Point(1, 2, 5), Point(2, 1, 5) * R);
  expectNear(Point(1, 1, -3), Point(1, 1, -3) * R);
  expectNear(Vector(0, 1, 0), Vector(1, 0, 0) * R);
  expectNear(AffineMatrix::rotation(0.3, Normal(0, 1, 0)),
             AffineMatrix::rotationY(0.3));
}

// Rotations, scales between 0.5 and 2 and translations keep the condition
// number small, so products with the inverse come back to the identity.
TEST(AffineMatrix, InverseTimesMatrixIsIdentity) {
  std::mt19937 Rng(7);
  std::uniform_real_distribution<double> Angle(-3.0, 3.0), Factor(0.5, 2.0);
  for (int I = 0; I < 200; ++I) {
    AffineMatrix M = AffineMatrix::rotationX(Angle(Rng));
    M.scale(Factor(Rng), Factor(Rng), Factor(Rng)).rotateY(Angle(Rng));
    M.rotateZ(Angle(Rng)).translate(Vector(Angle(Rng), Angle(Rng), 9));
    expectNear(AffineMatrix(), M * M.inverse());
  }
  AffineMatrix Flat = AffineMatrix::scaling(1, 1, 0);
  EXPECT_FALSE(Flat.invert());
  EXPECT_EQ(AffineMatrix::scaling(1, 1, 0), Flat) << "left unchanged";
}

// A normal must stay perpendicular to the transformed surface, which the
// plain linear part does not achieve under a non-uniform scale. A mirror
// keeps it on the mirrored outside; a collapsed axis still gives the
// surface's normal.
TEST(AffineMatrix, NormalsStayPerpendicularUnderNonUniformScale) {
  AffineMatrix M = AffineMatrix::scaling(2, 1, 1);
  M.translate(Vector(3, 3, 3));
  const Normal Moved = Normal(1, 1, 0) * M;
  EXPECT_NEAR(0, dot(Moved, Vector(1, -1, 0) * M), Tolerance);
  expectNear(Normal(0.5, 1, 0).toVector(), Moved.toVector());
  expectNear(Vector(-1, 0, 0),
             (Normal(1, 0, 0) * AffineMatrix::scaling(-3, 1, 1)).toVector());
  expectNear(Vector(0, 0, 1),
             (Normal(0, 0, 1) * AffineMatrix::scaling(1, 1, 0)).toVector());
}
