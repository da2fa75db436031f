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

} // namespace

// Faults at block edges hide from writes that happen to align with them, so
// every chunk size from 1 to 31 is replayed over small blocks. The data ends
// exactly at a block edge, where no empty block may follow.
TEST(MemoryIOStream, ChunkedWritesAndReadsMatchAcrossBlocks) {
  const std::string Data = pattern(31 * 16);
  for (std::size_t Chunk = 1; Chunk <= 31; ++Chunk) {
    SCOPED_TRACE(Chunk);
    MemoryIOStream Stream(16);
    for (std::size_t At = 0; At < Data.size(); At += Chunk) {
      const std::size_t N = std::min(Chunk, Data.size() - At);
      ASSERT_EQ(Stream.write(Data.data() + At, N), N);
    }
    EXPECT_EQ(Stream.blockCount(), 31u);
    ASSERT_TRUE(Stream.seek(0));
    std::string Read(Chunk, '\0'), Out;
    while (std::size_t N = Stream.read(Read.data(), Chunk))
      Out.append(Read, 0, N);
    EXPECT_EQ(Out, Data);
    EXPECT_FALSE(Stream.error()) << "the end of the bytes is not an error";
  }
}

// Appending never moves bytes already written.
TEST(MemoryIOStream, WriteStraddlingTheDefaultBlockSplitsAt4096) {
  MemoryIOStream Stream;
  const std::string Data = pattern(4100);
  Stream.write(Data.data(), 4000);
  const char *First = Stream.block(0).data();
  Stream.write(Data.data() + 4000, 100);
  ASSERT_EQ(Stream.blockCount(), 2u);
  EXPECT_EQ(Stream.block(0).size(), 4096u);
  EXPECT_EQ(std::string(Stream.block(0)) + std::string(Stream.block(1)), Data);
  EXPECT_EQ(Stream.block(0).data(), First);
}

// Overwriting past the old end extends the stream.
TEST(MemoryIOStream, OverwritesAcrossABoundaryAndSeeksStayInside) {
  MemoryIOStream Stream(4);
  Stream.write("abcdefghij", 10);
  ASSERT_TRUE(Stream.seek(-8, IOStream::SeekCurrent));
  Stream.write("XYZW", 4);
  ASSERT_TRUE(Stream.seek(-2, IOStream::SeekEnd));
  Stream.write("123", 3);
  EXPECT_EQ(Stream.contents(), "abXYZWgh123");
  EXPECT_FALSE(Stream.seek(12));
  EXPECT_TRUE(Stream.error());
  EXPECT_FALSE(Stream.seek(INT64_MAX, IOStream::SeekCurrent));
  EXPECT_FALSE(Stream.seek(INT64_MIN, IOStream::SeekEnd));
}
