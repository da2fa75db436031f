//===- support/Domain.h - Owner of transacted data and its contexts -------===//
//
// nySupport::Domain owns a body of data and the stack of contexts open on it.
// The application derives from it and implements the five hooks, through
// which it opens and closes transactions and fills call records; the domain
// keeps the bookkeeping around them: the context and mode stacks, the call
// record of the operation in progress, its suppression, and the signals.
//
// Opening a context (other than "Bare") pushes its mode, creates a call
// record when there is none (onCallInfoBegin), then calls onContextBegin.
// Closing calls onContextEnd, then, when this context created the record,
// onCallInfoEnd and deletes the record; when the last mode leaves the stack
// the context-stack-empty signal fires. "Bootstrap" contexts create and
// delete records but call no hook; "Bare" contexts touch neither records,
// modes nor hooks. The innermost context of the whole process decides which
// record nySupport::ci() returns.
//
// Lifetime: the domain owns its call records; it must outlive every context
// opened on it. Single thread: contexts, stacks and the asynchronous-operation
// counter belong to the thread that opens contexts; the run queue is the one
// way in from other threads.
//
// Example:
//   class AppDomain : public nySupport::Domain {
//     void onCustom(Domain *) override {}
//     void onContextBegin(Domain *, const Context &c) override { open(c); }
//     void onContextEnd(Domain *, const Context &c) override { close(c); }
//     void onCallInfoBegin(Domain *, CallInfo *ci, bool) override {
//       services.addInterfaces(ci);
//     }
//     void onCallInfoEnd(Domain *, CallInfo *) override {}
//   };
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_DOMAIN_H
#define NYSUPPORT_DOMAIN_H

#include "base/Containers.h"
#include "base/rtb/Signal.h"
#include "base/thread/RunQueue.h"
#include "support/Context.h"

#include <cstdint>

namespace nySupport {

class AsyncTask;
class CallInfo;

namespace internal {
struct DomainImpl;
} // namespace internal

class Domain {
public:
  // Primary links a secondary domain to the main one; null makes this domain
  // its own primary.
  explicit Domain(Domain *Primary = nullptr);
  Domain(const Domain &) = delete;
  Domain &operator=(const Domain &) = delete;
  // Fires getSigDestroyed() first. No context may be open.
  virtual ~Domain();

  // Reserved for the application; the layer never calls it.
  virtual void onCustom(Domain *D) = 0;
  virtual void onContextBegin(Domain *D, const Context &C) = 0;
  virtual void onContextEnd(Domain *D, const Context &C) = 0;
  // AppOnly is true when the context creating the record has mode "AppOnly".
  virtual void onCallInfoBegin(Domain *D, CallInfo *Info, bool AppOnly) = 0;
  virtual void onCallInfoEnd(Domain *D, CallInfo *Info) = 0;

  Domain *getPrimary() const;

  // The outermost and innermost open contexts ("Bare" ones included), or
  // null when none is open.
  const Context *getRootContext() const;
  const Context *getCurrentContext() const;
  // The modes of the open contexts, innermost last, "Bare" ones left out.
  const qo::vector<Context::Mode> &contextStack() const;
  // The innermost mode is "Const" or "ConstWithRedraw".
  bool isConst() const;
  // Whether a context of mode M may be opened inside the current ones.
  bool isCompatibleMode(Context::Mode M) const;

  // Hides the current call record, so that the next context opens its own;
  // callInfoRelease() brings it back. Calls pair up and nest. The first
  // suppression and the last release both fire getSigCallInfoSuppression()
  // with true: listeners ask callInfoSuppressed() for the state.
  void callInfoSuppress();
  void callInfoRelease();
  bool callInfoSuppressed() const;
  void assertCallInfoCreated() const {}

  // The call record of the domain of the innermost context open anywhere in
  // the process (null while that domain has none). A context must be open.
  static CallInfo *callInfoFunc();

  // The task this domain waits for; not owned, kept after a wait.
  void setAsyncTask(AsyncTask *Task);
  // Calls wait() on the task and returns true; false when there is none.
  bool waitForAsyncTask();

  // One counter for the whole process, however many domains there are.
  static void declareAsyncOperationBegin();
  static void declareAsyncOperationEnd();
  bool runningAsyncOperation() const;

  // Fires when the last context ("Bare" ones aside) has closed.
  qoRTB::Signal &getSigContextStackEmpty() { return SigContextStackEmpty; }
  qoRTB::SignalArg<bool> &getSigCallInfoSuppression() {
    return SigCallInfoSuppression;
  }
  qoRTB::SignalArg<Domain *> &getSigDestroyed() { return SigDestroyed; }
  // Reserved for the application; the layer never fires it.
  qoRTB::Signal &getSigCustom() { return SigCustom; }

  // Tasks that other threads hand to the thread owning this domain.
  qoThread::RunQueue &getRunQueue();

private:
  friend class Context;
  void beginContext(const Context &C);
  void endContext(const Context &C);
  void abandonOpening(bool Created, bool Announced) noexcept;

  qoRTB::Signal SigContextStackEmpty;
  qoRTB::SignalArg<bool> SigCallInfoSuppression;
  qoRTB::SignalArg<Domain *> SigDestroyed;
  qoRTB::Signal SigCustom;
  internal::DomainImpl *Impl;
  bool OwnsImpl;
};

} // namespace nySupport

#endif // NYSUPPORT_DOMAIN_H
