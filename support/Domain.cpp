#include "support/Domain.h"

#include "support/AsyncTask.h"
#include "support/CallInfo.h"
#include "support/internal/DomainImpl.h"

#include <cassert>

// Invariants, for every domain: Contexts holds the open contexts innermost
// last; Modes holds the modes of those that are not "Bare", in the same order.
// Info is null or the record created when Modes had InfoDepth entries; the
// context that brings Modes back to that depth on closing ends it. Suppressed
// holds the (Info, InfoDepth) pairs that suppression set aside. Process-wide,
// SlotStack holds &Info of the domain of every open context of every domain,
// innermost last, so that its top names the current call record even when
// contexts of several domains interleave.

namespace nySupport {

namespace {

constinit qo::vector<CallInfo **> SlotStack;
constinit std::int32_t AsyncOperations = 0;

} // namespace

namespace internal {

DomainImpl::~DomainImpl() {
  // Records left over only when suppress and release did not pair up.
  delete Info;
  for (const std::pair<CallInfo *, std::uint32_t> &Saved : Suppressed)
    delete Saved.first;
}

} // namespace internal

Domain::Domain(Domain *Primary)
    : Impl(new internal::DomainImpl(Primary ? Primary : this)), OwnsImpl(true) {
}

Domain::~Domain() {
  assert(Impl->Contexts.empty() && "domain destroyed with contexts open");
  SigDestroyed.emit(this);
  if (OwnsImpl)
    delete Impl;
}

Domain *Domain::getPrimary() const { return Impl->Primary; }

void Domain::beginContext(const Context &C) {
  internal::DomainImpl &I = *Impl;
  I.Contexts.push_back(&C);
  SlotStack.push_back(&I.Info);
  if (C.mode() == Context::Bare)
    return;
  I.Modes.push_back(C.mode());

  const bool CallHooks = C.mode() != Context::Bootstrap;
  bool Created = false;
  bool Announced = false;
  try {
    if (!I.Info) {
      I.Info = new CallInfo;
      I.InfoDepth = static_cast<std::uint32_t>(I.Modes.size());
      Created = true;
      if (CallHooks) {
        onCallInfoBegin(this, I.Info, C.mode() == Context::AppOnly);
        Announced = true;
      }
    }
    if (CallHooks)
      onContextBegin(this, C);
  } catch (...) {
    abandonOpening(Created, Announced);
    throw;
  }
}

void Domain::abandonOpening(bool Created, bool Announced) noexcept {
  // The context never opened: end the record it began, if any, and leave the
  // stacks as they were before it. The failure being reported is the one
  // that made us come here, so a second one from the end hook is dropped.
  internal::DomainImpl &I = *Impl;
  if (Created) {
    if (Announced) {
      try {
        onCallInfoEnd(this, I.Info);
      } catch (...) {
      }
    }
    delete I.Info;
    I.Info = nullptr;
    I.InfoDepth = 0;
  }
  I.Modes.pop_back();
  SlotStack.pop_back();
  I.Contexts.pop_back();
}

void Domain::endContext(const Context &C) {
  internal::DomainImpl &I = *Impl;
  assert(!I.Contexts.empty() && I.Contexts.back() == &C &&
         "contexts close innermost first");
  if (C.mode() != Context::Bare) {
    const bool CallHooks = C.mode() != Context::Bootstrap;
    if (CallHooks)
      onContextEnd(this, C);
    if (I.Modes.size() == I.InfoDepth) {
      if (CallHooks)
        onCallInfoEnd(this, I.Info);
      delete I.Info;
      I.Info = nullptr;
      I.InfoDepth = 0;
    }
    I.Modes.pop_back();
    if (I.Modes.empty())
      SigContextStackEmpty.emit();
  }
  assert(!SlotStack.empty() && SlotStack.back() == &I.Info &&
         "contexts of different domains close innermost first");
  SlotStack.pop_back();
  I.Contexts.pop_back();
}

const Context *Domain::getRootContext() const {
  return Impl->Contexts.empty() ? nullptr : Impl->Contexts.front();
}

const Context *Domain::getCurrentContext() const {
  return Impl->Contexts.empty() ? nullptr : Impl->Contexts.back();
}

const qo::vector<Context::Mode> &Domain::contextStack() const {
  return Impl->Modes;
}

bool Domain::isConst() const {
  if (Impl->Modes.empty())
    return false;
  const Context::Mode Top = Impl->Modes.back();
  return Top == Context::Const || Top == Context::ConstWithRedraw;
}

bool Domain::isCompatibleMode(Context::Mode M) const {
  if (M >= Context::ModeCount)
    return false;
  const qo::vector<Context::Mode> &Modes = Impl->Modes;
  if (Modes.empty())
    return true;
  const Context::Mode Top = Modes.back();
  switch (M) {
  case Context::InteractionStart:
  case Context::InteractionEnd:
  case Context::Transient:
    return Top == Context::Undecided;
  case Context::InteractionPerform:
    return Top == Context::InteractionStart || Top == Context::InteractionEnd ||
           Top == Context::Undecided;
  case Context::Momentary:
    if (Top == Context::Undecided)
      return true;
    if (Top != Context::InteractionEnd && Top != Context::Momentary)
      return false;
    // A momentary change follows an interaction, or nests in one more
    // momentary change, directly at the top or inside an undecided one.
    return Modes.size() == 1 ||
           (Modes.size() == 2 && Modes.front() == Context::Undecided);
  case Context::Const:
  case Context::ConstWithRedraw:
    return true;
  case Context::NoTxn:
  case Context::Bootstrap:
    return false;
  case Context::Undecided:
    return Top == Context::Undecided || Top == Context::Const;
  case Context::AppOnly:
    return Top == Context::AppOnly || Top == Context::NoTxn;
  case Context::Bare:
    return Top == Context::Const;
  }
  return false;
}

void Domain::callInfoSuppress() {
  internal::DomainImpl &I = *Impl;
  I.Suppressed.emplace_back(I.Info, I.InfoDepth);
  I.Info = nullptr;
  I.InfoDepth = 0;
  if (I.Suppressed.size() == 1)
    SigCallInfoSuppression.emit(true);
}

void Domain::callInfoRelease() {
  internal::DomainImpl &I = *Impl;
  assert(!I.Suppressed.empty() && "call record released more than suppressed");
  if (I.Suppressed.empty())
    return;
  // A context opened under the suppression and still open would lose its
  // record here; it must have closed first.
  assert(!I.Info && "call record released while a context it hid is open");
  delete I.Info;
  I.Info = I.Suppressed.back().first;
  I.InfoDepth = I.Suppressed.back().second;
  I.Suppressed.pop_back();
  if (I.Suppressed.empty())
    SigCallInfoSuppression.emit(true);
}

bool Domain::callInfoSuppressed() const { return !Impl->Suppressed.empty(); }

CallInfo *Domain::callInfoFunc() {
  assert(!SlotStack.empty() && "no context is open");
  return SlotStack.empty() ? nullptr : *SlotStack.back();
}

void Domain::setAsyncTask(AsyncTask *Task) { Impl->Task = Task; }

bool Domain::waitForAsyncTask() {
  if (!Impl->Task)
    return false;
  Impl->Task->wait();
  return true;
}

void Domain::declareAsyncOperationBegin() { ++AsyncOperations; }

void Domain::declareAsyncOperationEnd() { --AsyncOperations; }

bool Domain::runningAsyncOperation() const { return AsyncOperations > 0; }

qoThread::RunQueue &Domain::getRunQueue() { return Impl->Queue; }

} // namespace nySupport
