//===- transaction/Manager.cpp - Transactions and the undo history --------===//
//
// Invariants. Steps[0, Position) are done and Steps[Position, size) undone;
// Open is the step of the running recording transaction, not yet in Steps.
// A done step's arena holds each entry's bytes from before the step; an
// undone step's holds the bytes from after it, then the saved state of the
// objects the step created. Every RefCountedObject that is not extant is
// kept by exactly one place: the step whose Destroyed list holds it (done
// step), the step whose Created list holds it (undone step), the Parked list,
// or nothing when Detached (deleted at zero). A non-extant object holds no
// references through its recorded fields (they were cleared when it left the
// living set), so counts only count references from the living world and
// deleting a kept object never changes another object's count through them.
// Counts that reach zero while undo or redo runs (Busy) are settled
// afterwards; releases that happen while another is settled are queued
// (ReleaseQueue), so a long chain of releases does not recurse.
//
//===----------------------------------------------------------------------===//

#include "transaction/Manager.h"

#include "base/TypeInfo.h"
#include "transaction/Config.h"
#include "transaction/Object.h"
#include "transaction/ObjectSize.h"
#include "transaction/Serializer.h"
#include "transaction/internal/Step.h"

#include <algorithm>
#include <cassert>
#include <string>
#include <typeinfo>
#include <unordered_set>

