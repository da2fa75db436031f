//===- base/geom/CompactMesh.cpp - A triangle mesh in flat arrays ---------===//

#include "base/geom/CompactMesh.h"

#include <cassert>

namespace qoGeom {

std::int32_t CompactMesh::addVertex(const qoLinear::PointFlt &P) {
  Positions.push_back(P);
  return static_cast<std::int32_t>(Positions.size() - 1);
}

void CompactMesh::addTriangle(std::int32_t A, std::int32_t B, std::int32_t C) {
  const auto Count = static_cast<std::int32_t>(Positions.size());
  assert(A >= 0 && B >= 0 && C >= 0 && A < Count && B < Count && C < Count &&
         "triangle corner is not a vertex of the mesh");
  (void)Count;
  Corners.insert(Corners.end(), {A, B, C});
}

// Capacities, not sizes: that is what the mesh actually holds on to.
std::size_t CompactMesh::memorySize() const {
  return sizeof(*this) + Positions.capacity() * sizeof(qoLinear::PointFlt) +
         Corners.capacity() * sizeof(std::int32_t);
}

} // namespace qoGeom
