//===- base/geom/MeshAdjacency.h - Per-vertex neighbours of a mesh --------===//
//
// MeshAdjTris lists, for every vertex of a CompactMesh, the triangles that
// use it; MeshAdjVertices lists the vertices joined to it by an edge. Both
// are built once from a mesh and kept in compressed rows (one offset array,
// one item array), so a lookup is a slice. They are values computed from the
// mesh they were built from and go stale when it changes. memorySize() is
// what they report to memory accounting.
//
// Example:
//   qoGeom::MeshAdjTris Tris(Mesh);
//   for (std::int32_t T : Tris.of(0))
//     visit(T);                     // every triangle touching vertex 0
//
//===----------------------------------------------------------------------===//
#ifndef QOGEOM_MESHADJACENCY_H
#define QOGEOM_MESHADJACENCY_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace qoGeom {

class CompactMesh;

// The compressed-row storage both adjacencies share.
class MeshAdjacency {
public:
  std::size_t vertexCount() const {
    return Offsets.empty() ? 0 : Offsets.size() - 1;
  }
  // The neighbours of vertex V, in ascending order.
  std::span<const std::int32_t> of(std::int32_t V) const;
  std::size_t memorySize() const;

  friend bool operator==(const MeshAdjacency &,
                         const MeshAdjacency &) = default;

protected:
  MeshAdjacency() = default;
  // Rows[v] becomes vertex v's sorted, duplicate-free row.
  void assign(std::vector<std::vector<std::int32_t>> Rows);

private:
  std::vector<std::int32_t> Offsets;
  std::vector<std::int32_t> Items;
};

class MeshAdjTris : public MeshAdjacency {
public:
  MeshAdjTris() = default;
  explicit MeshAdjTris(const CompactMesh &Mesh);
};

class MeshAdjVertices : public MeshAdjacency {
public:
  MeshAdjVertices() = default;
  explicit MeshAdjVertices(const CompactMesh &Mesh);
};

} // namespace qoGeom

#endif // QOGEOM_MESHADJACENCY_H
