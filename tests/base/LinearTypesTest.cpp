#include "base/linear/AffineMatrix.h"
#include "base/linear/Line.h"
#include "base/linear/Normal.h"
#include "base/linear/Plane.h"
#include "base/linear/Point.h"
#include "base/linear/Point2.h"
#include "base/linear/Quaternion.h"
#include "base/linear/Range.h"
#include "base/linear/TransformOperation.h"
#include "base/linear/Vector.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

using namespace qoLinear;

namespace {

constexpr double Tolerance = 1e-12;

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

} // namespace

TEST(LinearTypes, PointsAndVectorsKeepTheirRoles) {
  const Point A(1, 2, 3), B(4, 6, 3);
  EXPECT_EQ(Vector(3, 4, 0), B - A);
  EXPECT_EQ(B, A + (B - A));
  EXPECT_EQ(5, distance(A, B));
  EXPECT_EQ(Point(2.5, 4, 3), combine(0.5, A, 0.5, B));
  EXPECT_EQ(Vector(0, 0, 1), cross(Vector(1, 0, 0), Vector(0, 1, 0)));
  EXPECT_EQ(Vector(), Vector().normalized());
  static_assert(Point2(1, 2) + Point2(3, 4) == Point2(4, 6));
  static_assert(sizeof(Pointf) == 12 && sizeof(Point2Flt) == 8);
}

TEST(LinearTypes, NormalIsUnitOrZero) {
  const Normal N(3, 0, 4);
  EXPECT_DOUBLE_EQ(0.6, N.x());
  EXPECT_DOUBLE_EQ(0.8, N.z());
  Normal M;
  EXPECT_EQ(1, M.z());
  M.set(0, -2, 0);
  EXPECT_EQ(Normal::fromUnit(0, -1, 0), M);
  M.set(0, 0, 0);
  EXPECT_TRUE(M.isZero());
  const double NaN = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(Normal(NaN, 0, 0).isZero());
  // fromUnit stores exactly what it is given.
  EXPECT_EQ(0.3, Normal::fromUnit(0.3, 0, 0).x());

  EXPECT_EQ(Vector(0, 0, 2), project(Vector(1, 1, 2), Normal(0, 0, 1)));
  const Normal Mid = combine(1.0, Normal(1, 0, 0), 1.0, Normal(0, 1, 0));
  EXPECT_NEAR(std::sqrt(0.5), Mid.x(), Tolerance);
  EXPECT_NEAR(std::sqrt(0.5), Mid.y(), Tolerance);
}

TEST(LinearTypes, LineIsValidOnlyWithADirection) {
  const Line Default;
  EXPECT_FALSE(Default.valid());
  EXPECT_TRUE(Default.direction().isZero());
  EXPECT_FALSE(Line(Point(1, 1, 1), Vector()).valid());

  Line Axis(Point(1, 0, 0), Vector(0, 0, 2));
  EXPECT_TRUE(Axis.valid());
  EXPECT_EQ(Vector(0, 0, 1), Axis.direction());
  EXPECT_EQ(Point(1, 0, 5), Axis.closestPoint(Point(3, 4, 5)));
  EXPECT_EQ(5, Axis.distance(Point(4, 4, -1)));
  Axis.clear();
  EXPECT_FALSE(Axis.valid());
  EXPECT_EQ(Point(1, 0, 0), Axis.point());

  const ParamLine Segment{Point(0, 0, 0), Vector(2, 0, 0)};
  EXPECT_EQ(Point(1, 0, 0), Segment.pointAt(0.5));
}

