//===- app/DefaultDomain.h - A domain that opens transactions -------------===//
//
// nyApp::DefaultDomain is the domain every embedder would otherwise write:
// the outermost context opened on it begins a transaction of the context's
// transaction type on the transaction manager and ends it when it closes, so
// a "Momentary" change becomes one undo step, a "Transient" one is recorded
// and dropped, "NoTxn" records nothing, "Const" reports recording attempts,
// and "Undecided" leaves the step pending for keepStep() or dropStep().
// Contexts opened inside it join that transaction (the outermost type
// decides). Each new call record lists the manager and the domain, so that
// nySupport::ci()->find<nyTXN::Manager>() works inside every operation.
//
// Lifetime: the domain does not own the manager, which must outlive it. No
// context may be open when either goes, nor during undo() and redo() (they
// return false then, as the manager does inside a transaction).
//
// Example:
//   nyTXN::Manager manager;
//   nyApp::DefaultDomain domain(manager);
//   {
//     nySupport::Context context(&domain, nySupport::Context::Momentary);
//     property->set(qo::make<nyPLST::Double>(2));
//   }                       // the step closes here
//   domain.undo();          // and is undone here
//
//===----------------------------------------------------------------------===//
#ifndef NYAPP_DEFAULTDOMAIN_H
#define NYAPP_DEFAULTDOMAIN_H

#include "base/Containers.h"
#include "support/Domain.h"
#include "transaction/Manager.h"

namespace nyApp {

class DefaultDomain : public nySupport::Domain {
public:
  explicit DefaultDomain(nyTXN::Manager &M,
                         nySupport::Domain *Primary = nullptr);
  ~DefaultDomain() override;

  nyTXN::Manager &txnManager() const { return *Mgr; }

  // The manager's undo and redo; false when there is nothing to undo or
  // redo, or while a context or transaction is open.
  bool undo();
  bool redo();
  bool canUndo() const { return Mgr->canUndo(); }
  bool canRedo() const { return Mgr->canRedo(); }

  void onCustom(nySupport::Domain *D) override;
  void onContextBegin(nySupport::Domain *D,
                      const nySupport::Context &C) override;
  void onContextEnd(nySupport::Domain *D, const nySupport::Context &C) override;
  void onCallInfoBegin(nySupport::Domain *D, nySupport::CallInfo *Info,
                       bool AppOnly) override;
  void onCallInfoEnd(nySupport::Domain *D, nySupport::CallInfo *Info) override;

private:
  nyTXN::Manager *Mgr;
  // One entry per context that reached onContextBegin, innermost last: true
  // where that context began the transaction and so must end it.
  qo::vector<bool> Opened;
};

} // namespace nyApp

#endif // NYAPP_DEFAULTDOMAIN_H
