#include "base/thread/Buffer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using qo::Reference;
using qoThread::Buffer;

TEST(Buffer, KeepsZeroBytesAndMergesIntoANewBuffer) {
  Reference<Buffer> A(new Buffer(std::string("a\0b", 3))), B(new Buffer("cd"));
  A->resize(4);
  A->append("e");
  EXPECT_EQ(qoThread::mergeBuffers(A, B)->view(), std::string("a\0b\0ecd", 7));
  EXPECT_EQ(A->size(), 5u) << "the pieces stay as they were";
  const std::vector<Reference<Buffer>> Pieces{B, nullptr, B};
  EXPECT_EQ(qoThread::mergeBuffers(Pieces)->view(), "cdcd");
}
