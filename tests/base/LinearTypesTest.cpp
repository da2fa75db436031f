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
static_assert(rawValue<Point, 24>() && rawValue<Normal, 24>() &&
              rawValue<Point2, 16>() && rawValue<Pointf, 12>() &&
              rawValue<AffineMatrix, 96>() && rawValue<Quaternion, 32>() &&
              rawValue<Range3d, 48>() && rawValue<Range1d, 16>());

// q and -q are the same rotation.
void expectSameRotation(const Quaternion &A, const Quaternion &B) {
  EXPECT_NEAR(1, std::fabs(dot(A.normalized(), B.normalized())), Tolerance);
}

} // namespace

// A miss leaves the output point untouched.
TEST(LinearTypes, DegenerateNormalsAndLinesGiveNoNaNs) {
  EXPECT_TRUE(Normal(std::numeric_limits<double>::quiet_NaN(), 0, 0).isZero());
  EXPECT_EQ(Vector(), Vector().normalized());
  Point Untouched(-1, -1, -1);
  const Plane Ground(Normal(0, 0, 1), 2.0);
  EXPECT_FALSE(Ground.intersect(Line(Point(), Vector(1, 1, 0)), Untouched));
  EXPECT_FALSE(Ground.intersect(Line(), Untouched));
  EXPECT_EQ(Point(-1, -1, -1), Untouched);
}

// P * Q rotates by Q first: in row-vector matrices that is Q's matrix on the
// left. Angles near a half turn reach the branches of the matrix conversion
// that do not start from the trace.
TEST(Quaternion, AgreesWithMatrixRotationsAndRoundTrips) {
  EXPECT_NEAR(1, Quaternion::fromAxisAngle(Normal(0, 0, 1), Pi)[2], Tolerance)
      << "vector part first, then the scalar";
  std::mt19937 Rng(3);
  std::normal_distribution<double> Coordinate;
  std::uniform_real_distribution<double> Angle(-Pi, Pi);
  for (int I = 0; I < 50; ++I) {
    const Normal Axis(Coordinate(Rng), Coordinate(Rng), Coordinate(Rng));
    const double A = Angle(Rng);
    const Quaternion Q = Quaternion::fromAxisAngle(Axis, A);
    const Vector V(0.3, -1.1, 2.0),
        Expected = V * AffineMatrix::rotation(A, Axis);
    EXPECT_LT((Expected - V * Q.toMatrix()).length(), Tolerance);
    EXPECT_LT((Expected - Q.rotate(V)).length(), Tolerance);
  }
  const Quaternion P = Quaternion::fromAxisAngle(Normal(1, 0, 0), 0.7);
  const Quaternion Q = Quaternion::fromAxisAngle(Normal(0, 1, 0), -1.3);
  const Vector V(0.3, -1.1, 2.0);
  EXPECT_LT((V * Q.toMatrix() * P.toMatrix() - (P * Q).rotate(V)).length(),
            Tolerance);
  for (const Normal &Axis : {Normal(1, 0, 0), Normal(0, 1, 0), Normal(0, 0, 1)})
    for (double A : {0.4, Pi, -Pi + 1e-9}) {
      const Quaternion R = Quaternion::fromAxisAngle(Axis, A);
      expectSameRotation(R, Quaternion::fromMatrix(R.toMatrix()));
    }
}

TEST(Quaternion, SlerpFollowsTheShorterArc) {
  const Quaternion B = Quaternion::fromAxisAngle(Normal(0, 0, 1), 1.0);
  expectSameRotation(
      Quaternion::fromAxisAngle(Normal(0, 0, 1), 0.5),
      slerp(Quaternion(), Quaternion(-B.X, -B.Y, -B.Z, -B.W), 0.5));
}
