//===- base/geom/OrientedBox.h - A box in its own frame -------------------===//
//
// qoGeom::OrientedBox is a box with a centre, three orthogonal unit axes and
// a half extent along each: the tight bound of a rotated object.
//
// Example:
//   qoGeom::OrientedBox Box;                 // the unit cube about the origin
//   Box.HalfExtents[0] = 2;                  // twice as long along X
//   Box.contains(qoLinear::Point(1.5, 0, 0)); // true
//
//===----------------------------------------------------------------------===//
#ifndef QOGEOM_ORIENTEDBOX_H
#define QOGEOM_ORIENTEDBOX_H

#include "base/linear/Point.h"
#include "base/linear/Vector.h"

#include <cmath>

namespace qoGeom {

struct OrientedBox {
  qoLinear::Point Center;
  qoLinear::Vector Axes[3] = {{1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
  double HalfExtents[3] = {1, 1, 1};

  bool contains(const qoLinear::Point &P) const {
    const qoLinear::Vector D = P - Center;
    for (int I = 0; I < 3; ++I)
      if (std::fabs(dot(D, Axes[I])) > HalfExtents[I])
        return false;
    return true;
  }

  friend bool operator==(const OrientedBox &A, const OrientedBox &B) {
    for (int I = 0; I < 3; ++I)
      if (!(A.Axes[I] == B.Axes[I]) || A.HalfExtents[I] != B.HalfExtents[I])
        return false;
    return A.Center == B.Center;
  }
};

} // namespace qoGeom

#endif // QOGEOM_ORIENTEDBOX_H
