#include "base/linear/AffineMatrix.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace qoLinear;

namespace {

constexpr double Tolerance = 1e-12;
const double QuarterTurn = std::acos(0.0);

void expectNear(const Point &Expected, const Point &Actual,
                double Tol = Tolerance) {
  EXPECT_NEAR(Expected.X, Actual.X, Tol);
  EXPECT_NEAR(Expected.Y, Actual.Y, Tol);
  EXPECT_NEAR(Expected.Z, Actual.Z, Tol);
}

void expectNear(const Vector &Expected, const Vector &Actual,
                double Tol = Tolerance) {
  expectNear(Point(Expected), Point(Actual), Tol);
}

void expectNear(const AffineMatrix &Expected, const AffineMatrix &Actual,
                double Tol = Tolerance) {
  for (int I = 0; I < AffineMatrix::Size; ++I)
    EXPECT_NEAR(Expected[I], Actual[I], Tol) << "coefficient " << I;
}

// Rotations, scales between 0.5 and 2 and translations: condition numbers
// stay small, so products with the inverse must come back to the identity.
AffineMatrix randomWellConditioned(std::mt19937 &Rng) {
  std::uniform_real_distribution<double> Angle(-3.0, 3.0), Factor(0.5, 2.0),
      Offset(-10.0, 10.0);
  AffineMatrix M = AffineMatrix::rotationX(Angle(Rng));
  M.scale(Factor(Rng), Factor(Rng), Factor(Rng));
  M.rotateY(Angle(Rng));
  M.rotateZ(Angle(Rng));
  M.translate(Vector(Offset(Rng), Offset(Rng), Offset(Rng)));
  return M;
}

} // namespace

TEST(AffineMatrix, StoresThreeByFourColumnByColumn) {
  const AffineMatrix T = AffineMatrix::translation(Vector(1, 2, 3));
  const double Expected[12] = {1, 0, 0, 0, 1, 0, 0, 0, 1, 1, 2, 3};
  for (int I = 0; I < 12; ++I)
    EXPECT_EQ(Expected[I], T.data()[I]) << I;
  EXPECT_EQ(2, T(1, 3));

  // Rows r of the 3x4 form are written with operator()(r, c); storage is
  // column by column, so element 3c + r.
  AffineMatrix M;
  double Next = 1;
  for (int Row = 0; Row < 3; ++Row)
    for (int Col = 0; Col < 4; ++Col)
      M(Row, Col) = Next++;
  const double Flat[12] = {1, 5, 9, 2, 6, 10, 3, 7, 11, 4, 8, 12};
  for (int I = 0; I < 12; ++I)
    EXPECT_EQ(Flat[I], M[I]) << I;
  // Row r gives output coordinate r: p' = A [x y z 1]^T.
  EXPECT_EQ(Point(1 + 4, 5 + 8, 9 + 12), Point(1, 0, 0) * M);
  EXPECT_EQ(Vector(3, 7, 11), Vector(0, 0, 1) * M);

  const AffineMatrix Frame = AffineMatrix::fromAxes(
      Vector(1, 2, 3), Vector(4, 5, 6), Vector(7, 8, 9), Point(10, 11, 12));
  for (int I = 0; I < 12; ++I)
    EXPECT_EQ(I + 1, Frame[I]) << I;
}

// Row vectors: A * B is "first A, then B", and every mutator appends.
TEST(AffineMatrix, ComposesLeftFactorFirst) {
  const AffineMatrix T = AffineMatrix::translation(Vector(1, 0, 0));
  const AffineMatrix R = AffineMatrix::rotationZ(QuarterTurn);
  const Point P(1, 0, 0);

  expectNear(Point(0, 2, 0), P * (T * R));
  expectNear(Point(1, 1, 0), P * (R * T));

  AffineMatrix Appended = T;
  Appended *= R;
  expectNear(T * R, Appended);
  AffineMatrix Mutated = T;
  Mutated.rotateZ(QuarterTurn);
  expectNear(T * R, Mutated);
  AffineMatrix Prepended = R;
  Prepended.preMult(T);
  expectNear(T * R, Prepended);
  AffineMatrix Translated = R;
  Translated.translate(Vector(1, 0, 0));
  expectNear(R * T, Translated);

  AffineMatrix Scaled = R;
  Scaled.translate(Vector(1, 2, 3)).scale(2, 3, 4);
  expectNear(R * AffineMatrix::translation(Vector(1, 2, 3)) *
                 AffineMatrix::scaling(2, 3, 4),
             Scaled);
}

TEST(AffineMatrix, RotatesRightHandedAboutAnOffOriginLine) {
  const Line Axis(Point(1, 1, 0), Vector(0, 0, 5));
  const AffineMatrix R = AffineMatrix::rotation(QuarterTurn, Axis);
  // (2, 1) is one unit along +x from the axis; a positive quarter turn about
  // +z takes it one unit along +y.
  expectNear(Point(1, 2, 5), Point(2, 1, 5) * R);
  expectNear(Point(1, 1, -3), Point(1, 1, -3) * R);
  expectNear(Vector(0, 1, 0), Vector(1, 0, 0) * R);

  // A third of a turn about the main diagonal cycles the axes.
  const AffineMatrix Cycle =
      AffineMatrix::rotation(4 * QuarterTurn / 3, Normal(1, 1, 1));
  expectNear(Point(0, 1, 0), Point(1, 0, 0) * Cycle);
  expectNear(Point(0, 0, 1), Point(0, 1, 0) * Cycle);

  EXPECT_TRUE(AffineMatrix::rotation(1.0, Line()).isIdentity());
}

