//===- transaction/Manager.h - Transactions and the undo history ----------===//
//
// nyTXN::Manager opens and closes transactions, records objects before their
// first change in a transaction (snapshot on first write, like a rollback
// journal) and keeps the history of undo steps that undo() and redo() walk.
// One manager belongs to one thread; nothing is locked.
//
// Transaction types (the integer handed to beginTransaction):
//   0  records an undo step;
//   1  records, and the step is dropped at the end without being undone:
//      its changes join the step before, whose undo takes them back too
//      (objects it created included), and whose redo brings them back;
//   2  records nothing;
//   3  read-only: a recording attempt is reported on undoChannel() and the
//      change goes ahead unrecorded;
//   4  records and leaves the step pending: the application calls keepStep()
//      or dropStep() after endTransaction(). Anything else that touches the
//      history first (a new transaction, undo, redo, setClean, limits,
//      clearHistory) keeps the pending step.
// Transactions nest: an inner begin/end pair only counts; the outermost
// transaction's type decides, and the step closes with the outermost end.
// A transaction that recorded nothing (no object changed, created or
// released) leaves no step, and leaves the redo branch alone; the first
// recording of a transaction of type 0, 1 or 4 discards the redo branch.
//
// The write rule: before its first change in a transaction an object is
// recorded, i.e. `if (O.txnStamp() != M.currentStamp()) M.onTransact(&O);`
// (Object::recordChange() says exactly that). The stamp changes when the
// outermost transaction begins and when it ends, so a recorded object costs
// one comparison per further change. A change outside any transaction is not
// recorded; the first one of each stretch between transactions is reported
// on undoChannel().
//
// Lifetime of RefCountedObjects (see Object.h for the counting itself):
// - Created inside a recording transaction: belongs to that step; undoing the
//   step takes it out of the living set (isTxnExtant() false, its recorded
//   fields saved and cleared), redoing it brings it back.
// - Count reaches zero inside a recording transaction: onTxnDestroyed(), then
//   its recorded fields are cleared (the references it held are released, as
//   recorded changes of the same step) and it leaves the living set, kept by
//   the step; undo brings it back with its fields. An object created in the
//   same transaction is deleted at once instead.
// - Count reaches zero anywhere else (outside transactions, types 2 and 3):
//   onTxnDestroyed(), then it is deleted at once; except when the history may
//   still refer to it (it was created or written in a kept step), then it is
//   reported on undoChannel() and parked until the manager is destroyed, so
//   that an undo never touches freed memory.
// - An object is deleted for real when no kept step can bring it back: its
//   step is trimmed by a limit, dropped, or discarded with the redo branch.
//   Still referenced at that moment, it is deleted when its count reaches 0.
// - Undo can bring back an object that nothing counts (a member found only
//   through plain pointers): it stays alive with a count of zero and is
//   deleted by the manager's destructor unless it is referenced again.
// - Value objects (immutable, see RefCountedObject::newValueObject) are the
//   exception: a step holds a reference on each one its bytes name, so they
//   stay in the living set and are deleted when the count reaches zero.
//
// Undo of a step: entries in reverse recording order save their current
// bytes (for redo) and get their recorded bytes back, through the object's
// restore function when it has one, each followed by onTxnRestored(); objects
// created in the step then leave the living set and objects released in it
// come back. Then the announcements: onTxnExtant() to each object whose
// existence changed (released ones, then created ones, each list in its own
// order), and onTxnModified() to each restored object that exists
// afterwards, in recording order. Redo is the mirror image: created objects
// get their fields back first, then entries in recording order; onTxnExtant
// to created then released objects; onTxnModified to the entries, then to
// the created objects whose fields came back.
// Only undo and redo announce: closing a transaction calls no hook.
// Undo and redo are not transactions: a transaction begun by a callback while
// they run records nothing, and counts that reach zero meanwhile are settled
// when they finish.
//
// Limits: setUndoLimit(n) keeps at most n steps, undo and redo steps
// together (0 = no limit; the redo branch is empty after every new step, so
// n undo steps stay); setMemoryLimit(bytes) keeps historySize() within bytes
// (0 = no limit) but always keeps one step. Both trim at once, the oldest
// steps first, then the farthest redo steps. The history-changed signal fires
// after every operation that changed undoCount(), redoCount() or the position.
//
// Destroying the manager deletes every object it keeps; all references to
// its objects must be released before it goes.
//
// Example:
//   nyTXN::Manager M;
//   M.setUndoLimit(100);
//   M.beginTransaction(0);
//   Shape->setRadius(2.0);     // records Shape first, then changes it
//   M.endTransaction();
//   M.undo();                  // radius back to what it was
//   M.redo();                  // and 2.0 again
//
//===----------------------------------------------------------------------===//
#ifndef NYTXN_MANAGER_H
#define NYTXN_MANAGER_H

