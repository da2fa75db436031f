#include "base/os/OStream.h"

#include "base/os/MemoryIOStream.h"

#include <gtest/gtest.h>

#include <string>

using qoOS::MemoryIOStream;
using qoOS::OStream;

namespace {

// Accepts Capacity bytes, then writes short.
class LimitedStream : public MemoryIOStream {
public:
  explicit LimitedStream(std::size_t Capacity) : Capacity(Capacity) {}
  std::size_t write(const void *Buffer, std::size_t Length) override {
    return MemoryIOStream::write(Buffer, std::min(Length, Capacity - size()));
  }
  std::size_t Capacity;
};

std::string text(std::size_t Length) {
  std::string Out(Length, '\0');
  for (std::size_t I = 0; I < Length; ++I)
    Out[I] = static_cast<char>('a' + I % 26);
  return Out;
}

} // namespace

// Pieces below, at and above the buffer size arrive whole and in order, also
// after the buffer is filled to one byte short of the formatter's zero.
TEST(OStream, BuffersInOrderAcrossTheBufferEnd) {
  const std::size_t B = OStream::BufferSize;
  for (std::size_t Big : {B - 1, B, B + 1, 3 * B + 17}) {
    const std::string Fill = text(B - 3), Large = text(Big);
    MemoryIOStream Memory;
    {
      OStream Out(Memory);
      Out.format("%d-%s", 42, "x").put('\0');
      EXPECT_EQ(Memory.size(), 0u) << "nothing written before a flush";
      EXPECT_TRUE(Out.flush());
      Out.write(Fill).format("%s", "xyz").write("s").write(Large);
      Out.format("[%s]", Large.c_str()).write("tail");
    }
    EXPECT_TRUE(Memory.contents().view() == std::string("42-x\0", 5) + Fill +
                                                "xyzs" + Large + "[" + Large +
                                                "]tail")
        << Big;
  }
}

TEST(OStream, ShortWriteIsAnError) {
  LimitedStream Memory(5);
  OStream Out(Memory);
  Out.write("abc");
  EXPECT_TRUE(Out.flush());
  Out.write("def");
  EXPECT_FALSE(Out.flush());
  EXPECT_TRUE(Out.error());
  EXPECT_EQ(Memory.contents(), "abcde");
}
