//===- base/geom/MeshSubset.h - A selection of a mesh's triangles ---------===//
//
// qoGeom::MeshSubset is a set of triangle indices of one mesh (a selection,
// a material region), kept sorted and without duplicates. It is a value;
// memorySize() is what it reports to memory accounting.
//
// Example:
//   qoGeom::MeshSubset Selected;
//   Selected.add(4);
//   Selected.add(2);
//   Selected.contains(4);   // true; triangles() is {2, 4}
//
//===----------------------------------------------------------------------===//
#ifndef QOGEOM_MESHSUBSET_H
#define QOGEOM_MESHSUBSET_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace qoGeom {

class MeshSubset {
public:
  void add(std::int32_t Triangle) {
    auto At = std::lower_bound(Triangles.begin(), Triangles.end(), Triangle);
    if (At == Triangles.end() || *At != Triangle)
      Triangles.insert(At, Triangle);
  }
  void remove(std::int32_t Triangle) {
    auto At = std::lower_bound(Triangles.begin(), Triangles.end(), Triangle);
    if (At != Triangles.end() && *At == Triangle)
      Triangles.erase(At);
  }
  bool contains(std::int32_t Triangle) const {
    return std::binary_search(Triangles.begin(), Triangles.end(), Triangle);
  }
  std::size_t size() const { return Triangles.size(); }
  const std::vector<std::int32_t> &triangles() const { return Triangles; }

  std::size_t memorySize() const {
    return sizeof(*this) + Triangles.capacity() * sizeof(std::int32_t);
  }

  friend bool operator==(const MeshSubset &, const MeshSubset &) = default;

private:
  std::vector<std::int32_t> Triangles;
};

} // namespace qoGeom

#endif // QOGEOM_MESHSUBSET_H