namespace nyTXN {

using internal::Entry;
using internal::Span;
using internal::Step;

qoOS::DebugChannel &undoChannel() {
  static qoOS::DebugChannel Channel("Undo");
  return Channel;
}

namespace {

std::string className(const Object *O) {
  return qo::TypeInfo(typeid(*O)).name();
}

template <class T> void eraseFirst(std::vector<T *> &List, T *Item) {
  auto At = std::find(List.begin(), List.end(), Item);
  if (At != List.end())
    List.erase(At);
}

template <class T> void nullFirst(std::vector<T *> &List, T *Item) {
  auto At = std::find(List.begin(), List.end(), Item);
  if (At != List.end())
    *At = nullptr;
}

} // namespace

Manager::Manager() = default;

Manager::~Manager() {
  assert(Depth == 0 && "transaction manager destroyed inside a transaction");
  assert(!Busy && "transaction manager destroyed during undo or redo");
  TearingDown = true;
  Recording = false;
  if (Step *S = std::exchange(Open, nullptr)) {
    for (RefCountedObject *X : S->Destroyed)
      deleteOrDetach(X);
    releaseHolds(S->Holds);
    delete S;
  }
  while (Position < Steps.size())
    discardBack();
  while (!Steps.empty())
    trimFront();
  // Now nothing keeps an object for the history: whatever reaches zero goes.
  FinalPhase = true;
  while (!Orphans.empty()) {
    RefCountedObject *X = Orphans.back();
    Orphans.pop_back();
    X->Flags &= ~RefCountedObject::Orphan;
    if (X->Count == 0)
      destroyNow(X);
  }
  while (!Parked.empty()) {
    RefCountedObject *X = Parked.back();
    Parked.pop_back();
    X->Flags &= ~RefCountedObject::Parked;
    if (X->Count == 0)
      destroyNow(X);
    else
      X->Flags |= RefCountedObject::Detached;
  }
  for (Step *S : Spare)
    delete S;
}

//===-- Transactions ------------------------------------------------------===//

void Manager::beginTransaction(int T) {
  if (Depth++ > 0)
    return;
  assert(T >= TxnUndoable && T <= TxnUndecided && "unknown transaction type");
  if (T < TxnUndoable || T > TxnUndecided)
    T = TxnUndecided;
  keepPending();
  // Undo and redo are not transactions; callbacks they run record nothing.
  Type = Busy ? TxnUnrecorded : T;
  ++Current;
  Recording =
      Type == TxnUndoable || Type == TxnTransient || Type == TxnUndecided;
}

void Manager::endTransaction() {
  assert(Depth > 0 && "endTransaction without beginTransaction");
  if (Depth == 0 || --Depth > 0)
    return;
  closeStep();
  Type = -1;
  ++Current;
  StretchReported = false;
  if (!Busy)
    enforceLimits();
  emitIfChanged();
}

void Manager::onTransact(Object *O) {
  assert(O && &O->txnManager() == this && "object of another manager");
  if (O->TxnStamp == Current)
    return;
  O->TxnStamp = Current;
  if (Recording) {
    recordInto(openStep(), O);
    return;
  }
  onTransactSlow(O);
}

void Manager::onTransactSlow(Object *O) {
  if (Depth == 0) {
    if (!StretchReported && undoChannel().isEnabled()) {
      StretchReported = true;
      undoChannel().print("nyTXN: change outside a transaction is not "
                          "recorded (%s)\n",
                          className(O).c_str());
    }
    return;
  }
  if (Type == TxnReadOnly && undoChannel().isEnabled())
    undoChannel().print("nyTXN: change in a read-only transaction is not "
                        "recorded (%s)\n",
                        className(O).c_str());
}

Step &Manager::openNewStep() {
  assert(Recording && "a step opens only in a recording transaction");
  Open = newStep();
  Open->Id = ++NextStepId;
  Open->TxnStamp = Current;
  // Open is set first: what the discarded branch frees may release more.
  discardRedo();
  return *Open;
}

bool Manager::recordInto(Step &S, Object *O) {
  const std::size_t Offset = S.Data.size();
  Writer W(S.Data, S.TxnStamp, &S.Holds);
  Serializer Description(W);
  O->onTransact(Description);
  if (!Description.hasBegun())
    return false;
  assert(S.Data.size() - Offset <= UINT32_MAX && "recorded object too large");
  S.Entries.push_back({O, static_cast<std::uint32_t>(Offset),
                       static_cast<std::uint32_t>(S.Data.size() - Offset)});
  if (O->Counted)
    W.note(static_cast<RefCountedObject *>(O));
  return true;
}

void Manager::clearFields(Object *O) {
  Clear C;
  Serializer Description(C);
  O->onTransact(Description);
}

void Manager::closeStep() {
  Step *S = std::exchange(Open, nullptr);
  const int ClosingType = Type;
  // From here on, releases caused by dropping or trimming are not recorded.
  Recording = false;
  if (!S)
    return;
  if (S->empty()) {
    retire(S);
    return;
  }
  // Compact the created list; slots stay valid for dropInto().
  std::size_t Kept = 0;
  for (RefCountedObject *X : S->Created)
    if (X) {
      X->Slot = static_cast<std::uint32_t>(Kept);
      S->Created[Kept++] = X;
    }
  S->Created.resize(Kept);
  Steps.push_back(S);
  Position = Steps.size();
  updateSize(*S);
  if (ClosingType == TxnTransient)
    dropInto(S);
  else if (ClosingType == TxnUndecided)
    Pending = true;
}

// Drops the newest done step without undoing it: its changes become part of
// the step before (when there is one), whose undo must then take every
// object the dropped step touched back to where it was before that step.
// So the step before takes over the dropped step's bytes of the objects it
// did not record itself, its created objects and its released ones; an
// object both created by the step before and released by the dropped one
// never existed as far as the history is concerned, and is deleted.
void Manager::dropInto(Step *S) {
  assert(!Steps.empty() && Steps.back() == S && Position == Steps.size() &&
         "only the newest done step can be dropped");
  Steps.pop_back();
  --Position;
  HistoryBytes -= S->Bytes;
  if (Position == 0) {
    for (RefCountedObject *X : S->Destroyed)
      deleteOrDetach(X);
  } else {
    Step &Prev = *Steps[Position - 1];
    mergeInto(Prev, *S);
    updateSize(Prev);
  }
  retire(S);
}

void Manager::mergeInto(Step &Prev, Step &S) {
  auto BornInPrev = [&](const Object *O) {
    return O->Counted && static_cast<const RefCountedObject *>(O)->BirthStamp ==
                             Prev.TxnStamp;
  };
  std::unordered_set<const Object *> Recorded;
  Recorded.reserve(Prev.Entries.size());
  for (const Entry &E : Prev.Entries)
    Recorded.insert(E.Obj);
  for (const Entry &E : S.Entries) {
    if (BornInPrev(E.Obj) || !Recorded.insert(E.Obj).second)
      continue;
    const auto Offset = static_cast<std::uint32_t>(Prev.Data.size());
    Prev.Data.append(S.Data.data() + E.Offset, E.Size);
    Prev.Entries.push_back({E.Obj, Offset, E.Size});
  }
  // Prev takes over every hold, also those of bytes it did not need: they
  // go with Prev.
  Prev.Holds.insert(Prev.Holds.end(), S.Holds.begin(), S.Holds.end());
  S.Holds.clear();
  for (RefCountedObject *X : S.Created) {
    X->BirthStamp = Prev.TxnStamp;
    X->Slot = static_cast<std::uint32_t>(Prev.Created.size());
    Prev.Created.push_back(X);
    ++Prev.LiveCreated;
  }
  bool Compact = false;
  for (RefCountedObject *X : S.Destroyed) {
    if (!BornInPrev(X)) {
      Prev.Destroyed.push_back(X);
      continue;
    }
    assert(Prev.Created[X->Slot] == X && "created list out of step");
    Prev.Created[X->Slot] = nullptr;
    --Prev.LiveCreated;
    Compact = true;
    deleteOrDetach(X);
  }
  if (!Compact)
    return;
  std::size_t Kept = 0;
  for (RefCountedObject *X : Prev.Created)
    if (X) {
      X->Slot = static_cast<std::uint32_t>(Kept);
      Prev.Created[Kept++] = X;
    }
  Prev.Created.resize(Kept);
}

void Manager::keepPending() {
  if (!Pending)
    return;
  Pending = false;
  enforceLimits();
}

bool Manager::keepStep() {
  if (!Pending || Depth > 0 || Busy)
    return false;
  keepPending();
  emitIfChanged();
  return true;
}

bool Manager::dropStep() {
  if (!Pending || Depth > 0 || Busy)
    return false;
  Pending = false;
  dropInto(Steps.back());
  emitIfChanged();
  return true;
}

//===-- Lifetime ----------------------------------------------------------===//

void Manager::created(RefCountedObject *X) {
  if (!Recording)
    return;
  Step &S = openStep();
  X->BirthStamp = Current;
  X->Slot = static_cast<std::uint32_t>(S.Created.size());
  S.Created.push_back(X);
  ++S.LiveCreated;
}

void Manager::abandoned(RefCountedObject *X) {
  if (Open && X->BirthStamp == Current && X->Slot < Open->Created.size() &&
      Open->Created[X->Slot] == X) {
    Open->Created[X->Slot] = nullptr;
    --Open->LiveCreated;
  }
  if (X->Flags & RefCountedObject::Orphan)
    forgetOrphan(X);
  if (X->Flags & RefCountedObject::Parked)
    eraseFirst(Parked, X);
  if (X->Flags & RefCountedObject::Queued) {
    nullFirst(ReleaseQueue, X);
    nullFirst(Candidates, X);
  }
}

void Manager::release(RefCountedObject *X) {
  if (X->Flags & RefCountedObject::ValueObject) {
    destroyValueObject(X);
    return;
  }
  if (Busy) {
    settleLater(X);
    return;
  }
  if (X->Flags & RefCountedObject::Queued)
    return;
  if (Releasing) {
    X->Flags |= RefCountedObject::Queued;
    ReleaseQueue.push_back(X);
    return;
  }
  Releasing = true;
  releaseOne(X);
  for (std::size_t I = 0; I < ReleaseQueue.size(); ++I) {
    RefCountedObject *Y = ReleaseQueue[I];
    if (!Y)
      continue;
    Y->Flags &= ~RefCountedObject::Queued;
    releaseOne(Y);
  }
  ReleaseQueue.clear();
  Releasing = false;
}

void Manager::releaseOne(RefCountedObject *X) {
  if (X->Count != 0)
    return;
  if (TearingDown) {
    const bool Kept = !X->Extant && !(X->Flags & RefCountedObject::Detached);
    if (!Kept || FinalPhase)
      destroyNow(X);
    return;
  }
  if (!X->Extant) {
    if (X->Flags & RefCountedObject::Detached)
      destroyNow(X);
    return;
  }
  if (X->Flags & RefCountedObject::Orphan)
    forgetOrphan(X);
  if (!Recording) {
    announceDestroyed(X);
    if (X->Count != 0)
      return;
    if (knownToHistory(X))
      park(X);
    else
      destroyNow(X);
    return;
  }
  Step &S = openStep();
  if (X->BirthStamp == Current) {
    announceDestroyed(X);
    if (X->Count != 0)
      return;
    S.Created[X->Slot] = nullptr;
    --S.LiveCreated;
    destroyNow(X);
    return;
  }
  // An object whose description is empty (a value holder) has nothing to
  // clear either.
  bool HasFields = true;
  if (X->TxnStamp != Current) {
    X->TxnStamp = Current;
    HasFields = recordInto(S, X);
  }
  announceDestroyed(X);
  if (X->Count != 0)
    return;
  if (HasFields)
    clearFields(X);
  X->Extant = false;
  S.Destroyed.push_back(X);
}

// The count is held at one while the object hears of its end, so that a
// temporary reference it takes to itself does not start a second release.
void Manager::announceDestroyed(RefCountedObject *X) {
  X->Count = 1;
  X->onTxnDestroyed();
  assert(X->Count == 1 && "onTxnDestroyed kept a reference to its object");
  --X->Count;
}

void Manager::destroyNow(RefCountedObject *X) {
  assert(X->Count == 0 && "deleting a transaction object still referenced");
  assert(!(X->Flags & RefCountedObject::ValueObject) &&
         "value objects are in no list of the manager");
  X->Flags |= RefCountedObject::Deleting;
  abandoned(X);
  delete X;
}

void Manager::destroyValueObject(const RefCountedObject *X) {
  assert(X->Count == 0 && "deleting a value object still referenced");
  void *Memory = dynamic_cast<void *>(const_cast<RefCountedObject *>(X));
  X->~RefCountedObject();
  ValueObjects.deallocate(Memory);
}

void Manager::deleteOrDetach(RefCountedObject *X) {
  if (!X || (X->Flags & RefCountedObject::Parked))
    return;
  if (X->Count == 0 && !Busy)
    destroyNow(X);
  else
    X->Flags |= RefCountedObject::Detached;
}

bool Manager::knownToHistory(const RefCountedObject *X) const {
  if (Steps.empty())
    return false;
  const Stamp Oldest = Steps.front()->TxnStamp;
  return X->SnapStamp >= Oldest || X->BirthStamp >= Oldest;
}

void Manager::park(RefCountedObject *X) {
  X->Extant = false;
  if (X->Flags & RefCountedObject::Parked)
    return;
  X->Flags |= RefCountedObject::Parked;
  Parked.push_back(X);
  if (undoChannel().isEnabled())
    undoChannel().print("nyTXN: %s released outside a recording transaction "
                        "stays allocated until its manager goes: the undo "
                        "history refers to it\n",
                        className(X).c_str());
}

// Undo revives a parked object that a step released: the step keeps it
// again from then on.
void Manager::unpark(RefCountedObject *X) {
  if (!(X->Flags & RefCountedObject::Parked))
    return;
  X->Flags &= ~RefCountedObject::Parked;
  eraseFirst(Parked, X);
}

void Manager::forgetOrphan(RefCountedObject *X) {
  X->Flags &= ~RefCountedObject::Orphan;
  eraseFirst(Orphans, X);
}

void Manager::settleLater(RefCountedObject *X) {
  if (X->Flags & RefCountedObject::Queued)
    return;
  X->Flags |= RefCountedObject::Queued;
  Candidates.push_back(X);
}

// After undo or redo: counts that reached zero meanwhile, and revived
// objects nothing counts. Extant ones with no references stay (plain
// pointers may reach them) as orphans; non-extant detached ones go.
void Manager::settleCandidates() {
  for (std::size_t I = 0; I < Candidates.size(); ++I) {
    RefCountedObject *X = Candidates[I];
    if (!X)
      continue;
    Candidates[I] = nullptr;
    X->Flags &= ~RefCountedObject::Queued;
    if (X->Count != 0)
      continue;
    if (!X->Extant) {
      if (X->Flags & RefCountedObject::Detached)
        release(X);
      continue;
    }
    if (!(X->Flags & RefCountedObject::Orphan)) {
      X->Flags |= RefCountedObject::Orphan;
      Orphans.push_back(X);
    }
  }
  Candidates.clear();
}

//===-- Undo and redo -----------------------------------------------------===//

void Manager::restoreEntry(Step &S, Entry &E, bool Undo) {
  const std::size_t Offset = Scratch.size();
  Writer W(Scratch, S.TxnStamp, &ScratchHolds);
  Serializer Now(W);
  E.Obj->onTransact(Now);
  Reader Source(S.Data.data() + E.Offset, E.Size);
  if (Now.RestoreFn) {
    Restorer R(*E.Obj, Source, Undo);
    Now.RestoreCall(Now.RestoreFn, E.Obj, R);
    assert(R.Done && "a restore function must call Restorer::restore()");
  } else {
    Serializer Back(Source);
    E.Obj->onTransact(Back);
  }
  E.Offset = static_cast<std::uint32_t>(Offset);
  E.Size = static_cast<std::uint32_t>(Scratch.size() - Offset);
  E.Obj->onTxnRestored();
}

// The step keeps the bytes just written (and their holds); the bytes it
// had are spent.
void Manager::swapInScratch(Step &S) {
  S.Data.swap(Scratch);
  S.Holds.swap(ScratchHolds);
  Scratch.clear();
  releaseHolds(ScratchHolds);
}

void Manager::undoStep(Step &S) {
  Scratch.clear();
  for (std::size_t I = S.Entries.size(); I-- > 0;)
    restoreEntry(S, S.Entries[I], true);
  S.CreatedState.assign(S.Created.size(), Span());
  for (std::size_t I = S.Created.size(); I-- > 0;) {
    RefCountedObject *X = S.Created[I];
    if (!X || (X->Flags & RefCountedObject::Parked))
      continue;
    const std::size_t Offset = Scratch.size();
    Writer W(Scratch, S.TxnStamp, &ScratchHolds);
    Serializer Saved(W);
    X->onTransact(Saved);
    S.CreatedState[I] = {static_cast<std::uint32_t>(Offset),
                         static_cast<std::uint32_t>(Scratch.size() - Offset)};
    if (Saved.hasBegun())
      clearFields(X);
    X->Extant = false;
  }
  for (RefCountedObject *X : S.Destroyed) {
    unpark(X);
    X->Extant = true;
  }
  swapInScratch(S);
  S.Undone = true;
}

void Manager::redoStep(Step &S) {
  Scratch.clear();
  for (std::size_t I = 0; I < S.Created.size(); ++I) {
    RefCountedObject *X = S.Created[I];
    if (!X || (X->Flags & RefCountedObject::Parked))
      continue;
    const Span Saved = S.CreatedState[I];
    Reader Source(S.Data.data() + Saved.Offset, Saved.Size);
    Serializer Back(Source);
    if (Saved.Size)
      X->onTransact(Back);
    X->Extant = true;
  }
  for (Entry &E : S.Entries)
    restoreEntry(S, E, false);
  for (RefCountedObject *X : S.Destroyed)
    X->Extant = false;
  swapInScratch(S);
  S.Undone = false;
}

void Manager::announce(Step &S, bool Undo) {
  auto Existence = [&](const std::vector<RefCountedObject *> &List) {
    for (RefCountedObject *X : List)
      if (X && !(X->Flags & RefCountedObject::Parked))
        X->onTxnExtant();
  };
  Existence(Undo ? S.Destroyed : S.Created);
  Existence(Undo ? S.Created : S.Destroyed);
  for (const Entry &E : S.Entries)
    if (E.Obj->isTxnExtant())
      E.Obj->onTxnModified();
  if (Undo)
    return;
  for (std::size_t I = 0; I < S.Created.size(); ++I) {
    RefCountedObject *X = S.Created[I];
    if (X && X->isTxnExtant() && S.CreatedState[I].Size)
      X->onTxnModified();
  }
}

bool Manager::undo() {
  if (Depth > 0 || Busy || Releasing)
    return false;
  keepPending();
  if (Position == 0) {
    emitIfChanged();
    return false;
  }
  Step &S = *Steps[Position - 1];
  Busy = true;
  undoStep(S);
  --Position;
  updateSize(S);
  for (RefCountedObject *X : S.Destroyed)
    settleLater(X);
  announce(S, true);
  Busy = false;
  settleCandidates();
  enforceLimits();
  emitIfChanged();
  return true;
}

bool Manager::redo() {
  if (Depth > 0 || Busy || Releasing || Pending || Position == Steps.size())
    return false;
  Step &S = *Steps[Position];
  Busy = true;
  redoStep(S);
  ++Position;
  updateSize(S);
  for (RefCountedObject *X : S.Created)
    if (X)
      settleLater(X);
  announce(S, false);
  S.CreatedState.clear();
  Busy = false;
  settleCandidates();
  enforceLimits();
  emitIfChanged();
  return true;
}

//===-- The history -------------------------------------------------------===//

Step *Manager::newStep() {
  if (Spare.empty())
    return new Step;
  Step *S = Spare.back();
  Spare.pop_back();
  return S;
}

// Value objects need no trip through txnDelete: nothing can revive them.
void Manager::releaseHolds(std::vector<const RefCountedObject *> &Holds) {
  for (const RefCountedObject *X : Holds)
    if (--X->Count == 0)
      destroyValueObject(X);
  Holds.clear();
}

void Manager::retire(Step *S) {
  releaseHolds(S->Holds);
  S->reset();
  if (Spare.size() < config::SpareSteps &&
      S->footprint() <= config::SpareStepBytes && !TearingDown)
    Spare.push_back(S);
  else
    delete S;
}

void Manager::trimFront() {
  assert(Position > 0 && "the oldest step is undone");
  Step *S = Steps.front();
  Steps.pop_front();
  --Position;
  HistoryBytes -= S->Bytes;
  if (CleanValid && CleanId == BaseId)
    CleanValid = false;
  BaseId = S->Id;
  for (RefCountedObject *X : S->Destroyed)
    deleteOrDetach(X);
  retire(S);
}

void Manager::discardBack() {
  assert(Position < Steps.size() && "the newest step is done");
  Step *S = Steps.back();
  Steps.pop_back();
  HistoryBytes -= S->Bytes;
  if (CleanValid && CleanId == S->Id)
    CleanValid = false;
  for (RefCountedObject *X : S->Created)
    deleteOrDetach(X);
  retire(S);
}

void Manager::discardRedo() {
  while (Position < Steps.size())
    discardBack();
}

void Manager::enforceLimits() {
  if (Pending || Busy || Depth > 0)
    return;
  auto OverLimit = [&] {
    if (UndoLimit > 0 && Steps.size() > static_cast<std::size_t>(UndoLimit))
      return true;
    return MemoryLimit > 0 && HistoryBytes > MemoryLimit && Steps.size() > 1;
  };
  while (OverLimit()) {
    if (Position > 0)
      trimFront();
    else
      discardBack();
  }
}

// Without a memory limit nothing needs the size at once: historySize()
// measures the steps left unmeasured when it is asked, which spares every
// step closed a pass over the objects it keeps.
void Manager::updateSize(Step &S) {
  HistoryBytes -= S.Bytes;
  S.Bytes = 0;
  S.Measured = false;
  if (MemoryLimit > 0)
    measure(S);
}

std::size_t Manager::historySize() const {
  for (Step *S : Steps)
    if (!S->Measured)
      measure(*S);
  return HistoryBytes;
}

// A step is charged for its bookkeeping, the objects it keeps, and every
// value object its bytes name (some may still be in use by the living data:
// the charge errs on the high side, so the memory limit holds).
void Manager::measure(Step &S) const {
  std::size_t Bytes = sizeof(Step) + S.Data.size() +
                      S.Entries.size() * sizeof(Entry) +
                      (S.Created.size() + S.Destroyed.size() + S.Holds.size()) *
                          sizeof(void *) +
                      S.CreatedState.size() * sizeof(Span);
  auto Charge = [&Bytes](const RefCountedObject *X) {
    ObjectSize Size;
    X->onTxnGetSize(Size);
    Bytes += Size.total();
  };
  for (RefCountedObject *X : S.Undone ? S.Created : S.Destroyed)
    if (X && !(X->Flags & RefCountedObject::Parked))
      Charge(X);
  for (const RefCountedObject *X : S.Holds)
    Charge(X);
  HistoryBytes += Bytes;
  S.Bytes = Bytes;
  S.Measured = true;
}

std::uint64_t Manager::positionId() const {
  return Position > 0 ? Steps[Position - 1]->Id : BaseId;
}

// Compares with what the last emission announced, so that a step pushed
// and dropped again, or a limit that trims nothing, stays silent.
void Manager::emitIfChanged() {
  if (Busy || Depth > 0)
    return;
  const Announced Now{Position, Steps.size() - Position, positionId()};
  if (Now.Undo == Last.Undo && Now.Redo == Last.Redo &&
      Now.Position == Last.Position)
    return;
  Last = Now;
  HistoryChanged.emit();
}

void Manager::clearHistory() {
  if (Depth > 0 || Busy)
    return;
  keepPending();
  const bool WasClean = isClean();
  discardRedo();
  while (!Steps.empty())
    trimFront();
  BaseId = ++NextStepId;
  CleanId = BaseId;
  CleanValid = WasClean;
  emitIfChanged();
}

void Manager::setUndoLimit(int Limit) {
  assert(Limit >= 0 && "negative undo limit");
  UndoLimit = std::max(Limit, 0);
  keepPending();
  enforceLimits();
  emitIfChanged();
}

void Manager::setMemoryLimit(std::size_t Bytes) {
  MemoryLimit = Bytes;
  if (MemoryLimit > 0)
    historySize();
  keepPending();
  enforceLimits();
  emitIfChanged();
}

void Manager::setClean() {
  keepPending();
  CleanId = positionId();
  CleanValid = true;
  emitIfChanged();
}

std::size_t Manager::keptObjectCount() const {
  std::size_t Count = Parked.size();
  for (const Step *S : Steps)
    for (const RefCountedObject *X : S->Undone ? S->Created : S->Destroyed)
      if (X && !(X->Flags & RefCountedObject::Parked))
        ++Count;
  for (const RefCountedObject *X : Orphans)
    if (X->Count == 0 && X->Extant)
      ++Count;
  return Count;
}

} // namespace nyTXN
