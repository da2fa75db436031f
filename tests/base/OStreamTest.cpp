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

std::string text(std::size_t Length, char First) {
  std::string Out(Length, First);
  for (std::size_t I = 0; I < Length; ++I)
    Out[I] = static_cast<char>(First + I % 26);
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
    EXPECT_EQ(Memory.contents().view(), std::string_view("42-x\nend\0", 9));
    Out.write("tail");
  }
  EXPECT_EQ(Memory.contents().view(), std::string_view("42-x\nend\0tail", 13));
  EXPECT_EQ(Memory.Writes.size(), 2u);
}

// Mixed small, buffer-sized and larger pieces arrive whole and in order.
TEST(OStream, KeepsOrderAcrossBufferSizedWrites) {
  const std::size_t B = OStream::BufferSize;
  for (std::size_t Big : {B - 1, B, B + 1, 3 * B + 17}) {
    LimitedStream Memory(1 << 20);
    std::string Expected;
    {
      OStream Out(Memory);
      for (int Round = 0; Round < 3; ++Round) {
        const std::string Small = text(10 + Round, 'a');
        const std::string Large = text(Big, 'A');
        Out.write(Small).write(Large).format("[%d]", Round);
        Expected += Small + Large + "[" + std::to_string(Round) + "]";
      }
    }
    EXPECT_TRUE(Memory.contents().view() == Expected) << Big;
    for (std::size_t N : Memory.Writes)
      EXPECT_GT(N, 0u);
  }
}

TEST(OStream, FormatsTextLongerThanTheBuffer) {
  MemoryIOStream Memory;
  const std::string Long = text(3 * OStream::BufferSize + 5, 'a');
  {
    OStream Out(Memory);
    Out.write("<");
    Out.format("%s|%s", Long.c_str(), "z");
  }
  EXPECT_TRUE(Memory.contents().view() == "<" + Long + "|z");
}

TEST(OStream, FormatFillingTheBufferExactly) {
  MemoryIOStream Memory;
  const std::string Fill = text(OStream::BufferSize - 3, 'a');
  {
    OStream Out(Memory);
    Out.write(Fill);
    Out.format("%s", "xyz"); // one byte more than fits with its zero
    Out.format("%s", "12");
  }
  EXPECT_TRUE(Memory.contents().view() == Fill + "xyz12");
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
