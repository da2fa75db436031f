//===- support/internal/DomainImpl.h - State behind nySupport::Domain -----===//
//
// The stacks and call record a domain keeps, out of the public header. Used
// by support/Domain.cpp only.
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_INTERNAL_DOMAINIMPL_H
#define NYSUPPORT_INTERNAL_DOMAINIMPL_H

#include "base/Containers.h"
#include "base/thread/RunQueue.h"
#include "support/Context.h"

#include <cstdint>
#include <utility>

namespace nySupport {

class AsyncTask;
class CallInfo;
class Domain;

namespace internal {

struct DomainImpl {
  explicit DomainImpl(Domain *Primary) : Primary(Primary) {}
  DomainImpl(const DomainImpl &) = delete;
  DomainImpl &operator=(const DomainImpl &) = delete;
  ~DomainImpl();

  Domain *Primary;
  // Modes of the open contexts, innermost last, without "Bare" ones.
  qo::vector<Context::Mode> Modes;
  // Owned; null between operations and while suppressed.
  CallInfo *Info = nullptr;
  // Depth of Modes when Info was created; the context closing at this depth
  // ends the record.
  std::uint32_t InfoDepth = 0;
  // Every open context, "Bare" ones included, innermost last.
  qo::vector<const Context *> Contexts;
  // Saved (Info, InfoDepth) pairs, one per suppression in force.
  qo::vector<std::pair<CallInfo *, std::uint32_t>> Suppressed;
  AsyncTask *Task = nullptr;
  qoThread::RunQueue Queue;
};

} // namespace internal
} // namespace nySupport

#endif // NYSUPPORT_INTERNAL_DOMAINIMPL_H
