#include "plst/internal/NodeBlockAllocator.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

using nyPLST::internal::NodeBlockAllocator;

namespace {

using Alloc = NodeBlockAllocator<std::pair<const int, std::string>>;
using Map = std::map<int, std::string, std::less<int>, Alloc>;

// Long enough to live on the heap: a leak or a double free shows under the
// sanitizers.
std::string value(int I) {
  return "a value long enough to allocate " + std::to_string(I);
}

Map filled(int From, int To, Alloc A = Alloc()) {
  Map M(A);
  for (int I = From; I < To; ++I)
    M.emplace(I, value(I));
  return M;
}

} // namespace

// Nodes outlive the map that allocated them and move between maps of other
// block sizes; the sanitizer build checks every block is freed exactly once.
TEST(NodeBlockAllocator, NodesSurviveMovesCopiesAndErasure) {
  Map Kept;
  {
    Map Source = filled(0, 25);
    Map Other = filled(100, 103, Alloc(3));
    Kept.merge(Source);
    Source.swap(Other);
    Kept.insert(Source.extract(101));
    Map Moved = std::move(Source);
    Kept.merge(Moved);
    EXPECT_TRUE(Moved.empty());
  }
  for (int I = 0; I < 25; I += 3)
    Kept.erase(I);
  Map Copy = filled(0, 40, Alloc(7));
  Copy = Kept;
  Kept.clear();
  ASSERT_EQ(Copy.size(), 19u);
  EXPECT_EQ(Copy.at(23), value(23));
  EXPECT_EQ(Copy.at(102), value(102));
}
