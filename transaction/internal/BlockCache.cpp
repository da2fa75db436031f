//===- transaction/internal/BlockCache.cpp - Slabs of same-size blocks ----===//
//
// Invariant: Partial links every slab that has a block to give (a free-list
// entry or a never-used block), and no other; EmptySlabs counts the slabs
// with no block in use, all of which are in Partial. A slab's header sits in
// its first blocks, so no block address is a slab address.
//
//===----------------------------------------------------------------------===//

#include "transaction/internal/BlockCache.h"

#include <new>

namespace nyTXN::internal {

namespace {
constexpr std::align_val_t SlabAlignment{BlockCache::SlabBytes};
} // namespace

BlockCache::BlockCache(std::size_t BlockBytes, std::size_t MaxEmptySlabs)
    : BlockBytes(BlockBytes), MaxEmptySlabs(MaxEmptySlabs),
      Blocks(static_cast<std::uint32_t>(SlabBytes / BlockBytes)) {
  assert(BlockBytes >= 16 && BlockBytes <= 512 &&
         (BlockBytes & (BlockBytes - 1)) == 0 &&
         "block size must be a power of two from 16 to 512");
}

// A slab with a block still in use is left allocated: a block that outlives
// its cache is a caller error, but it must not point into freed memory.
BlockCache::~BlockCache() {
  assert(EmptySlabs == Slabs && "a block outlives its cache");
  while (Slab *S = Partial) {
    Partial = S->Next;
    if (S->Used == 0)
      freeSlab(S);
  }
}

BlockCache::Slab *BlockCache::newSlab() {
  void *Memory = ::operator new(SlabBytes, SlabAlignment);
  const auto HeaderBlocks =
      static_cast<std::uint32_t>((sizeof(Slab) + BlockBytes - 1) / BlockBytes);
  Slab *S = ::new (Memory) Slab(HeaderBlocks);
  poison(static_cast<unsigned char *>(Memory) + HeaderBlocks * BlockBytes,
         SlabBytes - HeaderBlocks * BlockBytes);
  ++Slabs;
  ++EmptySlabs;
  linkPartial(S);
  return S;
}

void BlockCache::emptied(Slab *S) {
  if (++EmptySlabs <= MaxEmptySlabs)
    return;
  --EmptySlabs;
  --Slabs;
  unlinkPartial(S);
  freeSlab(S);
}

void BlockCache::freeSlab(Slab *S) {
  unpoison(S, SlabBytes);
  S->~Slab();
  ::operator delete(S, SlabAlignment);
}

void BlockCache::linkPartial(Slab *S) {
  S->Prev = nullptr;
  S->Next = Partial;
  if (Partial)
    Partial->Prev = S;
  Partial = S;
}

void BlockCache::unlinkPartial(Slab *S) {
  (S->Prev ? S->Prev->Next : Partial) = S->Next;
  if (S->Next)
    S->Next->Prev = S->Prev;
  S->Prev = S->Next = nullptr;
}

} // namespace nyTXN::internal
