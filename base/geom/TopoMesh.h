//===- base/geom/TopoMesh.h - Handles to topological mesh elements --------===//
//
// The vertices, edges and faces of a topological mesh are referred to by
// small handles: TopoMeshVertex, TopoMeshEdge and TopoMeshFace wrap the
// address of the element's record inside its mesh, TopoMeshEntity is any one
// of them together with its kind. Handles do not own what they point to; the
// mesh does, and a handle is valid while its element is.
//
// Example:
//   qoGeom::TopoMeshFace Face(FaceRecord);
//   qoGeom::TopoMeshEntity Picked(Face);
//   Picked.kind() == qoGeom::TopoMeshEntity::Face;   // true
//
//===----------------------------------------------------------------------===//
#ifndef QOGEOM_TOPOMESH_H
#define QOGEOM_TOPOMESH_H

#include <cstdint>

namespace qoGeom {

// One handle class per element kind, so that a vertex is never passed
// where a face is expected.
template <int KindTag> class TopoMeshHandle {
public:
  TopoMeshHandle() = default;
  explicit TopoMeshHandle(void *Record) : Record(Record) {}

  void *record() const { return Record; }
  explicit operator bool() const { return Record != nullptr; }
  friend bool operator==(TopoMeshHandle A, TopoMeshHandle B) {
    return A.Record == B.Record;
  }

private:
  void *Record = nullptr;
};

using TopoMeshVertex = TopoMeshHandle<1>;
using TopoMeshEdge = TopoMeshHandle<2>;
using TopoMeshFace = TopoMeshHandle<3>;

class TopoMeshEntity {
public:
  enum Kind : std::int32_t { None = 0, Vertex = 1, Edge = 2, Face = 3 };

  TopoMeshEntity() = default;
  TopoMeshEntity(Kind K, void *Record) : K(Record ? K : None), Record(Record) {}
  TopoMeshEntity(TopoMeshVertex V) : TopoMeshEntity(Vertex, V.record()) {}
  TopoMeshEntity(TopoMeshEdge E) : TopoMeshEntity(Edge, E.record()) {}
  TopoMeshEntity(TopoMeshFace F) : TopoMeshEntity(Face, F.record()) {}

  Kind kind() const { return K; }
  void *record() const { return Record; }
  TopoMeshVertex vertex() const {
    return TopoMeshVertex(K == Vertex ? Record : nullptr);
  }
  TopoMeshEdge edge() const {
    return TopoMeshEdge(K == Edge ? Record : nullptr);
  }
  TopoMeshFace face() const {
    return TopoMeshFace(K == Face ? Record : nullptr);
  }

  friend bool operator==(const TopoMeshEntity &A, const TopoMeshEntity &B) {
    return A.K == B.K && A.Record == B.Record;
  }

private:
  Kind K = None;
  void *Record = nullptr;
};

} // namespace qoGeom

#endif // QOGEOM_TOPOMESH_H
