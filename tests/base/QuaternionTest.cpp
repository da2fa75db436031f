#include "base/linear/Quaternion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace qoLinear;

namespace {

constexpr double Tolerance = 1e-12;
const double Pi = std::acos(-1.0);

void expectNear(const AffineMatrix &Expected, const AffineMatrix &Actual) {
  for (int I = 0; I < AffineMatrix::Size; ++I)
    EXPECT_NEAR(Expected[I], Actual[I], Tolerance) << "coefficient " << I;
}

// q and -q are the same rotation.
void expectSameRotation(const Quaternion &A, const Quaternion &B) {
  EXPECT_NEAR(1, std::fabs(dot(A.normalized(), B.normalized())), Tolerance);
}

Normal randomAxis(std::mt19937 &Rng) {
  std::normal_distribution<double> D;
  return Normal(D(Rng), D(Rng), D(Rng));
}

} // namespace

TEST(Quaternion, StoresVectorPartThenScalar) {
  const Quaternion Q;
  EXPECT_EQ(0, Q[0]);
  EXPECT_EQ(1, Q[3]);
  const Quaternion Half = Quaternion::fromAxisAngle(Normal(0, 0, 1), Pi);
  EXPECT_NEAR(1, Half[2], Tolerance);
  EXPECT_NEAR(0, Half[3], Tolerance);
}

TEST(Quaternion, AgreesWithMatrixRotations) {
  std::mt19937 Rng(3);
  std::uniform_real_distribution<double> Angle(-Pi, Pi);
  for (int I = 0; I < 50; ++I) {
    const Normal Axis = randomAxis(Rng);
    const double A = Angle(Rng);
    const Quaternion Q = Quaternion::fromAxisAngle(Axis, A);
    expectNear(AffineMatrix::rotation(A, Axis), Q.toMatrix());
    const Vector V(0.3, -1.1, 2.0);
    const Vector ByMatrix = V * Q.toMatrix();
    const Vector ByQuaternion = Q.rotate(V);
    EXPECT_NEAR(ByMatrix.X, ByQuaternion.X, Tolerance);
    EXPECT_NEAR(ByMatrix.Y, ByQuaternion.Y, Tolerance);
    EXPECT_NEAR(ByMatrix.Z, ByQuaternion.Z, Tolerance);
  }
}

// P * Q rotates by Q first: in row-vector matrices that is Q's matrix on the
// left.
TEST(Quaternion, ProductAppliesRightFactorFirst) {
  const Quaternion P = Quaternion::fromAxisAngle(Normal(1, 0, 0), 0.7);
  const Quaternion Q = Quaternion::fromAxisAngle(Normal(0, 1, 0), -1.3);
  expectNear(Q.toMatrix() * P.toMatrix(), (P * Q).toMatrix());
  expectSameRotation(Quaternion(), P * P.inverse());
}

// Angles near a half turn reach the branches of the conversion that do not
// start from the trace.
TEST(Quaternion, RoundTripsThroughMatrices) {
  std::mt19937 Rng(11);
  for (double A : {0.0, 0.4, -2.0, 3.0, Pi, -Pi + 1e-9}) {
    const Quaternion Q = Quaternion::fromAxisAngle(randomAxis(Rng), A);
    expectSameRotation(Q, Quaternion::fromMatrix(Q.toMatrix()));
  }
  for (const Normal &Axis :
       {Normal(1, 0, 0), Normal(0, 1, 0), Normal(0, 0, 1)}) {
    const Quaternion Q = Quaternion::fromAxisAngle(Axis, Pi);
    expectSameRotation(Q, Quaternion::fromMatrix(Q.toMatrix()));
  }

  Normal Axis;
  double Angle = 0;
  Quaternion::fromAxisAngle(Normal(0, 3, 4), 1.25).toAxisAngle(Axis, Angle);
  EXPECT_NEAR(1.25, Angle, Tolerance);
  EXPECT_NEAR(0.6, Axis.y(), Tolerance);
  EXPECT_NEAR(0.8, Axis.z(), Tolerance);
}

TEST(Quaternion, SlerpFollowsTheShorterArc) {
  const Quaternion A;
  const Quaternion B = Quaternion::fromAxisAngle(Normal(0, 0, 1), 1.0);
  expectSameRotation(A, slerp(A, B, 0));
  expectSameRotation(B, slerp(A, B, 1));
  expectSameRotation(Quaternion::fromAxisAngle(Normal(0, 0, 1), 0.25),
                     slerp(A, B, 0.25));
  const Quaternion Flipped(-B.X, -B.Y, -B.Z, -B.W);
  expectSameRotation(Quaternion::fromAxisAngle(Normal(0, 0, 1), 0.5),
                     slerp(A, Flipped, 0.5));
  // Nearly equal ends take the linear path and stay finite.
  const Quaternion Near = Quaternion::fromAxisAngle(Normal(0, 0, 1), 1e-9);
  EXPECT_TRUE(std::isfinite(slerp(A, Near, 0.5).W));
}