TEST(AffineMatrix, AxisRotationsMatchTheGeneralRotation) {
  for (double Angle : {0.3, -1.2, 2.9}) {
    expectNear(AffineMatrix::rotation(Angle, Normal(1, 0, 0)),
               AffineMatrix::rotationX(Angle));
    expectNear(AffineMatrix::rotation(Angle, Normal(0, 1, 0)),
               AffineMatrix::rotationY(Angle));
    expectNear(AffineMatrix::rotation(Angle, Normal(0, 0, 1)),
               AffineMatrix::rotationZ(Angle));
  }
  expectNear(Point(0, 0, 1),
             Point(0, 1, 0) * AffineMatrix::rotationX(QuarterTurn));
  expectNear(Point(1, 0, 0),
             Point(0, 0, 1) * AffineMatrix::rotationY(QuarterTurn));
}

TEST(AffineMatrix, InverseUndoesWellConditionedMatrices) {
  std::mt19937 Rng(7);
  for (int I = 0; I < 200; ++I) {
    const AffineMatrix M = randomWellConditioned(Rng);
    const AffineMatrix Inv = M.inverse();
    expectNear(AffineMatrix(), M * Inv, 1e-11);
    expectNear(AffineMatrix(), Inv * M, 1e-11);
    const Point P(1.5, -2, 3);
    expectNear(P, P * M * Inv, 1e-11);
  }
}

TEST(AffineMatrix, SingularMatrixHasNoInverse) {
  AffineMatrix Flat = AffineMatrix::scaling(1, 1, 0);
  Flat.translate(Vector(1, 2, 3));
  EXPECT_EQ(0, Flat.determinant());
  EXPECT_TRUE(Flat.inverse().isIdentity());
  const AffineMatrix Before = Flat;
  EXPECT_FALSE(Flat.invert());
  EXPECT_EQ(Before, Flat);

  AffineMatrix Mirror = AffineMatrix::scaling(-2, 1, 1);
  EXPECT_LT(Mirror.determinant(), 0);
  EXPECT_TRUE(Mirror.invert());
  expectNear(AffineMatrix::scaling(-0.5, 1, 1), Mirror);
}

TEST(AffineMatrix, VectorsIgnoreTranslation) {
  AffineMatrix M = AffineMatrix::scaling(2);
  M.translate(Vector(5, 6, 7));
  EXPECT_EQ(Vector(2, 0, 0), Vector(1, 0, 0) * M);
  EXPECT_EQ(Point(7, 6, 7), Point(1, 0, 0) * M);
}

// A normal must stay perpendicular to the transformed surface, which the
// plain linear part does not achieve under a non-uniform scale.
TEST(AffineMatrix, NormalsStayPerpendicularUnderNonUniformScale) {
  AffineMatrix M = AffineMatrix::scaling(2, 1, 1);
  M.translate(Vector(3, 3, 3));
  const Normal N(1, 1, 0);
  const Vector Tangent = Vector(1, -1, 0) * M; // (2, -1, 0)
  const Normal Moved = N * M;
  EXPECT_NEAR(0, dot(Moved, Tangent), Tolerance);
  EXPECT_NEAR(1, Moved.toVector().length(), Tolerance);
  expectNear(Normal(0.5, 1, 0).toVector(), Moved.toVector());

  // A mirror keeps the normal on the mirrored outside.
  expectNear(Vector(-1, 0, 0),
             (Normal(1, 0, 0) * AffineMatrix::scaling(-3, 1, 1)).toVector());
  // A collapsed axis still gives the surface's normal.
  expectNear(Vector(0, 0, 1),
             (Normal(0, 0, 1) * AffineMatrix::scaling(1, 1, 0)).toVector());
}

TEST(AffineMatrix, TransformsPlanesLinesAndBoxes) {
  AffineMatrix M = AffineMatrix::scaling(1, 1, 2);
  M.translate(Vector(0, 0, 1));
  const Plane Moved = Plane(Normal(0, 0, 1), 1.0) * M;
  EXPECT_NEAR(3, Moved.offset(), Tolerance);
  expectNear(Vector(0, 0, 1), Moved.normal().toVector());

  const Line L = Line(Point(1, 0, 0), Vector(0, 0, 1)) * M;
  EXPECT_TRUE(L.valid());
  expectNear(Point(1, 0, 1), L.point());
  EXPECT_FALSE((Line() * M).valid());

  const Range3d Unit(Point(0, 0, 0), Point(1, 1, 1));
  const Range3d Turned =
      Unit * AffineMatrix::rotation(QuarterTurn / 2, Normal(0, 0, 1));
  const double H = std::sqrt(0.5);
  expectNear(Point(-H, 0, 0), Turned.Min);
  expectNear(Point(H, 2 * H, 1), Turned.Max);
  const Range3d Stretched = Unit * M;
  expectNear(Point(0, 0, 1), Stretched.Min);
  expectNear(Point(1, 1, 3), Stretched.Max);
  EXPECT_TRUE((Range3d() * M).empty());
}

TEST(AffineMatrix, AddsAndSubtractsCoefficientWise) {
  const AffineMatrix A = AffineMatrix::translation(Vector(1, 2, 3));
  const AffineMatrix Sum = A + A;
  EXPECT_EQ(2, Sum(0, 0));
  EXPECT_EQ(6, Sum(2, 3));
  EXPECT_EQ(A, Sum - A);
}
