#include "support/TxdProperty.h"

#include "support/UnTxdProperty.h"

#include <algorithm>
#include <utility>

// Invariants, while the objects exist: a property is listed once in the
// store its Data names; a store's link, when its untransacted pointer is set,
// is the one the untransacted store's twin pointer answers to (each side
// clears the other before it goes, and a link that leaves existence or loses
// its store is cleared for good, so no pointer outlives what it names). What
// the history restores (Data, the member list, the item holder, the link) is
// restored together, so undo and redo keep the first invariant; the
// untransacted side is not recorded and is only ever detached by them.

namespace nySupport {

//===-- TxdProperty -------------------------------------------------------===//

TxdProperty::TxdProperty(nyTXN::Manager &M, const qoString::CString &Name)
    : TxdProperty(M, Name, TxdPropertyData::create(M)) {}

TxdProperty::TxdProperty(nyTXN::Manager &M, const qoString::CString &Name,
                         ItemRef Value)
    : TxdProperty(M, Name, TxdPropertyData::create(M)) {
  Data->setItem(std::move(Value), true);
}

TxdProperty::TxdProperty(nyTXN::Manager &M, const qoString::CString &Name,
                         qo::Reference<TxdPropertyData> D)
    : Property(Name, StoreKind::Transacted), RefCountedObject(M),
      Data(std::move(D)) {
  Data->addProperty(this);
}

TxdProperty::~TxdProperty() {
  // Leaving the living set removed it already (onTxnDestroyed, or the
  // history clearing its fields); this covers a property deleted otherwise.
  if (Data)
    Data->forget(this);
}

qo::Reference<TxdProperty> TxdProperty::create(nyTXN::Manager &M,
                                               const qoString::CString &Name) {
  return qo::make<TxdProperty>(M, Name);
}

qo::Reference<TxdProperty> TxdProperty::create(nyTXN::Manager &M,
                                               const qoString::CString &Name,
                                               ItemRef Value) {
  return qo::make<TxdProperty>(M, Name, std::move(Value));
}

qo::Reference<TxdProperty>
TxdProperty::create(nyTXN::Manager &M, const qoString::CString &Name,
                    qo::Reference<TxdPropertyData> D) {
  return qo::make<TxdProperty>(M, Name, std::move(D));
}

bool TxdProperty::set(ItemRef Item) {
  return writeFull(std::move(Item), [this](const ItemRef &V) {
    if (Data)
      Data->setItem(V, true);
  });
}

bool TxdProperty::set(ItemRef Item, PropertyModType Type) {
  return writePhased(std::move(Item), Type, [this](const ItemRef &V) {
    if (Data)
      Data->setItem(V, true);
  });
}

Property::ItemRef TxdProperty::get() const {
  return Data ? Data->item() : ItemRef();
}

void TxdProperty::setData(qo::Reference<TxdPropertyData> D) {
  if (!Data || !D)
    return;
  qo::Reference<const TxdProperty> Self(this);
  recordChange();
  send(PreModify);
  Data->removeProperty(this);
  Data = std::move(D);
  Data->addProperty(this);
  send(Modify);
  send(PostModify);
}

void TxdProperty::onDataTxnModified() { fireTxnModified(); }

void TxdProperty::fireTxnModified() {
  if (SigTxnModified.connectionCount() == 0 || SigTxnModified.isBlocked() ||
      !held())
    return;
  SigTxnModified.emit(ConstRef(this));
}

void TxdProperty::onTransact(nyTXN::Serializer &S) {
  S.beginObject(this);
  RefCountedObject::onTransact(S);
  S.field(Data);
  S.endObject();
}

void TxdProperty::onTxnModified() {
  RefCountedObject::onTxnModified();
  fireTxnModified();
}

void TxdProperty::onTxnDestroyed() {
  RefCountedObject::onTxnDestroyed();
  if (Data)
    Data->removeProperty(this);
}

//===-- TxdPropertyData ---------------------------------------------------===//

TxdPropertyData::~TxdPropertyData() {
  if (!Twin)
    return;
  if (UnTxdPropertyData *U = Twin->get()) {
    if (U->twin() == this)
      U->clearTwin();
    Twin->clear();
  }
}

qo::Reference<TxdPropertyData> TxdPropertyData::create(nyTXN::Manager &M) {
  return qo::make<TxdPropertyData>(M);
}

void TxdPropertyData::addProperty(TxdProperty *P) {
  recordChange();
  Properties.push_back(P);
}

void TxdPropertyData::removeProperty(TxdProperty *P) {
  auto It = std::find(Properties.begin(), Properties.end(), P);
  if (It == Properties.end())
    return;
  // Recording only reads the list: the iterator stays valid.
  recordChange();
  Properties.erase(It);
}

void TxdPropertyData::forget(TxdProperty *P) {
  auto It = std::find(Properties.begin(), Properties.end(), P);
  if (It != Properties.end())
    Properties.erase(It);
}

void TxdPropertyData::setItem(Property::ItemRef V, bool Propagate) {
  recordChange();
  UnTxdPropertyData *U = Propagate ? twin() : nullptr;
  Item = Holder::create(txnManager(), U ? V : std::move(V));
  if (U)
    U->setItem(std::move(V), false);
}

void TxdPropertyData::setTwin(UnTxdPropertyData *U) {
  recordChange();
  Twin = TxdPropertyTwin::create(txnManager(), this, U);
}

void TxdPropertyData::clearTwin() {
  if (Twin)
    Twin->clear();
}

void TxdPropertyData::onTransact(nyTXN::Serializer &S) {
  S.beginObject(this, &TxdPropertyData::txnRestore);
  RefCountedObject::onTransact(S);
  S.field(Properties);
  S.field(Item);
  S.field(Twin);
  S.endObject();
}

void TxdPropertyData::onTxnModified() {
  RefCountedObject::onTxnModified();
  // By index: a receiver may change the list.
  for (std::size_t I = 0; I < Properties.size(); ++I)
    Properties[I]->onDataTxnModified();
}

void TxdPropertyData::onTxnDestroyed() {
  RefCountedObject::onTxnDestroyed();
  recordChange();
  if (!Twin)
    return;
  // The link is cleared as well as released: undo brings the store back
  // with this link, which must not name a store that may be gone by then.
  if (UnTxdPropertyData *U = Twin->get()) {
    U->clearTwin();
    Twin->clear();
  }
  Twin.reset();
}

void TxdPropertyData::txnRestore(TxdPropertyData *D, nyTXN::Restorer &R) {
  const Property::ItemRef Old = D->item();
  R.restore();
  UnTxdPropertyData *U = D->twin();
  Property::ItemRef New = D->item();
  if (!U || New == Old)
    return;
  // Held while the receivers run: they may release anything.
  const qo::Reference<UnTxdPropertyData> Store(U);
  const qo::vector<qo::Reference<UnTxdProperty>> Members(
      U->properties().begin(), U->properties().end());
  for (const qo::Reference<UnTxdProperty> &P : Members)
    P->sendMod(PreModify);
  U->setItem(std::move(New), false);
  for (const qo::Reference<UnTxdProperty> &P : Members) {
    P->sendMod(Modify);
    P->sendMod(PostModify);
  }
}

//===-- TxdPropertyTwin ---------------------------------------------------===//

qo::Reference<TxdPropertyTwin> TxdPropertyTwin::create(nyTXN::Manager &M,
                                                       TxdPropertyData *Owner,
                                                       UnTxdPropertyData *U) {
  return qo::make<TxdPropertyTwin>(M, Owner, U);
}

void TxdPropertyTwin::onTxnExtant() {
  RefCountedObject::onTxnExtant();
  if (isTxnExtant() || !UnTxd)
    return;
  if (UnTxd->twin() == Owner)
    UnTxd->clearTwin();
  // Cleared in every case: the untransacted store may die before a redo
  // brings this link back, and would not know to tell it.
  UnTxd = nullptr;
}

} // namespace nySupport
