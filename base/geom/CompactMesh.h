//===- base/geom/CompactMesh.h - A triangle mesh in flat arrays -----------===//
//
// qoGeom::CompactMesh is the plain, memory-lean form of a triangle mesh: one
// array of vertex positions and one array of corner indices, three per
// triangle. It is a value: copies are deep. memorySize() is what the mesh
// reports of itself to memory accounting (the undo history, the caches).
//
// Example:
//   qoGeom::CompactMesh M;
//   M.addVertex({0, 0, 0}); M.addVertex({1, 0, 0}); M.addVertex({0, 1, 0});
//   M.addTriangle(0, 1, 2);
//   M.triangleCount();   // 1
//
//===----------------------------------------------------------------------===//
#ifndef QOGEOM_COMPACTMESH_H
#define QOGEOM_COMPACTMESH_H

#include "base/linear/Point.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qoGeom {

class CompactMesh {
public:
  std::int32_t addVertex(const qoLinear::PointFlt &P);
  // Corners must be indices of existing vertices.
  void addTriangle(std::int32_t A, std::int32_t B, std::int32_t C);

  std::size_t vertexCount() const { return Positions.size(); }
  std::size_t triangleCount() const { return Corners.size() / 3; }
  const std::vector<qoLinear::PointFlt> &positions() const { return Positions; }
  const std::vector<std::int32_t> &corners() const { return Corners; }

  std::size_t memorySize() const;

  friend bool operator==(const CompactMesh &, const CompactMesh &) = default;

private:
  std::vector<qoLinear::PointFlt> Positions;
  std::vector<std::int32_t> Corners;
};

} // namespace qoGeom

#endif // QOGEOM_COMPACTMESH_H
