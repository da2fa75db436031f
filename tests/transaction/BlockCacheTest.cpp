//===- tests/transaction/BlockCacheTest.cpp - Slabs of same-size blocks ---===//

#include "transaction/internal/BlockCache.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <set>
#include <vector>

using nyTXN::internal::BlockCache;

namespace {

constexpr std::size_t Block = 64;
constexpr std::size_t PerSlab = BlockCache::SlabBytes / Block - 1;

std::vector<void *> take(BlockCache &C, std::size_t N) {
  std::vector<void *> Blocks;
  for (std::size_t I = 0; I < N; ++I) {
    Blocks.push_back(C.allocate());
    // Each block is usable in full without touching its neighbours.
    std::memset(Blocks.back(), int(I & 0xff), Block);
  }
  return Blocks;
}

TEST(BlockCache, HandsOutDistinctAlignedBlocksAndReusesFreedOnes) {
  BlockCache C(Block, 0);
  std::vector<void *> Blocks = take(C, 3 * PerSlab + 5);
  std::set<std::uintptr_t> Seen;
  for (void *P : Blocks) {
    const auto Address = reinterpret_cast<std::uintptr_t>(P);
    EXPECT_EQ(Address % Block, 0u);
    EXPECT_NE(Address % BlockCache::SlabBytes, 0u) << "the header's place";
    EXPECT_TRUE(Seen.insert(Address).second);
  }
  EXPECT_EQ(C.slabCount(), 4u);
  void *Freed = Blocks[7];
  C.deallocate(Freed);
  EXPECT_EQ(C.allocate(), Freed) << "a freed block comes back first";
  for (void *P : Blocks)
    C.deallocate(P);
  EXPECT_EQ(C.slabCount(), 0u);
}

// Freeing in any order empties whole slabs; beyond the kept number they go
// back to the allocator, and a slab stays while one block of it lives.
TEST(BlockCache, KeepsAtMostTheEmptySlabsAskedFor) {
  BlockCache C(Block, 2);
  std::vector<void *> Blocks = take(C, 5 * PerSlab);
  EXPECT_EQ(C.slabCount(), 5u);
  std::vector<void *> Survivor{Blocks[PerSlab / 2]};
  Blocks.erase(Blocks.begin() + PerSlab / 2);
  std::reverse(Blocks.begin(), Blocks.end());
  for (void *P : Blocks)
    C.deallocate(P);
  EXPECT_EQ(C.slabCount(), 3u) << "two kept empty, one held by the survivor";
  std::vector<void *> Again = take(C, 3 * PerSlab - 1);
  EXPECT_EQ(C.slabCount(), 3u) << "the kept slabs are used again";
  for (void *P : Again)
    C.deallocate(P);
  C.deallocate(Survivor.front());
  EXPECT_EQ(C.slabCount(), 2u);
}

} // namespace
