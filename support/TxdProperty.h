//===- support/TxdProperty.h - Properties that follow undo and redo -------===//
//
// nySupport::TxdProperty keeps its value in a TxdPropertyData store, an
// object of the transaction framework: every change of the value, of the
// store's member list and of the link to an untransacted twin store is
// recorded before it happens (once per object and transaction), so undo
// reverses it and redo makes it again. TxdPropertyTwin is the recorded link
// from a transacted store to an untransacted one (UnTxdPropertyData, which
// keeps a plain pointer back).
//
// After undo or redo every restored property and every member of a restored
// store fires its txn-modified signal; a restored store whose value changed
// announces it to the members of its untransacted twin (PreModify to all,
// then Modify and PostModify to each), whose store follows silently.
//
// Lifetime: all three classes count through nyTXN::RefCountedObject, so
// releasing the last reference inside a recording transaction hands the
// object to the history (undo revives it) instead of deleting it. A property
// made in a step that is undone is out of existence: it reads null and has no
// group until redo. A twin link undone out of existence, or whose store
// leaves the living set, detaches the untransacted store for good: redo does
// not reattach it. A property or store revived by undo that nothing else
// holds has a count of zero; announcements skip it, since handing out a
// reference to it would release it again.
//
// Example:
//   manager.beginTransaction(nyTXN::TxnUndoable);
//   qo::Reference<TxdProperty> p =
//       TxdProperty::create(manager, "shape.size",
//       qo::make<nyPLST::Double>(1));
//   manager.endTransaction();
//   manager.beginTransaction(nyTXN::TxnUndoable);
//   p->set(qo::make<nyPLST::Double>(2));
//   manager.endTransaction();
//   manager.undo();        // p->get() reads 1 again; txn-modified fires
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_TXDPROPERTY_H
#define NYSUPPORT_TXDPROPERTY_H

#include "base/Containers.h"
#include "support/Property.h"
#include "transaction/ImmutableReference.h"
#include "transaction/Object.h"
#include "transaction/Serializer.h"

namespace nySupport {

class TxdPropertyData;
class TxdPropertyTwin;
class UnTxdPropertyData;

class TxdProperty final : public Property, public nyTXN::RefCountedObject {
public:
  TxdProperty(nyTXN::Manager &M, const qoString::CString &Name);
  TxdProperty(nyTXN::Manager &M, const qoString::CString &Name, ItemRef Value);
  TxdProperty(nyTXN::Manager &M, const qoString::CString &Name,
              qo::Reference<TxdPropertyData> Data);
  ~TxdProperty() override;

  static qo::Reference<TxdProperty> create(nyTXN::Manager &M,
                                           const qoString::CString &Name);
  static qo::Reference<TxdProperty>
  create(nyTXN::Manager &M, const qoString::CString &Name, ItemRef Value);
  static qo::Reference<TxdProperty> create(nyTXN::Manager &M,
                                           const qoString::CString &Name,
                                           qo::Reference<TxdPropertyData> Data);

  bool isTransacted() const override { return true; }
  bool set(ItemRef Item) override;
  bool set(ItemRef Item, PropertyModType Type) override;
  // Null while the property is out of existence.
  ItemRef get() const override;
  void ref() const override { RefCountedObject::ref(); }
  void unref() const override { RefCountedObject::unref(); }
  TxnModifiedSignal *getSigTxnModified() const override {
    return &SigTxnModified;
  }

  // Null only while the property is out of existence.
  const qo::Reference<TxdPropertyData> &data() const { return Data; }
  // Moves the property to store D (recorded), announcing the move to itself.
  void setData(qo::Reference<TxdPropertyData> D);
  // Fires the txn-modified signal; the store calls it for its members.
  void onDataTxnModified();

  void onTransact(nyTXN::Serializer &S) override;
  void onTxnModified() override;
  void onTxnDestroyed() override;

private:
  void fireTxnModified();

  qo::Reference<TxdPropertyData> Data;
  mutable TxnModifiedSignal SigTxnModified;
};

class TxdPropertyData final : public nyTXN::RefCountedObject {
public:
  using Holder = nyTXN::ImmutableReference<const nyPLST::Item>;

  explicit TxdPropertyData(nyTXN::Manager &M) : RefCountedObject(M) {}
  // Detaches the untransacted twin, which must never reach a dead store.
  ~TxdPropertyData() override;

  static qo::Reference<TxdPropertyData> create(nyTXN::Manager &M);

  // Recorded changes of the member list; removing an absent member erases
  // nothing.
  void addProperty(TxdProperty *P);
  void removeProperty(TxdProperty *P);

  Property::ItemRef item() const {
    return Item ? Item->get() : Property::ItemRef();
  }
  const qo::vector<TxdProperty *> &properties() const { return Properties; }
  nyTXN::Manager *getTxnMgr() const { return &txnManager(); }

  // Records the store and stores V in a new holder; with Propagate, also
  // passes V to the untransacted twin, which does not pass it back.
  void setItem(Property::ItemRef V, bool Propagate);

  // The untransacted twin store, or null.
  UnTxdPropertyData *twin() const;
  const qo::Reference<TxdPropertyTwin> &twinLink() const { return Twin; }
  // Records the store and links it to U through a new TxdPropertyTwin.
  void setTwin(UnTxdPropertyData *U);
  // Forgets the untransacted store without recording: twin() answers null.
  void clearTwin();

  void onTransact(nyTXN::Serializer &S) override;
  void onTxnModified() override;
  void onTxnDestroyed() override;

  // Restores the fields and, when the value changed, announces it to the
  // untransacted twin's members and stores it there.
  static void txnRestore(TxdPropertyData *D, nyTXN::Restorer &R);

private:
  friend class TxdProperty;
  // The destructor's unrecorded removal.
  void forget(TxdProperty *P);

  qo::vector<TxdProperty *> Properties;
  qo::Reference<Holder> Item;
  qo::Reference<TxdPropertyTwin> Twin;
};

class TxdPropertyTwin final : public nyTXN::RefCountedObject {
public:
  TxdPropertyTwin(nyTXN::Manager &M, TxdPropertyData *Owner,
                  UnTxdPropertyData *UnTxd)
      : RefCountedObject(M), Owner(Owner), UnTxd(UnTxd) {}

  static qo::Reference<TxdPropertyTwin>
  create(nyTXN::Manager &M, TxdPropertyData *Owner, UnTxdPropertyData *UnTxd);

  UnTxdPropertyData *get() const { return UnTxd; }
  TxdPropertyData *owner() const { return Owner; }
  void clear() { UnTxd = nullptr; }

  // Undone out of existence: detaches the untransacted store for good.
  void onTxnExtant() override;

private:
  TxdPropertyData *const Owner;
  UnTxdPropertyData *UnTxd;
};

inline UnTxdPropertyData *TxdPropertyData::twin() const {
  return Twin ? Twin->get() : nullptr;
}

} // namespace nySupport

#endif // NYSUPPORT_TXDPROPERTY_H
