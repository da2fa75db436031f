//===- plst/internal/NodeBlockAllocator.h - Map nodes in blocks -*- C++ -*-===//
//
// An allocator for node-based containers (the dictionary's map) that carves
// single nodes out of blocks, so that a small dictionary costs one heap
// allocation for all its nodes and releasing it one free. Blocks hold
// config::DictionaryNodeBlock nodes, except the first one when the allocator
// was told how many nodes to expect (a reader or a copy knows the count).
//
// Every slot records its block, and a block counts its live slots plus one
// while an allocator is still carving from it; the block is freed when the
// count reaches zero. So any copy of the allocator can free any node (all
// copies compare equal), nodes may move between maps (merge, splice, swap)
// and outlive the allocator that made them. A copy starts carving from a
// fresh block of its own. A freed slot is not reused: dictionaries are built
// and released far more often than entries are erased. Not thread-safe, like
// the items themselves.
//
// Example:
//   using Alloc = NodeBlockAllocator<std::pair<const K, V>>;
//   std::map<K, V, std::less<K>, Alloc> Small(Alloc(3)); // one block of 3
//
//===----------------------------------------------------------------------===//
#ifndef NYPLST_INTERNAL_NODEBLOCKALLOCATOR_H
#define NYPLST_INTERNAL_NODEBLOCKALLOCATOR_H

#include "plst/Config.h"

#include <cstddef>
#include <new>
#include <type_traits>

namespace nyPLST::internal {

template <class T> class NodeBlockAllocator {
public:
  using value_type = T;
  using propagate_on_container_move_assignment = std::true_type;
  using propagate_on_container_swap = std::true_type;

  NodeBlockAllocator() noexcept = default;
  // The first block will hold ExpectedNodes nodes (at least one).
  explicit NodeBlockAllocator(std::size_t ExpectedNodes) noexcept
      : NextBlockNodes(ExpectedNodes ? ExpectedNodes : 1) {}
  NodeBlockAllocator(const NodeBlockAllocator &Other) noexcept
      : NextBlockNodes(Other.NextBlockNodes) {}
  // Containers rebind once, when they are built: the size request carries.
  template <class U>
  NodeBlockAllocator(const NodeBlockAllocator<U> &Other) noexcept
      : NextBlockNodes(Other.NextBlockNodes) {}
  NodeBlockAllocator &operator=(const NodeBlockAllocator &) noexcept {
    return *this;
  }
  ~NodeBlockAllocator() { dropCurrent(); }

  T *allocate(std::size_t Count) {
    if (Count != 1)
      return static_cast<T *>(::operator new(Count * sizeof(T)));
    if (!Current || Current->Used == Current->Capacity)
      startBlock();
    Slot &S = slots(Current)[Current->Used++];
    S.Owner = Current;
    ++Current->Live;
    return reinterpret_cast<T *>(S.Storage);
  }

  void deallocate(T *Pointer, std::size_t Count) noexcept {
    if (Count != 1) {
      ::operator delete(Pointer);
      return;
    }
    auto *S = reinterpret_cast<Slot *>(
        reinterpret_cast<unsigned char *>(Pointer) - offsetof(Slot, Storage));
    release(S->Owner);
  }

  friend bool operator==(const NodeBlockAllocator &,
                         const NodeBlockAllocator &) noexcept {
    return true;
  }

private:
  template <class U> friend class NodeBlockAllocator;

  struct Header;
  struct Slot {
    Header *Owner;
    alignas(T) unsigned char Storage[sizeof(T)];
  };
  // The slots follow the header in the same allocation.
  struct alignas(Slot) Header {
    std::size_t Live;
    std::size_t Used;
    std::size_t Capacity;
  };

  static Slot *slots(Header *H) noexcept {
    return reinterpret_cast<Slot *>(H + 1);
  }

  static void release(Header *H) noexcept {
    if (--H->Live == 0)
      ::operator delete(H);
  }

  void startBlock() {
    const std::size_t Nodes = NextBlockNodes;
    auto *Fresh = static_cast<Header *>(
        ::operator new(sizeof(Header) + Nodes * sizeof(Slot)));
    Fresh->Live = 1;
    Fresh->Used = 0;
    Fresh->Capacity = Nodes;
    dropCurrent();
    Current = Fresh;
    NextBlockNodes = config::DictionaryNodeBlock;
  }

  void dropCurrent() noexcept {
    if (Current)
      release(Current);
    Current = nullptr;
  }

  Header *Current = nullptr;
  std::size_t NextBlockNodes = config::DictionaryNodeBlock;
};

} // namespace nyPLST::internal

#endif // NYPLST_INTERNAL_NODEBLOCKALLOCATOR_H