#include "base/os/DebugChannel.h"
#include "base/rtb/Signal.h"
#include "transaction/Config.h"
#include "transaction/internal/BlockCache.h"
#include "transaction/internal/ByteBuffer.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

namespace nyTXN {

class Object;
class RefCountedObject;
namespace internal {
struct Step;
struct Entry;
} // namespace internal

// Identifies a transaction (or a stretch between transactions).
using Stamp = std::uint64_t;

// The transaction types, for readability; beginTransaction takes the int.
enum TxnType : int {
  TxnUndoable = 0,
  TxnTransient = 1,
  TxnUnrecorded = 2,
  TxnReadOnly = 3,
  TxnUndecided = 4,
};

// The "Undo" debug channel (off by default): changes outside transactions,
// recording attempts in read-only transactions, objects parked because the
// history refers to them.
qoOS::DebugChannel &undoChannel();

class Manager {
public:
  Manager();
  ~Manager();
  Manager(const Manager &) = delete;
  Manager &operator=(const Manager &) = delete;

  // Transactions.
  void beginTransaction(int Type);
  void endTransaction();
  bool inTransaction() const { return Depth > 0; }
  // The outermost open transaction's type, or -1 outside transactions.
  int transactionType() const { return Depth > 0 ? Type : -1; }
  int transactionDepth() const { return Depth; }
  // True while changes are being recorded (types 0, 1, 4 outside undo/redo).
  bool isRecording() const { return Recording; }
  Stamp currentStamp() const { return Current; }
  // Records O's present state in the open step (when recording) and stamps
  // it with the current stamp; see the write rule above.
  void onTransact(Object *O);

  // The history.
  bool undo();
  bool redo();
  bool canUndo() const { return Position > 0; }
  bool canRedo() const { return Position < Steps.size(); }
  int undoCount() const { return static_cast<int>(Position); }
  int redoCount() const { return static_cast<int>(Steps.size() - Position); }
  // A type 4 step waiting for keepStep() or dropStep().
  bool hasPendingStep() const { return Pending; }
  // Both return false when no step is pending.
  bool keepStep();
  bool dropStep();
  // Discards every step; what only the history kept is deleted.
  void clearHistory();

  void setUndoLimit(int Steps);
  int undoLimit() const { return UndoLimit; }
  void setMemoryLimit(std::size_t Bytes);
  std::size_t memoryLimit() const { return MemoryLimit; }
  // Bytes held by the history: snapshots, bookkeeping, the objects kept only
  // for undo or redo and the value objects the steps name (as their
  // onTxnGetSize reports them).
  std::size_t historySize() const;

  // Marks the present position clean; isClean() is true while the history
  // is back at it. The mark becomes unreachable when its step is discarded.
  void setClean();
  bool isClean() const { return CleanValid && CleanId == positionId(); }

  qoRTB::Signal &getSigHistoryChanged() { return HistoryChanged; }

