//===- transaction/internal/Step.h - One undo step ------------------------===//
//
// An undo step: the objects recorded in one transaction with their bytes in
// one arena, and the objects whose existence the transaction changed.
// Internal to the transaction folder; Manager.cpp describes the invariants.
//
//===----------------------------------------------------------------------===//
#ifndef NYTXN_INTERNAL_STEP_H
#define NYTXN_INTERNAL_STEP_H

#include "transaction/Manager.h"
#include "transaction/internal/ByteBuffer.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace nyTXN::internal {

// One recorded object and where its bytes sit in the step's arena.
struct Entry {
  Object *Obj;
  std::uint32_t Offset;
  std::uint32_t Size;
};

struct Span {
  std::uint32_t Offset = 0;
  std::uint32_t Size = 0;
};

struct Step {
  std::uint64_t Id = 0;
  Stamp TxnStamp = 0;
  std::vector<Entry> Entries;
  // Done: the recorded (earlier) bytes; undone: the bytes to redo with,
  // followed by the saved state of the created objects (CreatedState).
  ByteBuffer Data;
  // The value objects Data names, each holding one reference.
  std::vector<const RefCountedObject *> Holds;
  // Null slots are objects created and deleted in the same transaction.
  std::vector<RefCountedObject *> Created;
  std::vector<Span> CreatedState;
  std::vector<RefCountedObject *> Destroyed;
  std::size_t LiveCreated = 0;
  // What the step charges the history, when Measured.
  std::size_t Bytes = 0;
  bool Measured = false;
  bool Undone = false;

  bool empty() const {
    return Entries.empty() && Destroyed.empty() && LiveCreated == 0;
  }
  // Memory its buffers hold on to, for the reuse decision.
  std::size_t footprint() const {
    return Data.capacity() + Entries.capacity() * sizeof(Entry) +
           (Created.capacity() + Destroyed.capacity() + Holds.capacity()) *
               sizeof(void *) +
           CreatedState.capacity() * sizeof(Span);
  }
  // The holds must have been released.
  void reset() {
    Entries.clear();
    Data.clear();
    Created.clear();
    CreatedState.clear();
    Destroyed.clear();
    LiveCreated = 0;
    Bytes = 0;
    Measured = false;
    Undone = false;
  }
};

} // namespace nyTXN::internal

#endif // NYTXN_INTERNAL_STEP_H
