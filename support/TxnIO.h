//===- support/TxnIO.h - Value types as recorded fields -------------------===//
//
// The nyTXN::write / read / clear overloads that let a recorded object
// (nyTXN::Object) keep the layer's common value types as fields, and the
// nyTXN::getSize overloads through which objects holding meshes and images
// report their memory to the undo history. They are found by the field
// tables of transaction/IOMethods.h (nyTXN::IOMethods<T>), so
// `S.field(Colour)` just works once this header is included.
//
// Each write emits raw little-endian bytes (writeData) or a pointer
// (writePtr) and each read takes the same sequence back:
//   Point, Vector, Normal              24 bytes (three doubles)
//   Point2 / PointFlt / Point2Flt      16 / 12 / 8 bytes
//   Line, ParamLine, Plane, Range3d    two blocks of 24 bytes
//   ParamPlane                         four blocks of 24 bytes
//   AffineMatrix                       96 bytes; Quaternion four times 8
//   qoUtil::Color                      16 bytes (four floats)
//   CString, IString                   the byte length as 4 bytes, then the
//                                      bytes (UTF-8 for IString)
//   qoGeom::BoundingBox                24 bytes (two float corners)
//   qoGeom::MeshCoord                  24 bytes of weights, then the face (4)
//   qoGeom::OrientedBox                four blocks of 24, then three of 8
//   qoGeom::TopoMeshEntity             its kind as 4 bytes, then a pointer
//   TopoMeshVertex, Edge, Face         a pointer
//   qo::TypeInfo                       a pointer (the type's identity)
// qo::Reference<Property> and qo::Reference<const Property> are covered by
// the generic qo::Reference overloads of IOMethods.h (a pointer; reading takes
// a reference on the new property and releases the old one; clearing
// releases and nulls). clear does nothing for the value types.
//
// Example:
//   class Swatch : public nyTXN::RefCountedObject {
//     void onTransact(nyTXN::Serializer &S) override {
//       S.beginObject(this);
//       RefCountedObject::onTransact(S);
//       S.field(Fill);      // qoUtil::Color
//       S.field(Label);     // qoString::CString
//       S.endObject();
//     }
//     ...
//   };
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_TXNIO_H
#define NYSUPPORT_TXNIO_H

#include "base/TypeInfo.h"
#include "base/geom/BoundingBox.h"
#include "base/geom/MeshCoord.h"
#include "base/geom/OrientedBox.h"
#include "base/geom/TopoMesh.h"
#include "base/linear/AffineMatrix.h"
#include "base/linear/Line.h"
#include "base/linear/Normal.h"
#include "base/linear/Plane.h"
#include "base/linear/Point.h"
#include "base/linear/Point2.h"
#include "base/linear/Quaternion.h"
#include "base/linear/Range.h"
#include "base/linear/Vector.h"
#include "base/string/CString.h"
#include "base/string/IString.h"
#include "base/util/Color.h"
#include "transaction/IOMethods.h"

#include <cstddef>

namespace qoGeom {
class CompactMesh;
class MeshAdjTris;
class MeshAdjVertices;
class MeshSubset;
} // namespace qoGeom

namespace qoImage {
class Image;
} // namespace qoImage

namespace nyTXN {

void write(Writer &W, const qoLinear::Point &V);
void read(Reader &R, qoLinear::Point &V);
void write(Writer &W, const qoLinear::Vector &V);
void read(Reader &R, qoLinear::Vector &V);
void write(Writer &W, const qoLinear::Normal &V);
void read(Reader &R, qoLinear::Normal &V);
void write(Writer &W, const qoLinear::Point2 &V);
void read(Reader &R, qoLinear::Point2 &V);
void write(Writer &W, const qoLinear::PointFlt &V);
void read(Reader &R, qoLinear::PointFlt &V);
void write(Writer &W, const qoLinear::Point2Flt &V);
void read(Reader &R, qoLinear::Point2Flt &V);

void write(Writer &W, const qoLinear::Line &V);
void read(Reader &R, qoLinear::Line &V);
void write(Writer &W, const qoLinear::ParamLine &V);
void read(Reader &R, qoLinear::ParamLine &V);
void write(Writer &W, const qoLinear::Plane &V);
void read(Reader &R, qoLinear::Plane &V);
void write(Writer &W, const qoLinear::ParamPlane &V);
void read(Reader &R, qoLinear::ParamPlane &V);
void write(Writer &W, const qoLinear::Range3d &V);
void read(Reader &R, qoLinear::Range3d &V);
void write(Writer &W, const qoLinear::AffineMatrix &V);
void read(Reader &R, qoLinear::AffineMatrix &V);
void write(Writer &W, const qoLinear::Quaternion &V);
void read(Reader &R, qoLinear::Quaternion &V);

void write(Writer &W, const qoUtil::Color &V);
void read(Reader &R, qoUtil::Color &V);

void write(Writer &W, const qoString::CString &V);
void read(Reader &R, qoString::CString &V);
void write(Writer &W, const qoString::IString &V);
void read(Reader &R, qoString::IString &V);

void write(Writer &W, const qoGeom::BoundingBox &V);
void read(Reader &R, qoGeom::BoundingBox &V);
void write(Writer &W, const qoGeom::MeshCoord &V);
void read(Reader &R, qoGeom::MeshCoord &V);
void write(Writer &W, const qoGeom::OrientedBox &V);
void read(Reader &R, qoGeom::OrientedBox &V);
void write(Writer &W, const qoGeom::TopoMeshEntity &V);
void read(Reader &R, qoGeom::TopoMeshEntity &V);
void write(Writer &W, const qoGeom::TopoMeshVertex &V);
void read(Reader &R, qoGeom::TopoMeshVertex &V);
void write(Writer &W, const qoGeom::TopoMeshEdge &V);
void read(Reader &R, qoGeom::TopoMeshEdge &V);
void write(Writer &W, const qoGeom::TopoMeshFace &V);
void read(Reader &R, qoGeom::TopoMeshFace &V);

void write(Writer &W, const qo::TypeInfo &V);
void read(Reader &R, qo::TypeInfo &V);

// The memory each object reports of itself.
std::size_t getSize(const qoGeom::CompactMesh &Mesh);
std::size_t getSize(const qoGeom::MeshAdjTris &Adjacency);
std::size_t getSize(const qoGeom::MeshAdjVertices &Adjacency);
std::size_t getSize(const qoGeom::MeshSubset &Subset);
std::size_t getSize(const qoImage::Image &Image);

} // namespace nyTXN

#endif // NYSUPPORT_TXNIO_H
