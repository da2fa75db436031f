//===- tests/support/TxnIOTest.cpp - Value types as recorded fields -------===//

#include "support/TxnIO.h"

#include "base/geom/CompactMesh.h"
#include "base/geom/MeshAdjacency.h"
#include "base/geom/MeshSubset.h"
#include "base/image/Image.h"
#include "transaction/internal/ByteBuffer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>

namespace {

template <class T> std::vector<unsigned char> bytesOf(const T &Value) {
  nyTXN::internal::ByteBuffer Buffer;
  nyTXN::Writer W(Buffer, 0);
  nyTXN::IOMethods<T>::Table.callWrite(W, &Value);
  return {Buffer.data(), Buffer.data() + Buffer.size()};
}

// Writes Value, checks the byte count of the table, reads it back over
// Start and checks that every byte was consumed and the value came back.
template <class T>
void roundTrip(const T &Value, std::size_t Bytes, T Start = T()) {
  const auto Data = bytesOf(Value);
  EXPECT_EQ(Data.size(), Bytes);
  nyTXN::Reader R(Data.data(), Data.size());
  nyTXN::IOMethods<T>::Table.callRead(R, &Start);
  EXPECT_TRUE(R.atEnd());
  EXPECT_FALSE(R.failed());
  EXPECT_TRUE(Start == Value);
}

using namespace qoLinear;

TEST(TxnIO, LinearTypesHaveTheirFixedSizes) {
  roundTrip(Point(1, -2, 3.25), 24);
  roundTrip(Vector(0.5, 0, -7), 24);
  roundTrip(Normal(1, 2, 3), 24);
  roundTrip(Point2(4, 5), 16);
  roundTrip(PointFlt(1, 2, 3), 12);
  roundTrip(Point2Flt(1, 2), 8);
  roundTrip(Line(Point(1, 2, 3), Vector(0, 0, 2)), 48);
  roundTrip(Line(), 48, Line(Point(), Vector(1, 0, 0)));
  roundTrip(ParamLine{Point(1, 2, 3), Vector(4, 5, 6)}, 48);
  roundTrip(Plane(Point(1, 1, 1), Normal(0, 1, 1)), 48);
  roundTrip(ParamPlane(Point(1, 2, 3), Vector(1, 1, 0), Vector(0, 2, 1)), 96);
  roundTrip(Range3d(Point(-1, -2, -3), Point(1, 2, 3)), 48);
  roundTrip(AffineMatrix::translation(Vector(1, 2, 3)).rotateZ(0.5), 96);
  roundTrip(Quaternion(0.1, 0.2, 0.3, 0.9), 32);
  roundTrip(qoUtil::Color(0.25f, 0.5f, 0.75f, 1), 16);
}

// Line keeps its direction normalised; normalising the recorded one again
// on reading would move it by an ulp.
TEST(TxnIO, LinesComeBackBitForBit) {
  std::mt19937 Rng(7);
  std::uniform_real_distribution<double> Coord(-100, 100);
  for (int I = 0; I < 10000; ++I) {
    const Line L(Point(Coord(Rng), Coord(Rng), Coord(Rng)),
                 Vector(Coord(Rng), Coord(Rng), Coord(Rng)));
    Line Back;
    const auto Data = bytesOf(L);
    nyTXN::Reader R(Data.data(), Data.size());
    nyTXN::read(R, Back);
    ASSERT_TRUE(Back.point() == L.point());
    ASSERT_TRUE(Back.valid());
    ASSERT_TRUE(Back == L) << "line " << I;
  }
}

TEST(TxnIO, TextIsItsLengthThenItsBytes) {
  const qoString::CString Binary(std::string_view("a\0b", 3));
  roundTrip(Binary, 4 + 3, qoString::CString("previous"));
  const auto Data = bytesOf(Binary);
  EXPECT_EQ(Data[0], 3);
  EXPECT_EQ(Data[5], 0);
  roundTrip(qoString::CString(), 4, qoString::CString("x"));
  roundTrip(qoString::IString("gr\xC3\xBC\xC3\x9F"), 4 + 6);
}

TEST(TxnIO, GeometryValuesHaveTheirFixedSizes) {
  int Records[2];
  roundTrip(qoGeom::BoundingBox(PointFlt(0, 0, 0), PointFlt(1, 2, 3)), 24);
  roundTrip(qoGeom::MeshCoord{Point(0.2, 0.3, 0.5), 17}, 28);
  qoGeom::OrientedBox Box;
  Box.Center = Point(1, 2, 3);
  Box.HalfExtents[2] = 4;
  roundTrip(Box, 4 * 24 + 3 * 8);
  roundTrip(qoGeom::TopoMeshEntity(qoGeom::TopoMeshEdge(&Records[0])),
            4 + sizeof(void *));
  roundTrip(qoGeom::TopoMeshVertex(&Records[0]), sizeof(void *));
  roundTrip(qoGeom::TopoMeshEdge(&Records[1]), sizeof(void *));
  roundTrip(qoGeom::TopoMeshFace(&Records[1]), sizeof(void *));
}

TEST(TxnIO, TypeInfoIsAPointer) {
  const qo::TypeInfo Type = qo::TypeInfo::of<std::string>();
  qo::TypeInfo Back = qo::TypeInfo::of<int>();
  const auto Data = bytesOf(Type);
  EXPECT_EQ(Data.size(), sizeof(void *));
  nyTXN::Reader R(Data.data(), Data.size());
  nyTXN::read(R, Back);
  EXPECT_EQ(Back, Type);
}

TEST(TxnIO, ValuesAreLeftAloneByClear) {
  qoString::CString Text("kept");
  Point P(1, 2, 3);
  nyTXN::Clear C;
  nyTXN::IOMethods<qoString::CString>::Table.callClear(C, &Text);
  nyTXN::IOMethods<Point>::Table.callClear(C, &P);
  EXPECT_EQ(Text, "kept");
  EXPECT_TRUE(P == Point(1, 2, 3));
}

TEST(TxnIO, SizesAreWhatTheObjectsReport) {
  qoGeom::CompactMesh Mesh;
  for (int I = 0; I < 100; ++I)
    Mesh.addVertex(PointFlt(I, 0, 0));
  for (int I = 0; I + 2 < 100; ++I)
    Mesh.addTriangle(I, I + 1, I + 2);
  EXPECT_EQ(nyTXN::getSize(Mesh), Mesh.memorySize());
  EXPECT_GE(nyTXN::getSize(Mesh), 100 * sizeof(PointFlt) + 98 * 12);

  const qoGeom::MeshAdjTris Tris(Mesh);
  const qoGeom::MeshAdjVertices Neighbours(Mesh);
  EXPECT_EQ(nyTXN::getSize(Tris), Tris.memorySize());
  EXPECT_EQ(nyTXN::getSize(Neighbours), Neighbours.memorySize());
  EXPECT_EQ(Tris.of(1).size(), 2u);
  EXPECT_EQ(Neighbours.of(50).size(), 4u);

  qoGeom::MeshSubset Subset;
  Subset.add(5);
  EXPECT_EQ(nyTXN::getSize(Subset), Subset.memorySize());

  const qoImage::Image Image(16, 8, 4);
  EXPECT_EQ(nyTXN::getSize(Image), Image.memorySize());
  EXPECT_GE(nyTXN::getSize(Image), 16u * 8 * 4);
}

} // namespace
