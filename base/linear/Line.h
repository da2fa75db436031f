//===- base/linear/Line.h - Infinite lines and parametric segments --------===//
//
// qoLinear::Line is an infinite line: a point on it, a unit direction and a
// validity flag. Building one from a zero direction gives an invalid line, as
// does the default constructor (origin, zero direction); rotations about an
// invalid line do nothing. Rotation axes, picking rays and the scripts'
// "dict(point, direction)" values are lines.
//
// qoLinear::ParamLine keeps its direction as given, not normalised: pointAt(0)
// is the origin and pointAt(1) the origin plus the direction, so it also
// describes a segment.
//
// Example:
//   qoLinear::Line axis(qoLinear::Point(1, 0, 0), qoLinear::Vector(0, 0, 2));
//   axis.direction();                               // (0, 0, 1)
//   axis.closestPoint(qoLinear::Point(3, 4, 5));    // (1, 0, 5)
//   qoLinear::ParamLine seg{{0, 0, 0}, {2, 0, 0}};
//   seg.pointAt(0.5);                               // (1, 0, 0)
//
//===----------------------------------------------------------------------===//
#ifndef QOLINEAR_LINE_H
#define QOLINEAR_LINE_H

#include "base/linear/Normal.h"
#include "base/linear/Point.h"
#include "base/linear/Vector.h"

namespace qoLinear {

class Line {
public:
  Line() = default;
  Line(const Point &P, const Vector &Direction) { set(P, Direction); }
  Line(const Point &P, const Normal &Direction) {
    set(P, Direction.toVector());
  }
  static Line through(const Point &A, const Point &B) { return {A, B - A}; }
  // Takes a direction that is already unit length (or zero) as it is, so a
  // saved line comes back bit for bit.
  static Line fromUnit(const Point &P, const Vector &UnitDirection) {
    Line L;
    L.Origin = P;
    L.Dir = UnitDirection;
    L.Valid = !UnitDirection.isZero();
    return L;
  }

  // Normalises Direction; the line is valid when Direction is not zero.
  void set(const Point &P, const Vector &Direction) {
    Origin = P;
    Dir = Direction.normalized();
    Valid = !Dir.isZero();
  }
  void setPoint(const Point &P) { Origin = P; }
  // Zero direction, invalid; the point stays.
  void clear() {
    Dir = Vector();
    Valid = false;
  }

  const Point &point() const { return Origin; }
  const Vector &direction() const { return Dir; }
  bool valid() const { return Valid; }

  Point pointAt(double T) const { return Origin + Dir * T; }
  // The parameter of the point on the line nearest to P.
  double parameterOf(const Point &P) const { return dot(P - Origin, Dir); }
  Point closestPoint(const Point &P) const { return pointAt(parameterOf(P)); }
  double distance(const Point &P) const {
    return qoLinear::distance(P, closestPoint(P));
  }

  friend bool operator==(const Line &A, const Line &B) {
    return A.Origin == B.Origin && A.Dir == B.Dir && A.Valid == B.Valid;
  }

private:
  Point Origin;
  Vector Dir;
  bool Valid = false;
};

struct ParamLine {
  Point Origin;
  Vector Direction;

  Point pointAt(double T) const { return Origin + Direction * T; }
  Line line() const { return {Origin, Direction}; }

  friend bool operator==(const ParamLine &A, const ParamLine &B) {
    return A.Origin == B.Origin && A.Direction == B.Direction;
  }
};

} // namespace qoLinear

#endif // QOLINEAR_LINE_H
