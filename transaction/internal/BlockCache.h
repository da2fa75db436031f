//===- transaction/internal/BlockCache.h - Slabs of same-size blocks ------===//
//
// The memory of the small immutable objects a manager makes and frees by the
// hundred per transaction (value holders). Blocks of one size, aligned to
// their size (a 64-byte holder is one cache line), are cut from 4 KiB slabs:
// making one is a pop from a free list, and freeing one is a push onto its
// slab's list, found by masking the address. A slab whose blocks are all
// free goes back to the general allocator once more than MaxEmptySlabs are
// waiting, so a huge step trimmed from the history does not pin its peak.
// A slab stays while any of its blocks lives. Internal to the transaction
// folder; single thread, like the manager.
//
//===----------------------------------------------------------------------===//
#ifndef NYTXN_INTERNAL_BLOCKCACHE_H
#define NYTXN_INTERNAL_BLOCKCACHE_H

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define NYTXN_BLOCKCACHE_ASAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define NYTXN_BLOCKCACHE_ASAN 1
#endif
#endif
#ifdef NYTXN_BLOCKCACHE_ASAN
#include <sanitizer/asan_interface.h>
#endif

namespace nyTXN::internal {

class BlockCache {
public:
  static constexpr std::size_t SlabBytes = 4096;

  // BlockBytes: a power of two from 16 to 512.
  BlockCache(std::size_t BlockBytes, std::size_t MaxEmptySlabs);
  BlockCache(const BlockCache &) = delete;
  BlockCache &operator=(const BlockCache &) = delete;
  // Every block must have been freed.
  ~BlockCache();

  std::size_t blockBytes() const { return BlockBytes; }
  std::size_t slabCount() const { return Slabs; }

  void *allocate() {
    Slab *S = Partial ? Partial : newSlab();
    if (S->Used == 0)
      --EmptySlabs;
    // A free block's link is read before it is handed out.
    if (S->Free)
      unpoison(S->Free);
    void *Block = S->take(BlockBytes);
    unpoison(Block);
    if (S->full(Blocks))
      unlinkPartial(S);
    return Block;
  }
  void deallocate(void *Block) {
    Slab *S = slabOf(Block);
    const bool WasFull = S->full(Blocks);
    S->give(Block);
    poison(Block);
    if (WasFull)
      linkPartial(S);
    if (S->Used == 0)
      emptied(S);
  }

private:
  struct FreeBlock {
    FreeBlock *Next;
  };
  // The header fills the first block(s) of its slab.
  struct Slab {
    Slab *Prev = nullptr;
    Slab *Next = nullptr;
    FreeBlock *Free = nullptr;
    // Blocks handed out and not freed.
    std::uint32_t Used = 0;
    // Index of the first block never handed out.
    std::uint32_t Fresh;

    explicit Slab(std::uint32_t FirstBlock) : Fresh(FirstBlock) {}
    bool full(std::uint32_t Blocks) const { return !Free && Fresh == Blocks; }
    void *take(std::size_t BlockBytes);
    void give(void *Block) {
      Free = ::new (Block) FreeBlock{Free};
      --Used;
    }
  };

  static Slab *slabOf(void *Block) {
    return reinterpret_cast<Slab *>(reinterpret_cast<std::uintptr_t>(Block) &
                                    ~std::uintptr_t(SlabBytes - 1));
  }
  Slab *newSlab();
  void emptied(Slab *S);
  void freeSlab(Slab *S);
  void linkPartial(Slab *S);
  void unlinkPartial(Slab *S);
  // Under AddressSanitizer a free block is unreadable, so a use after free
  // is still caught although the memory stays with the cache.
  void poison(void *Block) const { poison(Block, BlockBytes); }
  void unpoison(void *Block) const { unpoison(Block, BlockBytes); }
  static void poison(void *Memory, std::size_t Bytes) {
    (void)Memory, (void)Bytes;
#ifdef NYTXN_BLOCKCACHE_ASAN
    ASAN_POISON_MEMORY_REGION(Memory, Bytes);
#endif
  }
  static void unpoison(void *Memory, std::size_t Bytes) {
    (void)Memory, (void)Bytes;
#ifdef NYTXN_BLOCKCACHE_ASAN
    ASAN_UNPOISON_MEMORY_REGION(Memory, Bytes);
#endif
  }

  const std::size_t BlockBytes;
  const std::size_t MaxEmptySlabs;
  // Blocks a slab is cut into, the header's included.
  const std::uint32_t Blocks;
  // Slabs with a block to give, most recently freed into first; empty ones
  // (no block in use) are counted.
  Slab *Partial = nullptr;
  std::size_t Slabs = 0;
  std::size_t EmptySlabs = 0;
};

inline void *BlockCache::Slab::take(std::size_t BlockBytes) {
  ++Used;
  if (FreeBlock *Block = Free) {
    Free = Block->Next;
    return Block;
  }
  return reinterpret_cast<unsigned char *>(this) + BlockBytes * Fresh++;
}

} // namespace nyTXN::internal

#endif // NYTXN_INTERNAL_BLOCKCACHE_H
