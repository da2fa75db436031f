//===- base/linear/Plane.h - Planes and parametric planes -----------------===//
//
// qoLinear::Plane is a point on the plane and its unit normal (the scripts'
// "dict(point, normal)"). The equivalent "normal and distance" form, the
// plane dot(n, x) == d, is available through the (Normal, double) constructor
// and offset(). Signed distances are positive on the side the normal points
// to.
//
// qoLinear::ParamPlane spans two edge vectors U and V from an origin, so
// pointAt(s, t) = origin + s U + t V; its normal is U x V, normalised.
//
// Example:
//   qoLinear::Plane ground(qoLinear::Normal(0, 0, 1), 2.0);   // z == 2
//   ground.signedDistance(qoLinear::Point(0, 0, 5));          // 3
//   qoLinear::Point hit;
//   if (ground.intersect(qoLinear::Line({0, 0, 0}, qoLinear::Vector(1, 0, 1)),
//                        hit))
//     use(hit);                                               // (2, 0, 2)
//
//===----------------------------------------------------------------------===//
#ifndef QOLINEAR_PLANE_H
#define QOLINEAR_PLANE_H

#include "base/linear/Line.h"
#include "base/linear/Normal.h"
#include "base/linear/Point.h"
#include "base/linear/Vector.h"

#include <cmath>

namespace qoLinear {

// Below this |cos| between a line and a plane's surface, they count as
// parallel: the hit would be further than ~1e12 units along the line.
inline constexpr double ParallelTolerance = 1e-12;

class Plane {
public:
  // The plane z == 0.
  Plane() = default;
  Plane(const Point &P, const Normal &N) : Origin(P), N(N) {}
  // The plane dot(N, x) == Distance.
  Plane(const Normal &N, double Distance)
      : Origin(N.toVector() * Distance), N(N) {}

  const Point &point() const { return Origin; }
  const Normal &normal() const { return N; }
  void setPoint(const Point &P) { Origin = P; }
  void setNormal(const Normal &Normal) { N = Normal; }

  // d in dot(normal, x) == d.
  double offset() const { return dot(N, Origin.toVector()); }
  double signedDistance(const Point &P) const { return dot(N, P - Origin); }
  // The foot of the perpendicular from P.
  Point project(const Point &P) const {
    return P - N.toVector() * signedDistance(P);
  }
  // V without its part along the normal.
  Vector project(const Vector &V) const { return V - qoLinear::project(V, N); }

  // The point where L crosses the plane; false, Hit untouched, when L is
  // invalid or parallel to the plane.
  bool intersect(const Line &L, Point &Hit) const {
    double T;
    if (!L.valid() || !intersectParameter(L.point(), L.direction(), T))
      return false;
    Hit = L.pointAt(T);
    return true;
  }
  // The parameter T of the crossing, so L.pointAt(T) is on the plane.
  bool intersect(const ParamLine &L, double &T) const {
    return intersectParameter(L.Origin, L.Direction, T);
  }

  friend bool operator==(const Plane &A, const Plane &B) {
    return A.Origin == B.Origin && A.N == B.N;
  }

private:
  bool intersectParameter(const Point &O, const Vector &D, double &T) const {
    const double Along = dot(N, D);
    if (!(std::fabs(Along) > ParallelTolerance * D.length()))
      return false;
    T = -signedDistance(O) / Along;
    return true;
  }

  Point Origin;
  Normal N;
};

class ParamPlane {
public:
  // The plane z == 0 spanned by the x and y axes.
  ParamPlane() : ParamPlane(Point(), Vector(1, 0, 0), Vector(0, 1, 0)) {}
  ParamPlane(const Point &Origin, const Vector &U, const Vector &V)
      : Origin(Origin), U(U), V(V), N(cross(U, V)) {}

  const Point &origin() const { return Origin; }
  const Vector &u() const { return U; }
  const Vector &v() const { return V; }
  const Normal &normal() const { return N; }

  Point pointAt(double S, double T) const { return Origin + U * S + V * T; }
  Plane plane() const { return {Origin, N}; }

  friend bool operator==(const ParamPlane &A, const ParamPlane &B) {
    return A.Origin == B.Origin && A.U == B.U && A.V == B.V;
  }

private:
  Point Origin;
  Vector U;
  Vector V;
  Normal N;
};

} // namespace qoLinear

#endif // QOLINEAR_PLANE_H