TEST(LinearTypes, PlaneMeetsLinesThatAreNotParallel) {
  const Plane Ground(Normal(0, 0, 1), 2.0);
  EXPECT_EQ(Point(0, 0, 2), Ground.point());
  EXPECT_EQ(2, Ground.offset());
  EXPECT_EQ(3, Ground.signedDistance(Point(7, 7, 5)));
  EXPECT_EQ(Point(7, 7, 2), Ground.project(Point(7, 7, 5)));
  EXPECT_EQ(Vector(1, 1, 0), Ground.project(Vector(1, 1, 9)));

  Point Hit(-1, -1, -1);
  ASSERT_TRUE(Ground.intersect(Line(Point(), Vector(1, 0, 1)), Hit));
  EXPECT_NEAR(2, Hit.X, Tolerance);
  EXPECT_NEAR(2, Hit.Z, Tolerance);

  Point Untouched(-1, -1, -1);
  EXPECT_FALSE(Ground.intersect(Line(Point(), Vector(1, 1, 0)), Untouched));
  EXPECT_FALSE(Ground.intersect(Line(), Untouched));
  EXPECT_EQ(Point(-1, -1, -1), Untouched);

  double T = 0;
  ASSERT_TRUE(Ground.intersect(ParamLine{Point(0, 0, 0), Vector(0, 0, 4)}, T));
  EXPECT_EQ(0.5, T);

  const ParamPlane Spanned(Point(1, 1, 1), Vector(2, 0, 0), Vector(0, 3, 0));
  EXPECT_EQ(Normal(0, 0, 1), Spanned.normal());
  EXPECT_EQ(Point(2, 4, 1), Spanned.pointAt(0.5, 1));
}

TEST(LinearTypes, EmptyRangesHoldNothingAndChangeNothing) {
  const Range1d Default;
  EXPECT_TRUE(Default.empty());
  EXPECT_TRUE(Range1d(1, 0).empty());
  EXPECT_FALSE(Range1d(0, 0).empty());
  EXPECT_FALSE(Range1d(1, 0).contains(0.5));
  EXPECT_EQ(0, Range1d(1, 0).size());

  Range1d R(1, 0);
  R.extend(5);
  EXPECT_EQ(Range1d(5, 5), R);
  R.extend(-1).extend(Range1d(1, 0));
  EXPECT_EQ(Range1d(-1, 5), R);
  EXPECT_TRUE(R.contains(-1) && R.contains(5) && !R.contains(5.5));
  EXPECT_EQ(Range1d(-1, 7), united(R, Range1d(6, 7)));
  EXPECT_EQ(Range1d(2, 5), R.intersected(Range1d(2, 9)));
  EXPECT_TRUE(R.intersected(Range1d(6, 9)).empty());
  EXPECT_TRUE(R.contains(Range1d(1, 0)));

  Range3d Box;
  EXPECT_TRUE(Box.empty());
  EXPECT_FALSE(Box.contains(Point()));
  EXPECT_EQ(Vector(), Box.size());
  Box.extend(Point(1, 2, 3)).extend(Point(-1, 0, 5));
  EXPECT_EQ(Point(-1, 0, 3), Box.Min);
  EXPECT_EQ(Vector(2, 2, 2), Box.size());
  EXPECT_EQ(Point(0, 1, 4), Box.center());
  EXPECT_TRUE(Box.contains(Point(0, 1, 4)));
  EXPECT_FALSE(Box.contains(Point(0, 1, 6)));
  EXPECT_EQ(Box, united(Box, Range3d()));
  EXPECT_EQ(Box, united(Range3d(), Box));
  const Range3d Flat(Point(0, 0, 0), Point(1, 1, -1));
  EXPECT_TRUE(Flat.empty());
  EXPECT_EQ(Range3d(Point(0, 0, 3), Point(1, 2, 4)),
            Box.intersected(Range3d(Point(0, 0, 0), Point(9, 9, 4))));
}

TEST(LinearTypes, TransformOperationNamesRoundTrip) {
  for (auto Op : {TransformOperation::Identity, TransformOperation::Translate,
                  TransformOperation::Rotate, TransformOperation::Scale,
                  TransformOperation::NonPScale, TransformOperation::General}) {
    TransformOperation Back = TransformOperation::Identity;
    ASSERT_TRUE(fromString(toString(Op), Back));
    EXPECT_EQ(Op, Back);
  }
  EXPECT_STREQ("NonPScale", toString(TransformOperation(8)));
  EXPECT_EQ(nullptr, toString(TransformOperation(3)));
  TransformOperation Kept = TransformOperation::Rotate;
  EXPECT_FALSE(fromString("rotate", Kept));
  EXPECT_EQ(TransformOperation::Rotate, Kept);
}
