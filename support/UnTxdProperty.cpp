#include "support/UnTxdProperty.h"

#include "support/TxdProperty.h"

#include <algorithm>
#include <utility>

// Invariant: every property is listed exactly once in the store it holds,
// and a store's twin, when set, is a live transacted store whose current link
// points back here. Both sides break the link before either dies.

namespace nySupport {

qo::Reference<UnTxdPropertyData> UnTxdPropertyData::create() {
  return qo::make<UnTxdPropertyData>();
}

UnTxdPropertyData::~UnTxdPropertyData() {
  if (TxdPropertyData *T = std::exchange(Twin, nullptr))
    T->clearTwin();
}

void UnTxdPropertyData::removeProperty(UnTxdProperty *P) {
  auto It = std::find(Properties.begin(), Properties.end(), P);
  if (It != Properties.end())
    Properties.erase(It);
}

void UnTxdPropertyData::setItem(Property::ItemRef V, bool Propagate) {
  Item = std::move(V);
  if (Propagate && Twin)
    Twin->setItem(Item, false);
}

UnTxdProperty::UnTxdProperty(const qoString::CString &Name)
    : UnTxdProperty(Name, UnTxdPropertyData::create()) {}

UnTxdProperty::UnTxdProperty(const qoString::CString &Name, ItemRef Value)
    : UnTxdProperty(Name, UnTxdPropertyData::create()) {
  Data->setItem(std::move(Value), true);
}

UnTxdProperty::UnTxdProperty(const qoString::CString &Name,
                             qo::Reference<UnTxdPropertyData> Data)
    : Property(Name, StoreKind::Untransacted), Data(std::move(Data)) {
  this->Data->addProperty(this);
}

UnTxdProperty::~UnTxdProperty() { Data->removeProperty(this); }

qo::Reference<UnTxdProperty>
UnTxdProperty::create(const qoString::CString &Name) {
  return qo::make<UnTxdProperty>(Name);
}

qo::Reference<UnTxdProperty>
UnTxdProperty::create(const qoString::CString &Name, ItemRef Value) {
  return qo::make<UnTxdProperty>(Name, std::move(Value));
}

qo::Reference<UnTxdProperty>
UnTxdProperty::create(const qoString::CString &Name,
                      qo::Reference<UnTxdPropertyData> Data) {
  return qo::make<UnTxdProperty>(Name, std::move(Data));
}

void UnTxdProperty::unref() const {
  if (--Count == 0)
    delete this;
}

bool UnTxdProperty::set(ItemRef Item) {
  return writeFull(std::move(Item),
                   [this](const ItemRef &V) { Data->setItem(V, true); });
}

bool UnTxdProperty::set(ItemRef Item, PropertyModType Type) {
  return writePhased(std::move(Item), Type,
                     [this](const ItemRef &V) { Data->setItem(V, true); });
}

void UnTxdProperty::setData(qo::Reference<UnTxdPropertyData> D) {
  // Held until the end: a receiver of PreModify may drop the last other
  // reference to this property.
  qo::Reference<const Property> Self(this);
  send(PreModify);
  Data->removeProperty(this);
  Data = std::move(D);
  Data->addProperty(this);
  send(Modify);
  send(PostModify);
}

} // namespace nySupport
