#include "base/linear/Point2.h"
#include "base/linear/Quaternion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <type_traits>

using namespace qoLinear;

namespace {

constexpr double Tolerance = 1e-12;
const double Pi = std::acos(-1.0);

// Recorded fields are saved and restored as raw bytes in declaration order.
template <class T, std::size_t Bytes> constexpr bool rawValue() {
  return std::is_trivially_copyable_v<T> && std::is_standard_layout_v<T> &&
         sizeof(T) == Bytes;
}
static_assert(rawValue<Point, 24>() && rawValue<Vector, 24>() &&
              rawValue<Normal, 24>() && rawValue<Point2, 16>() &&
              rawValue<Pointf, 12>() && rawValue<Point2f, 8>() &&
              rawValue<AffineMatrix, 96>() && rawValue<Quaternion, 32>() &&
              rawValue<Range3d, 48>() && rawValue<Range1d, 16>());

void expectNear(const AffineMatrix &Expected, const AffineMatrix &Actual) {
  for (int I = 0; I < AffineMatrix::Size; ++I)
    EXPECT_NEAR(Expected[I], Actual[I], Tolerance) << "coefficient " << I;
}

// q and -q are the same rotation.
void expectSameRotation(const Quaternion &A, const Quaternion &B) {
  EXPECT_NEAR(1, std::fabs(dot(A.normalized(), B.normalized())), Tolerance);
}

} // namespace

TEST(LinearTypes, NormalsAndLinesDegradeToZeroNotNaN) {
  EXPECT_EQ(Normal::fromUnit(0.6, 0, 0.8), Normal(3, 0, 4));
  EXPECT_TRUE(Normal(0, 0, 0).isZero());
  EXPECT_TRUE(Normal(std::numeric_limits<double>::quiet_NaN(), 0, 0).isZero());
  EXPECT_EQ(Vector(), Vector().normalized());
  EXPECT_FALSE(Line(Point(1, 1, 1), Vector()).valid());

  const Plane Ground(Normal(0, 0, 1), 2.0);
  Point Hit;
  ASSERT_TRUE(Ground.intersect(Line(Point(), Vector(1, 0, 1)), Hit));
  EXPECT_NEAR(2, Hit.X, Tolerance);
  Point Untouched(-1, -1, -1);
  EXPECT_FALSE(Ground.intersect(Line(Point(), Vector(1, 1, 0)), Untouched));
  EXPECT_FALSE(Ground.intersect(Line(), Untouched));
  EXPECT_EQ(Point(-1, -1, -1), Untouched);
}

TEST(LinearTypes, EmptyRangesHoldNothingAndChangeNothing) {
  Range1d R(1, 0);
  EXPECT_FALSE(R.contains(0.5));
  EXPECT_FALSE(Range1d(0, 0).empty());
  R.extend(5).extend(6).extend(Range1d(1, 0));
  EXPECT_EQ(Range1d(5, 6), R);
  EXPECT_TRUE(R.intersected(Range1d(7, 9)).empty());
  Range3d Box;
  EXPECT_FALSE(Box.contains(Point()));
  Box.extend(Point(1, 2, 3)).extend(Point(-1, 0, 5));
  EXPECT_EQ(Range3d(Point(-1, 0, 3), Point(1, 2, 5)), united(Range3d(), Box));
}

TEST(Quaternion, AgreesWithMatrixRotations) {
  EXPECT_NEAR(1, Quaternion::fromAxisAngle(Normal(0, 0, 1), Pi)[2], Tolerance)
      << "vector part first, then the scalar";
  std::mt19937 Rng(3);
  std::normal_distribution<double> Coordinate;
  std::uniform_real_distribution<double> Angle(-Pi, Pi);
  for (int I = 0; I < 50; ++I) {
    const Normal Axis(Coordinate(Rng), Coordinate(Rng), Coordinate(Rng));
    const double A = Angle(Rng);
    const Quaternion Q = Quaternion::fromAxisAngle(Axis, A);
    expectNear(AffineMatrix::rotation(A, Axis), Q.toMatrix());
    const Vector V(0.3, -1.1, 2.0);
    EXPECT_LT((V * Q.toMatrix() - Q.rotate(V)).length(), Tolerance);
  }
}

// P * Q rotates by Q first: in row-vector matrices that is Q's matrix on the
// left. Angles near a half turn reach the branches of the matrix conversion
// that do not start from the trace.
TEST(Quaternion, ComposesAndRoundTripsThroughMatrices) {
  const Quaternion P = Quaternion::fromAxisAngle(Normal(1, 0, 0), 0.7);
  const Quaternion Q = Quaternion::fromAxisAngle(Normal(0, 1, 0), -1.3);
  expectNear(Q.toMatrix() * P.toMatrix(), (P * Q).toMatrix());
  expectSameRotation(Quaternion(), P * P.inverse());
  for (const Normal &Axis :
       {Normal(1, 0, 0), Normal(0, 1, 0), Normal(0, 0, 1), Normal(1, -2, 0.5)})
    for (double A : {0.0, 0.4, -2.0, Pi, -Pi + 1e-9}) {
      const Quaternion R = Quaternion::fromAxisAngle(Axis, A);
      expectSameRotation(R, Quaternion::fromMatrix(R.toMatrix()));
    }
}

TEST(Quaternion, SlerpFollowsTheShorterArc) {
  const Quaternion A;
  const Quaternion B = Quaternion::fromAxisAngle(Normal(0, 0, 1), 1.0);
  const Quaternion Flipped(-B.X, -B.Y, -B.Z, -B.W);
  expectSameRotation(Quaternion::fromAxisAngle(Normal(0, 0, 1), 0.5),
                     slerp(A, Flipped, 0.5));
  // Nearly equal ends take the linear path and stay finite.
  const Quaternion Near = Quaternion::fromAxisAngle(Normal(0, 0, 1), 1e-9);
  EXPECT_TRUE(std::isfinite(slerp(A, Near, 0.5).W));
}
