//===- base/geom/MeshAdjacency.cpp - Per-vertex neighbours of a mesh ------===//

#include "base/geom/MeshAdjacency.h"

#include "base/geom/CompactMesh.h"

#include <algorithm>

namespace qoGeom {

std::span<const std::int32_t> MeshAdjacency::of(std::int32_t V) const {
  if (V < 0 || static_cast<std::size_t>(V) >= vertexCount())
    return {};
  const auto Begin = static_cast<std::size_t>(Offsets[V]);
  const auto End = static_cast<std::size_t>(Offsets[V + 1]);
  return {Items.data() + Begin, End - Begin};
}

std::size_t MeshAdjacency::memorySize() const {
  return sizeof(*this) +
         (Offsets.capacity() + Items.capacity()) * sizeof(std::int32_t);
}

void MeshAdjacency::assign(std::vector<std::vector<std::int32_t>> Rows) {
  Offsets.assign(1, 0);
  Items.clear();
  for (auto &Row : Rows) {
    std::sort(Row.begin(), Row.end());
    Row.erase(std::unique(Row.begin(), Row.end()), Row.end());
    Items.insert(Items.end(), Row.begin(), Row.end());
    Offsets.push_back(static_cast<std::int32_t>(Items.size()));
  }
}

MeshAdjTris::MeshAdjTris(const CompactMesh &Mesh) {
  std::vector<std::vector<std::int32_t>> Rows(Mesh.vertexCount());
  const auto &Corners = Mesh.corners();
  for (std::size_t I = 0; I < Corners.size(); ++I)
    Rows[Corners[I]].push_back(static_cast<std::int32_t>(I / 3));
  assign(std::move(Rows));
}

MeshAdjVertices::MeshAdjVertices(const CompactMesh &Mesh) {
  std::vector<std::vector<std::int32_t>> Rows(Mesh.vertexCount());
  const auto &Corners = Mesh.corners();
  for (std::size_t T = 0; T + 2 < Corners.size(); T += 3)
    for (int I = 0; I < 3; ++I) {
      const std::int32_t A = Corners[T + I];
      const std::int32_t B = Corners[T + (I + 1) % 3];
      Rows[A].push_back(B);
      Rows[B].push_back(A);
    }
  assign(std::move(Rows));
}

} // namespace qoGeom