  // Objects the manager keeps that no one else counts: released ones held
  // for undo, created ones undone and held for redo, parked ones and those
  // revived with a count of zero. For tests and diagnostics.
  std::size_t keptObjectCount() const;

private:
  friend class Object;
  friend class RefCountedObject;

  void *allocateValueObject() { return ValueObjects.allocate(); }
  void releaseHolds(std::vector<const RefCountedObject *> &Holds);
  void destroyValueObject(const RefCountedObject *X);
  void created(RefCountedObject *X);
  void abandoned(RefCountedObject *X);
  void release(RefCountedObject *X);
  void releaseOne(RefCountedObject *X);
  void destroyNow(RefCountedObject *X);
  void deleteOrDetach(RefCountedObject *X);
  void announceDestroyed(RefCountedObject *X);
  void park(RefCountedObject *X);
  void unpark(RefCountedObject *X);
  bool knownToHistory(const RefCountedObject *X) const;
  void forgetOrphan(RefCountedObject *X);
  void settleLater(RefCountedObject *X);
  void settleCandidates();

  void onTransactSlow(Object *O);
  internal::Step &openStep() { return Open ? *Open : openNewStep(); }
  internal::Step &openNewStep();
  // False when O describes no fields (nothing was recorded).
  bool recordInto(internal::Step &S, Object *O);
  void clearFields(Object *O);
  void restoreEntry(internal::Step &S, internal::Entry &E, bool Undo);
  void swapInScratch(internal::Step &S);
  void undoStep(internal::Step &S);
  void redoStep(internal::Step &S);
  void announce(internal::Step &S, bool Undo);
  void closeStep();
  void dropInto(internal::Step *S);
  void mergeInto(internal::Step &Prev, internal::Step &S);
  void keepPending();

  internal::Step *newStep();
  void retire(internal::Step *S);
  void trimFront();
  void discardBack();
  void discardRedo();
  void enforceLimits();
  void updateSize(internal::Step &S);
  void measure(internal::Step &S) const;
  std::uint64_t positionId() const;
  void emitIfChanged();

  // Memory of the value objects; declared first, so destroyed last.
  internal::BlockCache ValueObjects{config::ValueObjectBytes,
                                    config::EmptyValueSlabs};

  // Transaction state.
  Stamp Current = 1;
  int Depth = 0;
  int Type = -1;
  bool Recording = false;
  bool Busy = false;
  bool TearingDown = false;
  bool FinalPhase = false;
  bool Releasing = false;
  bool StretchReported = false;
  bool Pending = false;
  internal::Step *Open = nullptr;

  // History: Steps[0, Position) are done, the rest undone (the redo branch).
  std::deque<internal::Step *> Steps;
  std::size_t Position = 0;
  std::vector<internal::Step *> Spare;
  internal::ByteBuffer Scratch;
  std::vector<const RefCountedObject *> ScratchHolds;
  int UndoLimit = 0;
  std::size_t MemoryLimit = 0;
  // The size of the measured steps (all of them under a memory limit).
  mutable std::size_t HistoryBytes = 0;
  // Positions are named by the id of the newest done step; Base names the
  // position before the oldest kept step.
  std::uint64_t NextStepId = 0;
  std::uint64_t BaseId = 0;
  std::uint64_t CleanId = 0;
  bool CleanValid = true;

  // Objects in special states, and releases waiting to be settled.
  std::vector<RefCountedObject *> Orphans;
  std::vector<RefCountedObject *> Parked;
  std::vector<RefCountedObject *> ReleaseQueue;
  std::vector<RefCountedObject *> Candidates;

  // What the history-changed signal last announced.
  struct Announced {
    std::size_t Undo = 0;
    std::size_t Redo = 0;
    std::uint64_t Position = 0;
  };
  Announced Last;
  qoRTB::Signal HistoryChanged;
};

} // namespace nyTXN

#endif // NYTXN_MANAGER_H
