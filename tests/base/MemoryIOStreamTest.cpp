#include "base/os/MemoryIOStream.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

using qoOS::IOStream;
using qoOS::MemoryIOStream;

namespace {

// Bytes that differ at every position and include zeros.
std::string pattern(std::size_t Length) {
  std::string Bytes(Length, '\0');
  for (std::size_t I = 0; I < Length; ++I)
    Bytes[I] = static_cast<char>((I * 7 + I / 251) % 256);
  return Bytes;
}

std::string readAll(MemoryIOStream &Stream, std::size_t Chunk) {
  std::string Out;
  std::string Buffer(Chunk, '\0');
  while (std::size_t N = Stream.read(Buffer.data(), Chunk))
    Out.append(Buffer, 0, N);
  return Out;
}

} // namespace

// Faults at block edges hide from writes that happen to align with them, so
// every chunk size from 1 to 31 is replayed over small blocks.
TEST(MemoryIOStream, ChunkedWritesAndReadsMatchAcrossBlocks) {
  const std::string Data = pattern(500);
  for (std::size_t Chunk = 1; Chunk <= 31; ++Chunk) {
    MemoryIOStream Stream(16);
    for (std::size_t At = 0; At < Data.size(); At += Chunk) {
      const std::size_t N = std::min(Chunk, Data.size() - At);
      ASSERT_EQ(Stream.write(Data.data() + At, N), N);
    }
    ASSERT_EQ(Stream.size(), Data.size()) << Chunk;
    EXPECT_EQ(Stream.blockCount(), (Data.size() + 15) / 16);
    EXPECT_EQ(Stream.contents().view(), Data) << Chunk;
    ASSERT_TRUE(Stream.seek(0));
    EXPECT_EQ(readAll(Stream, Chunk), Data) << Chunk;
    EXPECT_FALSE(Stream.error());
  }
}

TEST(MemoryIOStream, WriteStraddlingTheDefaultBlockSplitsAt4096) {
  MemoryIOStream Stream;
  const std::string Data = pattern(4100);
  Stream.write(Data.data(), 4000);
  Stream.write(Data.data() + 4000, 100);
  ASSERT_EQ(Stream.blockCount(), 2u);
  EXPECT_EQ(Stream.block(0).size(), 4096u);
  EXPECT_EQ(Stream.block(1).size(), 4u);
  EXPECT_EQ(std::string(Stream.block(0)) + std::string(Stream.block(1)), Data);
}

TEST(MemoryIOStream, ExactlyFullBlockAddsNoEmptyBlock) {
  MemoryIOStream Stream(8);
  Stream.write("12345678", 8);
  EXPECT_EQ(Stream.blockCount(), 1u);
  Stream.write("9", 1);
  EXPECT_EQ(Stream.blockCount(), 2u);
  EXPECT_EQ(Stream.block(1), "9");
}

TEST(MemoryIOStream, AppendingNeverMovesWrittenBytes) {
  MemoryIOStream Stream;
  Stream.write("first", 5);
  const char *First = Stream.block(0).data();
  const std::string More = pattern(100000);
  Stream.write(More.data(), More.size());
  EXPECT_EQ(Stream.block(0).data(), First);
  EXPECT_EQ(Stream.block(0).substr(0, 5), "first");
}

TEST(MemoryIOStream, OverwritesAcrossABoundaryAfterSeek) {
  MemoryIOStream Stream(4);
  Stream.write("abcdefghij", 10);
  ASSERT_TRUE(Stream.seek(2));
  Stream.write("XYZW", 4);
  EXPECT_EQ(Stream.tell(), 6);
  EXPECT_EQ(Stream.size(), 10u);
  EXPECT_EQ(Stream.contents(), "abXYZWghij");
  // Overwriting past the old end extends the stream.
  ASSERT_TRUE(Stream.seek(-2, IOStream::SeekEnd));
  Stream.write("123", 3);
  EXPECT_EQ(Stream.contents(), "abXYZWgh123");
}

TEST(MemoryIOStream, ReadsStopAtTheEndAndSeeksStayInside) {
  MemoryIOStream Stream(4);
  Stream.write("abcdef", 6);
  char Buffer[8] = {};
  ASSERT_TRUE(Stream.seek(-3, IOStream::SeekCurrent));
  EXPECT_EQ(Stream.read(Buffer, sizeof Buffer), 3u);
  EXPECT_EQ(std::string(Buffer, 3), "def");
  EXPECT_EQ(Stream.read(Buffer, sizeof Buffer), 0u);
  EXPECT_FALSE(Stream.error()) << "the end of the bytes is not an error";

  EXPECT_TRUE(Stream.seek(6));
  EXPECT_FALSE(Stream.seek(7));
  EXPECT_TRUE(Stream.error());
  EXPECT_EQ(Stream.tell(), 6);
  EXPECT_FALSE(Stream.seek(-1));
  EXPECT_FALSE(Stream.seek(INT64_MAX, IOStream::SeekCurrent));
  EXPECT_FALSE(Stream.seek(INT64_MIN, IOStream::SeekEnd));
}

TEST(MemoryIOStream, ContentsSurviveClose) {
  MemoryIOStream Stream;
  const std::string Data("zero\0inside", 11);
  Stream.write(Data.data(), Data.size());
  EXPECT_TRUE(Stream.close());
  EXPECT_EQ(Stream.contents().view(), Data);
  ASSERT_TRUE(Stream.seek(0));
  EXPECT_EQ(readAll(Stream, 3), Data);
}
