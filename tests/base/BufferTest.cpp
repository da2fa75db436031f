#include "base/thread/Buffer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using qo::Reference;
using qoThread::Buffer;

TEST(Buffer, HoldsBytesIncludingZerosAndMergesIntoANewBuffer) {
  const std::string Text("a\0b", 3);
  Reference<Buffer> A(new Buffer(Text)), B(new Buffer("cd"));
  A->resize(4);
  EXPECT_EQ(A->view(), Text + std::string(1, '\0'));
  A->append("e");
  Reference<Buffer> M = qoThread::mergeBuffers(A, B);
  EXPECT_EQ(M->view(), Text + std::string("\0ecd", 4));
  EXPECT_EQ(A->size(), 5u) << "the pieces stay as they were";
  EXPECT_EQ(qoThread::mergeBuffers(nullptr, B)->view(), "cd");
  EXPECT_TRUE(qoThread::mergeBuffers(nullptr, nullptr)->empty());
  const std::vector<Reference<Buffer>> Pieces{B, nullptr, B};
  EXPECT_EQ(qoThread::mergeBuffers(Pieces)->view(), "cdcd");
}
