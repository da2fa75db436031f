#include "app/DefaultDomain.h"

#include "support/CallInfo.h"

#include <cassert>

// A transaction is begun only where none is open, so a transaction that the
// application opened itself around contexts is joined, not nested under a
// different type. Opened mirrors the contexts between onContextBegin and
// onContextEnd (contexts nest strictly), so the one that began the
// transaction is the one that ends it.

namespace nyApp {

DefaultDomain::DefaultDomain(nyTXN::Manager &M, nySupport::Domain *Primary)
    : Domain(Primary), Mgr(&M) {}

DefaultDomain::~DefaultDomain() {
  assert(Opened.empty() && "domain destroyed with contexts open");
}

bool DefaultDomain::undo() {
  if (getCurrentContext())
    return false;
  return Mgr->undo();
}

bool DefaultDomain::redo() {
  if (getCurrentContext())
    return false;
  return Mgr->redo();
}

void DefaultDomain::onCustom(nySupport::Domain *) {}

void DefaultDomain::onContextBegin(nySupport::Domain *,
                                   const nySupport::Context &C) {
  const bool Begin = !Mgr->inTransaction();
  if (Begin)
    Mgr->beginTransaction(static_cast<int>(C.transactionType()));
  Opened.push_back(Begin);
}

void DefaultDomain::onContextEnd(nySupport::Domain *,
                                 const nySupport::Context &) {
  assert(!Opened.empty() && "context closed that never opened");
  const bool End = Opened.back();
  Opened.pop_back();
  if (End)
    Mgr->endTransaction();
}

void DefaultDomain::onCallInfoBegin(nySupport::Domain *,
                                    nySupport::CallInfo *Info, bool) {
  Info->add(Mgr);
  Info->add<nySupport::Domain>(this);
}

void DefaultDomain::onCallInfoEnd(nySupport::Domain *, nySupport::CallInfo *) {}

} // namespace nyApp
