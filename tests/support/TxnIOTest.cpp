//===- tests/support/TxnIOTest.cpp - Value types as recorded fields -------===//

#include "support/TxnIO.h"

#include "transaction/internal/ByteBuffer.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

// Writes Value, checks the byte count, reads it back over Start and checks
// that every byte was consumed and the value came back bit for bit.
template <class T>
std::vector<unsigned char> roundTrip(const T &Value, std::size_t Bytes,
                                     T Start = T()) {
  nyTXN::internal::ByteBuffer Buffer;
  nyTXN::Writer W(Buffer, 0);
  nyTXN::IOMethods<T>::Table.callWrite(W, &Value);
  EXPECT_EQ(Buffer.size(), Bytes);
  nyTXN::Reader R(Buffer.data(), Buffer.size());
  nyTXN::IOMethods<T>::Table.callRead(R, &Start);
  EXPECT_TRUE(R.atEnd() && !R.failed());
  EXPECT_TRUE(Start == Value);
  return {Buffer.data(), Buffer.data() + Buffer.size()};
}

using namespace qoLinear;

TEST(TxnIO, ValuesRoundTripInTheirFixedSizes) {
  int Records[2];
  qoGeom::OrientedBox Box;
  Box.Center = Point(1, 2, 3);
  Box.HalfExtents[2] = 4;
  roundTrip(Point(1, -2, 3.25), 24);
  roundTrip(Vector(0.5, 0, -7), 24);
  roundTrip(Normal(1, 2, 3), 24);
  roundTrip(Point2(4, 5), 16);
  roundTrip(PointFlt(1, 2, 3), 12);
  roundTrip(Point2Flt(1, 2), 8);
  roundTrip(Line(), 48, Line(Point(), Vector(1, 0, 0)));
  roundTrip(ParamLine{Point(1, 2, 3), Vector(4, 5, 6)}, 48);
  roundTrip(Plane(Point(1, 1, 1), Normal(0, 1, 1)), 48);
  roundTrip(ParamPlane(Point(1, 2, 3), Vector(1, 1, 0), Vector(0, 2, 1)), 96);
  roundTrip(Range3d(Point(-1, -2, -3), Point(1, 2, 3)), 48);
  roundTrip(AffineMatrix::translation(Vector(1, 2, 3)).rotateZ(0.5), 96);
  roundTrip(Quaternion(0.1, 0.2, 0.3, 0.9), 32);
  roundTrip(qoUtil::Color(0.25f, 0.5f, 0.75f, 1), 16);
  roundTrip(qoGeom::BoundingBox(PointFlt(0, 0, 0), PointFlt(1, 2, 3)), 24);
  roundTrip(qoGeom::MeshCoord{Point(0.2, 0.3, 0.5), 17}, 28);
  roundTrip(Box, 4 * 24 + 3 * 8);
  roundTrip(qoGeom::TopoMeshEntity(qoGeom::TopoMeshEdge(&Records[0])),
            4 + sizeof(void *));
  roundTrip(qoGeom::TopoMeshVertex(&Records[0]), sizeof(void *));
  roundTrip(qoGeom::TopoMeshFace(&Records[1]), sizeof(void *));
  roundTrip(qo::TypeInfo::of<std::string>(), sizeof(void *),
            qo::TypeInfo::of<int>());
  // Text is its length then its bytes, zero bytes included.
  const qoString::CString Binary(std::string_view("a\0b", 3));
  const auto Data = roundTrip(Binary, 4 + 3, qoString::CString("previous"));
  EXPECT_EQ(Data[0], 3);
  EXPECT_EQ(Data[5], 0);
  roundTrip(qoString::CString(), 4, qoString::CString("x"));
  roundTrip(qoString::IString("gr\xC3\xBC\xC3\x9F"), 4 + 6);
}

// Line keeps its direction normalised; normalising the recorded one again
// on reading would move it by an ulp.
TEST(TxnIO, LinesComeBackBitForBit) {
  std::mt19937 Rng(7);
  std::uniform_real_distribution<double> Coord(-100, 100);
  for (int I = 0; I < 10000 && !::testing::Test::HasFailure(); ++I)
    roundTrip(Line(Point(Coord(Rng), Coord(Rng), Coord(Rng)),
                   Vector(Coord(Rng), Coord(Rng), Coord(Rng))),
              48);
}

} // namespace
