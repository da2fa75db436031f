//===- support/UnTxdProperty.h - Properties outside the undo history ------===//
//
// nySupport::UnTxdProperty keeps its value in an UnTxdPropertyData store in
// plain memory: writes are not recorded and undo does not touch them. A
// store may be the twin of a transacted store (TxdPropertyData): a write on
// either side is passed once to the other, never echoed back, and undo and
// redo of the transacted value reach the untransacted members with full
// announcements (PreModify to all, then Modify and PostModify to each).
//
// Lifetime: a property owns one reference to its store; a store lives while
// a member or another holder refers to it. The twin pointer is not owning:
// the transacted side clears it when its link goes, and a dying store clears
// the transacted side's link to it.
//
// Example:
//   qo::Reference<UnTxdProperty> a = UnTxdProperty::create("zoom");
//   qo::Reference<UnTxdProperty> b = UnTxdProperty::create("view.zoom",
//                                                          a->data());
//   a->set(qo::make<nyPLST::Double>(2));  // b's receivers hear the write
//   b->get();                             // the same item
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_UNTXDPROPERTY_H
#define NYSUPPORT_UNTXDPROPERTY_H

#include "base/Containers.h"
#include "base/ReferenceCount.h"
#include "support/Property.h"

#include <cstdint>

namespace nySupport {

class TxdPropertyData;
class UnTxdProperty;

class UnTxdPropertyData : public qo::ReferenceCount {
public:
  static qo::Reference<UnTxdPropertyData> create();
  UnTxdPropertyData() = default;
  UnTxdPropertyData(const UnTxdPropertyData &) = delete;
  UnTxdPropertyData &operator=(const UnTxdPropertyData &) = delete;
  // Detaches the transacted twin first, so that it never reaches a dead
  // store.
  ~UnTxdPropertyData() override;

  void addProperty(UnTxdProperty *P) { Properties.push_back(P); }
  // Erases the first equal entry; an absent property erases nothing.
  void removeProperty(UnTxdProperty *P);

  Property::ItemRef item() const { return Item; }
  const qo::vector<UnTxdProperty *> &properties() const { return Properties; }
  // Stores V; with Propagate, also passes it to the transacted twin as a
  // recorded change that does not come back here.
  void setItem(Property::ItemRef V, bool Propagate);

  void setTwin(TxdPropertyData *T) { Twin = T; }
  void clearTwin() { Twin = nullptr; }
  TxdPropertyData *twin() const { return Twin; }

private:
  qo::vector<UnTxdProperty *> Properties;
  Property::ItemRef Item;
  TxdPropertyData *Twin = nullptr;
};

class UnTxdProperty final : public Property {
public:
  explicit UnTxdProperty(const qoString::CString &Name);
  UnTxdProperty(const qoString::CString &Name, ItemRef Value);
  UnTxdProperty(const qoString::CString &Name,
                qo::Reference<UnTxdPropertyData> Data);
  ~UnTxdProperty() override;

  static qo::Reference<UnTxdProperty> create(const qoString::CString &Name);
  static qo::Reference<UnTxdProperty> create(const qoString::CString &Name,
                                             ItemRef Value);
  static qo::Reference<UnTxdProperty>
  create(const qoString::CString &Name, qo::Reference<UnTxdPropertyData> Data);

  bool isTransacted() const override { return false; }
  bool set(ItemRef Item) override;
  bool set(ItemRef Item, PropertyModType Type) override;
  ItemRef get() const override { return Data->item(); }
  void ref() const override { ++Count; }
  void unref() const override;
  TxnModifiedSignal *getSigTxnModified() const override { return nullptr; }

  const qo::Reference<UnTxdPropertyData> &data() const { return Data; }
  // Moves the property to store D, announcing the move to itself.
  void setData(qo::Reference<UnTxdPropertyData> D);
  // The transacted store announces undo and redo through this.
  void sendMod(PropertyModType Type) { send(Type); }

private:
  qo::Reference<UnTxdPropertyData> Data;
  mutable std::uint32_t Count = 0;
};

} // namespace nySupport

#endif // NYSUPPORT_UNTXDPROPERTY_H
