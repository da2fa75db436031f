#include "base/os/OStream.h"

#include "base/os/MemoryIOStream.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using qoOS::MemoryIOStream;
using qoOS::OStream;

namespace {

// Accepts Capacity bytes, then writes short; records each write's size.
class LimitedStream : public MemoryIOStream {
public:
  explicit LimitedStream(std::size_t Capacity) : Capacity(Capacity) {}
  std::size_t write(const void *Buffer, std::size_t Length) override {
    Writes.push_back(Length);
    const std::size_t N = std::min(Length, Capacity - size());
    return MemoryIOStream::write(Buffer, N);
  }
  std::size_t Capacity;
  std::vector<std::size_t> Writes;
};

std::string text(std::size_t Length) {
  std::string Out(Length, '\0');
  for (std::size_t I = 0; I < Length; ++I)
    Out[I] = static_cast<char>('a' + I % 26);
  return Out;
}

} // namespace

TEST(OStream, BuffersUntilFlushOrDestruction) {
  LimitedStream Memory(1 << 20);
  {
    OStream Out(Memory);
    Out.format("%d-%s", 42, "x").put('\n').write(std::string_view("end\0", 4));
    EXPECT_EQ(Memory.size(), 0u) << "nothing written before a flush";
    EXPECT_TRUE(Out.flush());
    Out.write("tail");
  }
  EXPECT_EQ(Memory.contents().view(), std::string_view("42-x\nend\0tail", 13));
  EXPECT_EQ(Memory.Writes.size(), 2u);
}

// Small, buffer-sized and larger pieces, written and formatted, arrive whole
// and in order.
TEST(OStream, KeepsOrderAcrossTheBufferEnd) {
  const std::size_t B = OStream::BufferSize;
  for (std::size_t Big : {B - 3, B - 1, B, B + 1, 3 * B + 17}) {
    MemoryIOStream Memory;
    std::string Expected;
    {
      OStream Out(Memory);
      // Fills the buffer exactly, one byte short of the formatter's zero.
      Out.write(text(B - 3)).format("%s", "xyz");
      Expected = text(B - 3) + "xyz";
      for (int Round = 0; Round < 3; ++Round) {
        const std::string Small = text(10 + Round), Large = text(Big);
        Out.write(Small).write(Large).format("[%s]", Large.c_str());
        Expected += Small + Large + "[" + Large + "]";
      }
    }
    EXPECT_TRUE(Memory.contents().view() == Expected) << Big;
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
