#include "base/thread/Buffer.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

using qo::Reference;
using qoThread::Buffer;
using qoThread::mergeBuffers;

namespace {
Reference<Buffer> bytes(std::string_view Text) {
  return Reference<Buffer>(new Buffer(Text));
}
} // namespace

TEST(Buffer, HoldsBytesIncludingZeros) {
  const std::string Text("a\0b", 3);
  Reference<Buffer> B = bytes(Text);
  EXPECT_EQ(B->size(), 3u);
  EXPECT_EQ(B->view(), Text);
  B->append("cd");
  B->append(nullptr, 0);
  EXPECT_EQ(B->view(), Text + "cd");
  B->resize(7);
  EXPECT_EQ(B->data()[6], '\0');
  EXPECT_EQ(Buffer(4).view(), std::string(4, '\0'));
  EXPECT_TRUE(Buffer().empty());
}

TEST(Buffer, MergeMakesANewBufferAndTreatsNullAsEmpty) {
  Reference<Buffer> A = bytes("head"), B = bytes("tail");
  Reference<Buffer> M = mergeBuffers(A, B);
  EXPECT_EQ(M->view(), "headtail");
  EXPECT_NE(M, A);
  EXPECT_EQ(A->view(), "head");
  EXPECT_EQ(mergeBuffers(A, nullptr)->view(), "head");
  EXPECT_EQ(mergeBuffers(nullptr, B)->view(), "tail");
  EXPECT_TRUE(mergeBuffers(nullptr, nullptr)->empty());
  EXPECT_EQ(mergeBuffers(A, A)->view(), "headhead");

  const std::vector<Reference<Buffer>> Pieces{A, nullptr, bytes(""), B, A};
  EXPECT_EQ(mergeBuffers(Pieces)->view(), "headtailhead");
}

TEST(Buffer, HandedToAnotherThread) {
  Reference<Buffer> Filled;
  std::thread Producer([&] {
    Reference<Buffer> B(new Buffer);
    for (int I = 0; I < 1000; ++I)
      B->append("x");
    Filled = B;
  });
  Producer.join();
  EXPECT_EQ(Filled->size(), 1000u);
  EXPECT_EQ(Filled->refCount(), 1u);
}
