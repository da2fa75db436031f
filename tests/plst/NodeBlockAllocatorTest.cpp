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

// Nodes outlive the map that allocated them and move between maps; the
// sanitizer build checks that every block is freed exactly once.
TEST(NodeBlockAllocator, NodesSurviveMovesBetweenMaps) {
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
  ASSERT_EQ(Kept.size(), 28u);
  EXPECT_EQ(Kept.at(24), value(24));
  EXPECT_EQ(Kept.at(102), value(102));
}

TEST(NodeBlockAllocator, EraseCopyAndAssignKeepContents) {
  Map M = filled(0, 40, Alloc(7));
  for (int I = 0; I < 40; I += 3)
    M.erase(I);
  Map Copy = M;
  Map Assigned = filled(0, 5);
  Assigned = Copy;
  M.clear();
  M = filled(50, 52);
  EXPECT_EQ(Copy.size(), 26u);
  EXPECT_EQ(Assigned, Copy);
  EXPECT_EQ(Assigned.at(38), value(38));
  EXPECT_EQ(M.size(), 2u);
}
