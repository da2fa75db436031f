#include "support/Property.h"

#include "support/PropertyGroupIterator.h"
#include "support/TxdProperty.h"
#include "support/UnTxdProperty.h"

#include <utility>

// A group is whatever the two stores of a property reach: the transacted
// store (the property's own, or the twin of its untransacted store) and the
// untransacted store (likewise). Twin links are kept symmetric by the stores,
// so both ways of finding a store agree. Every walk goes through
// PropertyGroupIterator, which holds the stores while receivers run.

namespace nySupport {

Property::Property(const qoString::CString &Name)
    : Property(Name, StoreKind::None) {}

Property::Property(const qoString::CString &Name, StoreKind Kind)
    : Name(Name), Kind(Kind) {}

Property::~Property() = default;

const TxdProperty *Property::asTxd() const {
  return Kind == StoreKind::Transacted ? static_cast<const TxdProperty *>(this)
                                       : nullptr;
}

const UnTxdProperty *Property::asUnTxd() const {
  return Kind == StoreKind::Untransacted
             ? static_cast<const UnTxdProperty *>(this)
             : nullptr;
}

TxdPropertyData *Property::txdStore() const {
  return PropertyGroupIterator::txdStoreOf(*this);
}

UnTxdPropertyData *Property::unTxdStore() const {
  return PropertyGroupIterator::unTxdStoreOf(*this);
}

qo::Reference<Property> Property::createTxd(nyTXN::Manager &M,
                                            const qoString::CString &Name) {
  return TxdProperty::create(M, Name);
}

qo::Reference<Property> Property::createTxd(nyTXN::Manager &M,
                                            const qoString::CString &Name,
                                            ItemRef Value) {
  return TxdProperty::create(M, Name, std::move(Value));
}

qo::Reference<Property> Property::createUnTxd(const qoString::CString &Name) {
  return UnTxdProperty::create(Name);
}

qo::Reference<Property> Property::createUnTxd(const qoString::CString &Name,
                                              ItemRef Value) {
  return UnTxdProperty::create(Name, std::move(Value));
}

qo::Reference<Property> Property::cloneTxd(nyTXN::Manager &M) const {
  return cloneTxd(M, Name);
}

qo::Reference<Property> Property::cloneUnTxd() const {
  return cloneUnTxd(Name);
}

qo::Reference<Property>
Property::cloneTxd(nyTXN::Manager &M, const qoString::CString &NewName) const {
  if (const TxdProperty *T = asTxd())
    return T->data() ? TxdProperty::create(M, NewName, T->data()) : nullptr;
  const UnTxdProperty *U = asUnTxd();
  if (!U)
    return nullptr;
  if (TxdPropertyData *Twin = U->data()->twin())
    return TxdProperty::create(M, NewName,
                               qo::Reference<TxdPropertyData>(Twin));
  qo::Reference<TxdProperty> Clone = TxdProperty::create(M, NewName, get());
  Clone->data()->setTwin(U->data().get());
  U->data()->setTwin(Clone->data().get());
  return Clone;
}

qo::Reference<Property>
Property::cloneUnTxd(const qoString::CString &NewName) const {
  if (const UnTxdProperty *U = asUnTxd())
    return UnTxdProperty::create(NewName, U->data());
  const TxdProperty *T = asTxd();
  if (!T || !T->data())
    return nullptr;
  if (UnTxdPropertyData *Twin = T->data()->twin())
    return UnTxdProperty::create(NewName,
                                 qo::Reference<UnTxdPropertyData>(Twin));
  qo::Reference<UnTxdProperty> Clone = UnTxdProperty::create(NewName, get());
  T->data()->setTwin(Clone->data().get());
  Clone->data()->setTwin(T->data().get());
  return Clone;
}

void Property::join(qo::Reference<const Property> Other) {
  // Other needs a store to join: a property of neither kind, or one out of
  // existence, has none.
  if (!Other || (!Other->txdStore() && !Other->unTxdStore()))
    return;
  // The members are held while they move: their own receivers run in between
  // and may release anything.
  qo::vector<qo::Reference<TxdProperty>> TxdMembers;
  qo::vector<qo::Reference<UnTxdProperty>> UnTxdMembers;
  if (TxdPropertyData *Store = txdStore())
    for (TxdProperty *P : Store->properties())
      TxdMembers.emplace_back(P);
  if (UnTxdPropertyData *Store = unTxdStore())
    for (UnTxdProperty *P : Store->properties())
      UnTxdMembers.emplace_back(P);

  qo::Reference<TxdPropertyData> ToTxd = Other->txdStore();
  qo::Reference<UnTxdPropertyData> ToUnTxd = Other->unTxdStore();
  if (!TxdMembers.empty() && !ToTxd) {
    ToTxd = TxdPropertyData::create(*TxdMembers.front()->data()->getTxnMgr());
    ToTxd->setItem(Other->get(), true);
    ToTxd->setTwin(ToUnTxd.get());
    ToUnTxd->setTwin(ToTxd.get());
  }
  if (!UnTxdMembers.empty() && !ToUnTxd) {
    ToUnTxd = UnTxdPropertyData::create();
    ToUnTxd->setItem(Other->get(), true);
    ToUnTxd->setTwin(ToTxd.get());
    ToTxd->setTwin(ToUnTxd.get());
  }
  for (const qo::Reference<TxdProperty> &P : TxdMembers)
    P->setData(ToTxd);
  for (const qo::Reference<UnTxdProperty> &P : UnTxdMembers)
    P->setData(ToUnTxd);
}

qo::Reference<qoRTB::Connection>
Property::connect(void (*Receiver)(ConstRef, PropertyModType)) {
  return SigModified.addCallback(Receiver);
}

qo::Reference<qoRTB::Connection>
Property::connectValidation(void (*Receiver)(ConstRef, ItemRef &)) {
  return SigValidation.addCallback(Receiver);
}

bool Property::held() const {
  const TxdProperty *T = asTxd();
  return !T || T->refCount() != 0;
}

void Property::sendNow(PropertyModType Type) const {
  if (SigModified.isBlocked() || !held())
    return;
  SigModified.emit(ConstRef(this), Type);
}

void Property::broadcast(PropertyModType Type) const {
  for (PropertyGroupIterator It(this, true); It.valid(); It.next())
    It.current()->send(Type);
}

bool Property::validate(ItemRef &Item) const {
  for (PropertyGroupIterator It(this, false); It.valid(); It.next()) {
    const Property *Candidate = It.current();
    if (Candidate->SigValidation.connectionCount() == 0 || !Candidate->held())
      continue;
    const qo::Reference<Property> Member = It.get();
    const nyPLST::Item *Before = Item.get();
    Member->SigValidation.emit(ConstRef(Member), Item);
    return Item.get() == Before;
  }
  return true;
}

qoString::CString Property::basename() const {
  const char *Begin = Name.c_str();
  const char *End = Begin + Name.length();
  const char *Last = End;
  while (Last != Begin && Last[-1] != '.')
    --Last;
  return qoString::CString(Last, std::size_t(End - Last));
}

} // namespace nySupport
