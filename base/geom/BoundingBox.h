//===- base/geom/BoundingBox.h - Single-precision axis-aligned box --------===//
//
// qoGeom::BoundingBox is the compact box that meshes and scene nodes keep
// for culling and picking: two single-precision corners, 24 bytes. A new box
// is empty (its minimum above its maximum) and grows with extend().
//
// Example:
//   qoGeom::BoundingBox Box;
//   Box.extend(qoLinear::PointFlt(1, 2, 3));
//   Box.extend(qoLinear::PointFlt(-1, 0, 5));
//   Box.contains(qoLinear::PointFlt(0, 1, 4));   // true
//
//===----------------------------------------------------------------------===//
#ifndef QOGEOM_BOUNDINGBOX_H
#define QOGEOM_BOUNDINGBOX_H

#include "base/linear/Point.h"

#include <algorithm>
#include <limits>

namespace qoGeom {

struct BoundingBox {
  qoLinear::PointFlt Min{std::numeric_limits<float>::infinity(),
                         std::numeric_limits<float>::infinity(),
                         std::numeric_limits<float>::infinity()};
  qoLinear::PointFlt Max{-std::numeric_limits<float>::infinity(),
                         -std::numeric_limits<float>::infinity(),
                         -std::numeric_limits<float>::infinity()};

  BoundingBox() = default;
  BoundingBox(const qoLinear::PointFlt &Min, const qoLinear::PointFlt &Max)
      : Min(Min), Max(Max) {}

  bool empty() const { return Min.X > Max.X || Min.Y > Max.Y || Min.Z > Max.Z; }
  void extend(const qoLinear::PointFlt &P) {
    Min = {std::min(Min.X, P.X), std::min(Min.Y, P.Y), std::min(Min.Z, P.Z)};
    Max = {std::max(Max.X, P.X), std::max(Max.Y, P.Y), std::max(Max.Z, P.Z)};
  }
  bool contains(const qoLinear::PointFlt &P) const {
    return P.X >= Min.X && P.X <= Max.X && P.Y >= Min.Y && P.Y <= Max.Y &&
           P.Z >= Min.Z && P.Z <= Max.Z;
  }

  friend bool operator==(const BoundingBox &A, const BoundingBox &B) {
    return A.Min == B.Min && A.Max == B.Max;
  }
};

} // namespace qoGeom

#endif // QOGEOM_BOUNDINGBOX_H
