//===- support/TxnIO.cpp - Value types as recorded fields -----------------===//
//
// Every type goes through its components rather than its object bytes: the
// byte counts are fixed by the table in the header whatever the padding and
// hidden members of the class, and types with an invariant (Line, Normal,
// ParamPlane) are rebuilt through their constructors.
//
//===----------------------------------------------------------------------===//

#include "support/TxnIO.h"

#include "base/geom/CompactMesh.h"
#include "base/geom/MeshAdjacency.h"
#include "base/geom/MeshSubset.h"
#include "base/image/Image.h"

#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

namespace nyTXN {

namespace {

template <class T> void put3(Writer &W, T X, T Y, T Z) {
  const T Values[3] = {X, Y, Z};
  W.writeData(Values, sizeof Values);
}

template <class T> void get3(Reader &R, T &X, T &Y, T &Z) {
  T Values[3];
  R.readData(Values, sizeof Values);
  X = Values[0];
  Y = Values[1];
  Z = Values[2];
}

template <class P> P getPoint(Reader &R) {
  P Value;
  get3(R, Value.X, Value.Y, Value.Z);
  return Value;
}

// A length prefix for text of up to 2 GiB; longer text cannot be recorded.
void putBytes(Writer &W, std::string_view Bytes) {
  const auto Length = static_cast<std::int32_t>(std::min<std::size_t>(
      Bytes.size(), std::numeric_limits<std::int32_t>::max()));
  W.writeData(&Length, sizeof Length);
  W.writeData(Bytes.data(), Length);
}

std::string getBytes(Reader &R) {
  std::int32_t Length = 0;
  R.readData(&Length, sizeof Length);
  std::string Bytes(static_cast<std::size_t>(std::max(Length, 0)), '\0');
  R.readData(Bytes.data(), static_cast<int>(Bytes.size()));
  return Bytes;
}

} // namespace

void write(Writer &W, const qoLinear::Point &V) { put3(W, V.X, V.Y, V.Z); }
void read(Reader &R, qoLinear::Point &V) { get3(R, V.X, V.Y, V.Z); }
void write(Writer &W, const qoLinear::Vector &V) { put3(W, V.X, V.Y, V.Z); }
void read(Reader &R, qoLinear::Vector &V) { get3(R, V.X, V.Y, V.Z); }
void write(Writer &W, const qoLinear::Normal &V) {
  put3(W, V.x(), V.y(), V.z());
}
void read(Reader &R, qoLinear::Normal &V) {
  double X, Y, Z;
  get3(R, X, Y, Z);
  V = qoLinear::Normal::fromUnit(X, Y, Z);
}
void write(Writer &W, const qoLinear::Point2 &V) {
  const double Values[2] = {V.X, V.Y};
  W.writeData(Values, sizeof Values);
}
void read(Reader &R, qoLinear::Point2 &V) {
  double Values[2];
  R.readData(Values, sizeof Values);
  V = {Values[0], Values[1]};
}
void write(Writer &W, const qoLinear::PointFlt &V) { put3(W, V.X, V.Y, V.Z); }
void read(Reader &R, qoLinear::PointFlt &V) { get3(R, V.X, V.Y, V.Z); }
void write(Writer &W, const qoLinear::Point2Flt &V) {
  const float Values[2] = {V.X, V.Y};
  W.writeData(Values, sizeof Values);
}
void read(Reader &R, qoLinear::Point2Flt &V) {
  float Values[2];
  R.readData(Values, sizeof Values);
  V = {Values[0], Values[1]};
}

void write(Writer &W, const qoLinear::Line &V) {
  write(W, V.point());
  write(W, V.direction());
}
// The direction was stored normalised (or zero) and comes back as it was; a
// zero direction gives the invalid line again.
void read(Reader &R, qoLinear::Line &V) {
  const auto P = getPoint<qoLinear::Point>(R);
  const auto D = getPoint<qoLinear::Vector>(R);
  V = qoLinear::Line::fromUnit(P, D);
}
void write(Writer &W, const qoLinear::ParamLine &V) {
  write(W, V.Origin);
  write(W, V.Direction);
}
void read(Reader &R, qoLinear::ParamLine &V) {
  read(R, V.Origin);
  read(R, V.Direction);
}
void write(Writer &W, const qoLinear::Plane &V) {
  write(W, V.point());
  write(W, V.normal());
}
void read(Reader &R, qoLinear::Plane &V) {
  const auto P = getPoint<qoLinear::Point>(R);
  qoLinear::Normal N;
  read(R, N);
  V = qoLinear::Plane(P, N);
}
void write(Writer &W, const qoLinear::ParamPlane &V) {
  write(W, V.origin());
  write(W, V.u());
  write(W, V.v());
  write(W, V.normal());
}
// The normal is derived from the two spans; it is read past, not trusted.
void read(Reader &R, qoLinear::ParamPlane &V) {
  const auto O = getPoint<qoLinear::Point>(R);
  const auto U = getPoint<qoLinear::Vector>(R);
  const auto Span = getPoint<qoLinear::Vector>(R);
  getPoint<qoLinear::Vector>(R);
  V = qoLinear::ParamPlane(O, U, Span);
}
void write(Writer &W, const qoLinear::Range3d &V) {
  write(W, V.Min);
  write(W, V.Max);
}
void read(Reader &R, qoLinear::Range3d &V) {
  read(R, V.Min);
  read(R, V.Max);
}
void write(Writer &W, const qoLinear::AffineMatrix &V) {
  W.writeData(V.data(), qoLinear::AffineMatrix::Size * sizeof(double));
}
void read(Reader &R, qoLinear::AffineMatrix &V) {
  R.readData(V.data(), qoLinear::AffineMatrix::Size * sizeof(double));
}
void write(Writer &W, const qoLinear::Quaternion &V) {
  for (double C : {V.X, V.Y, V.Z, V.W})
    W.writeValue(C);
}
void read(Reader &R, qoLinear::Quaternion &V) {
  for (double *C : {&V.X, &V.Y, &V.Z, &V.W})
    *C = R.readValue<double>();
}

void write(Writer &W, const qoUtil::Color &V) {
  const float Values[4] = {V.R, V.G, V.B, V.A};
  W.writeData(Values, sizeof Values);
}
void read(Reader &R, qoUtil::Color &V) {
  float Values[4];
  R.readData(Values, sizeof Values);
  V = qoUtil::Color(Values[0], Values[1], Values[2], Values[3]);
}

void write(Writer &W, const qoString::CString &V) { putBytes(W, V.view()); }
void read(Reader &R, qoString::CString &V) {
  V = qoString::CString(getBytes(R));
}
void write(Writer &W, const qoString::IString &V) { putBytes(W, V.view()); }
void read(Reader &R, qoString::IString &V) {
  V = qoString::IString(getBytes(R));
}

void write(Writer &W, const qoGeom::BoundingBox &V) {
  write(W, V.Min);
  write(W, V.Max);
}
void read(Reader &R, qoGeom::BoundingBox &V) {
  read(R, V.Min);
  read(R, V.Max);
}
void write(Writer &W, const qoGeom::MeshCoord &V) {
  write(W, V.Weights);
  W.writeValue(V.Face);
}
void read(Reader &R, qoGeom::MeshCoord &V) {
  read(R, V.Weights);
  V.Face = R.readValue<std::int32_t>();
}
void write(Writer &W, const qoGeom::OrientedBox &V) {
  write(W, V.Center);
  for (const qoLinear::Vector &Axis : V.Axes)
    write(W, Axis);
  for (double Extent : V.HalfExtents)
    W.writeValue(Extent);
}
void read(Reader &R, qoGeom::OrientedBox &V) {
  read(R, V.Center);
  for (qoLinear::Vector &Axis : V.Axes)
    read(R, Axis);
  for (double &Extent : V.HalfExtents)
    Extent = R.readValue<double>();
}
void write(Writer &W, const qoGeom::TopoMeshEntity &V) {
  W.writeValue(static_cast<std::int32_t>(V.kind()));
  W.writePtr(V.record());
}
void read(Reader &R, qoGeom::TopoMeshEntity &V) {
  const auto Kind = R.readValue<std::int32_t>();
  void *Record = R.readPtr();
  const bool Known = Kind >= qoGeom::TopoMeshEntity::None &&
                     Kind <= qoGeom::TopoMeshEntity::Face;
  V = qoGeom::TopoMeshEntity(
      Known ? static_cast<qoGeom::TopoMeshEntity::Kind>(Kind)
            : qoGeom::TopoMeshEntity::None,
      Record);
}
void write(Writer &W, const qoGeom::TopoMeshVertex &V) {
  W.writePtr(V.record());
}
void read(Reader &R, qoGeom::TopoMeshVertex &V) {
  V = qoGeom::TopoMeshVertex(R.readPtr());
}
void write(Writer &W, const qoGeom::TopoMeshEdge &V) { W.writePtr(V.record()); }
void read(Reader &R, qoGeom::TopoMeshEdge &V) {
  V = qoGeom::TopoMeshEdge(R.readPtr());
}
void write(Writer &W, const qoGeom::TopoMeshFace &V) { W.writePtr(V.record()); }
void read(Reader &R, qoGeom::TopoMeshFace &V) {
  V = qoGeom::TopoMeshFace(R.readPtr());
}

// A TypeInfo is the address of the type's run-time description: copying its
// bytes is copying that pointer.
static_assert(std::is_trivially_copyable_v<qo::TypeInfo> &&
              sizeof(qo::TypeInfo) == sizeof(void *));
void write(Writer &W, const qo::TypeInfo &V) { W.writeData(&V, sizeof V); }
void read(Reader &R, qo::TypeInfo &V) { R.readData(&V, sizeof V); }

std::size_t getSize(const qoGeom::CompactMesh &Mesh) {
  return Mesh.memorySize();
}
std::size_t getSize(const qoGeom::MeshAdjTris &Adjacency) {
  return Adjacency.memorySize();
}
std::size_t getSize(const qoGeom::MeshAdjVertices &Adjacency) {
  return Adjacency.memorySize();
}
std::size_t getSize(const qoGeom::MeshSubset &Subset) {
  return Subset.memorySize();
}
std::size_t getSize(const qoImage::Image &Image) { return Image.memorySize(); }

} // namespace nyTXN
