//===- support/PropertyGroupIterator.h - Walk of a property's group -------===//
//
// nySupport::PropertyGroupIterator visits every property that shares a value
// with a start property: first the transacted members in the order of the
// transacted store's list, then the untransacted members in the order of the
// untransacted store's list (each store found directly or as the twin of the
// other). With skipStart the start property itself is passed over once.
//
// Lifetime: the iterator holds references to the start property (unless
// given a plain pointer by a caller that holds it) and to both stores, and
// get() returns a new reference, so receivers called during a walk may
// release properties or change the lists; positions are indices and are
// checked on every step, so a changed list shifts the walk but never leaves
// it.
//
// Example:
//   for (PropertyGroupIterator It(property, true); It.valid(); It.next())
//     It.get()->send(Modify);
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_PROPERTYGROUPITERATOR_H
#define NYSUPPORT_PROPERTYGROUPITERATOR_H

#include "base/Reference.h"
#include "support/Property.h"
#include "support/TxdProperty.h"
#include "support/UnTxdProperty.h"

#include <cstddef>
#include <cstdint>
#include <utility>

namespace nySupport {

class PropertyGroupIterator {
public:
  PropertyGroupIterator(qo::Reference<const Property> S, bool Skip)
      : PropertyGroupIterator(S.get(), Skip) {
    Hold = std::move(S);
  }
  // For a caller that keeps S alive itself: takes no reference on it.
  PropertyGroupIterator(const Property *S, bool Skip)
      : Start(S), SkipStart(Skip) {
    if (Start) {
      Txd = txdStoreOf(*Start);
      UnTxd = unTxdStoreOf(*Start);
    }
    skip();
  }

  bool valid() const { return index1Valid() || index2Valid(); }
  bool index1Valid() const {
    return Txd && std::size_t(Index1) < Txd->properties().size();
  }
  bool index2Valid() const {
    return UnTxd && std::size_t(Index2) < UnTxd->properties().size();
  }
  // The current member; the walk must be valid().
  qo::Reference<Property> get() const { return current(); }
  // The current member without taking a reference.
  Property *current() const {
    if (index1Valid())
      return Txd->properties()[std::size_t(Index1)];
    return UnTxd->properties()[std::size_t(Index2)];
  }
  void advance() {
    if (index1Valid())
      ++Index1;
    else
      ++Index2;
  }
  void next() {
    advance();
    skip();
  }

  // The stores of P's group (Property::txdStore() and unTxdStore()).
  static TxdPropertyData *txdStoreOf(const Property &P) {
    switch (P.storeKind()) {
    case Property::StoreKind::Transacted:
      return static_cast<const TxdProperty &>(P).data().get();
    case Property::StoreKind::Untransacted:
      return static_cast<const UnTxdProperty &>(P).data()->twin();
    default:
      return nullptr;
    }
  }
  static UnTxdPropertyData *unTxdStoreOf(const Property &P) {
    switch (P.storeKind()) {
    case Property::StoreKind::Untransacted:
      return static_cast<const UnTxdProperty &>(P).data().get();
    case Property::StoreKind::Transacted: {
      const TxdPropertyData *Store =
          static_cast<const TxdProperty &>(P).data().get();
      return Store ? Store->twin() : nullptr;
    }
    default:
      return nullptr;
    }
  }

private:
  void skip() {
    if (SkipStart && valid() && current() == Start)
      advance();
  }

  const Property *Start;
  qo::Reference<const Property> Hold;
  bool SkipStart;
  std::int32_t Index1 = 0;
  std::int32_t Index2 = 0;
  qo::Reference<TxdPropertyData> Txd;
  qo::Reference<UnTxdPropertyData> UnTxd;
};

} // namespace nySupport

#endif // NYSUPPORT_PROPERTYGROUPITERATOR_H
