//===- base/geom/MeshCoord.h - A place on a mesh surface ------------------===//
//
// qoGeom::MeshCoord names a point on a triangle mesh as a face index plus the
// barycentric weights of that face's three corners, so that it follows the
// surface when the mesh deforms. Face -1 means "nowhere".
//
// Example:
//   qoGeom::MeshCoord C{qoLinear::Point(0.2, 0.3, 0.5), 17};
//   C.valid();   // true
//
//===----------------------------------------------------------------------===//
#ifndef QOGEOM_MESHCOORD_H
#define QOGEOM_MESHCOORD_H

#include "base/linear/Point.h"

#include <cstdint>

namespace qoGeom {

struct MeshCoord {
  qoLinear::Point Weights;
  std::int32_t Face = -1;

  bool valid() const { return Face >= 0; }

  friend bool operator==(const MeshCoord &A, const MeshCoord &B) {
    return A.Weights == B.Weights && A.Face == B.Face;
  }
};

} // namespace qoGeom

#endif // QOGEOM_MESHCOORD_H
