//===- support/Property.h - Named, observed value slots -------------------===//
//
// nySupport::Property is a named slot holding one immutable nyPLST::Item,
// with a validation signal (a receiver may replace a value before it is
// stored) and a modification signal (receivers learn that the value changed).
// A property is transacted (TxdProperty: the value follows undo and redo) or
// untransacted (UnTxdProperty). Properties that share a value store, directly
// or through a twin store of the other kind, form a group: a write through
// any member changes what every member reads, and the other members are told.
//
// A write validates through the first member of the group that has a
// validation receiver, then announces PreModify, stores, and announces Modify
// and PostModify to every member except the writer. The writer's own
// receivers hear only what send() fires: code that wants them told calls it.
//
// Lifetime: properties are shared through qo::Reference<Property>, counting
// through the virtual ref()/unref(); a transacted property released inside a
// recording transaction is kept by the undo history so that undo revives it.
// Signals and connections belong to the thread that owns the properties.
//
// Example:
//   qo::Reference<Property> size = Property::createTxd(manager, "shape.size");
//   qo::Reference<Property> view = size->cloneUnTxd();   // same group
//   view->getSigModified().addCallback(
//       [](qo::Reference<const Property> p, PropertyModType t) { redraw(); });
//   {
//     nySupport::Context context(&domain, nySupport::Context::Momentary);
//     size->set(qo::make<nyPLST::Double>(3)); // view hears all three phases
//   }
//   domain.undo();                          // view hears them again
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_PROPERTY_H
#define NYSUPPORT_PROPERTY_H

#include "base/Reference.h"
#include "base/rtb/Signal.h"
#include "base/string/CString.h"
#include "plst/Item.h"

#include <cstdint>

namespace nyTXN {
class Manager;
} // namespace nyTXN

namespace nySupport {

class TxdProperty;
class TxdPropertyData;
class UnTxdProperty;
class UnTxdPropertyData;

// The values are fixed: scripts and stored data exchange them as numbers.
enum PropertyModType : std::uint32_t {
  PreModify = 0,
  Modify = 1,
  PostModify = 2,
  // Only for set(item, type): the full write with all three announcements.
  FullModify = 3,
};

class Property {
public:
  using ItemRef = qo::Reference<const nyPLST::Item>;
  using ConstRef = qo::Reference<const Property>;
  using ModifiedSignal = qoRTB::Signal2Args<ConstRef, PropertyModType>;
  // The second argument may be assigned a different item: that one is stored.
  using ValidationSignal = qoRTB::Signal2Args<ConstRef, ItemRef &>;
  using TxnModifiedSignal = qoRTB::SignalArg<ConstRef>;

  Property(const Property &) = delete;
  Property &operator=(const Property &) = delete;
  virtual ~Property();

  virtual bool isTransacted() const = 0;
  // The full write: validate, PreModify, store, Modify, PostModify. False
  // when a validator replaced Item (the replacement is stored all the same).
  virtual bool set(ItemRef Item) = 0;
  // Validates, then either runs the full write (FullModify, validating a
  // second time) or stores and announces the one phase Type.
  virtual bool set(ItemRef Item, PropertyModType Type) = 0;
  virtual ItemRef get() const = 0;
  virtual void ref() const = 0;
  virtual void unref() const = 0;
  // Fires when undo or redo changed this property's value or store; null for
  // untransacted properties, so test it before connecting.
  virtual TxnModifiedSignal *getSigTxnModified() const = 0;

  static qo::Reference<Property> createTxd(nyTXN::Manager &M,
                                           const qoString::CString &Name);
  static qo::Reference<Property>
  createTxd(nyTXN::Manager &M, const qoString::CString &Name, ItemRef Value);
  static qo::Reference<Property> createUnTxd(const qoString::CString &Name);
  static qo::Reference<Property> createUnTxd(const qoString::CString &Name,
                                             ItemRef Value);

  // A transacted property in this property's group: on the same store, on
  // the transacted twin of an untransacted store, or on a new store holding
  // get() that becomes that untransacted store's twin. Null for a property
  // that is neither kind.
  qo::Reference<Property> cloneTxd(nyTXN::Manager &M) const;
  qo::Reference<Property> cloneTxd(nyTXN::Manager &M,
                                   const qoString::CString &Name) const;
  // The mirror image of cloneTxd.
  qo::Reference<Property> cloneUnTxd() const;
  qo::Reference<Property> cloneUnTxd(const qoString::CString &Name) const;

  // Moves this property's whole group onto Other's stores, creating the
  // store (and twin link) Other lacks; afterwards every former member reads
  // Other's value. Each moved property announces the move to itself.
  void join(qo::Reference<const Property> Other);

  qo::Reference<qoRTB::Connection> connect(void (*Receiver)(ConstRef,
                                                            PropertyModType));
  qo::Reference<qoRTB::Connection>
  connectValidation(void (*Receiver)(ConstRef, ItemRef &));
  ModifiedSignal &getSigModified() const { return SigModified; }
  ValidationSignal &getSigValidation() const { return SigValidation; }

  // Fires this property's own modification signal.
  void send(PropertyModType Type) const {
    // Most members of most groups have no receivers: stay out of line only
    // for those that do.
    if (SigModified.connectionCount() != 0)
      sendNow(Type);
  }
  // Fires the modification signal of every other member of the group. The
  // caller keeps this property alive (as set() does).
  void broadcast(PropertyModType Type) const;
  // Lets the first member of the group with a validation receiver check
  // Item; false when a receiver replaced it. The caller keeps this property
  // alive.
  bool validate(ItemRef &Item) const;

  const qoString::CString &name() const { return Name; }
  // The text after the last "." of the name, or the whole name.
  qoString::CString basename() const;

  // Which store a property keeps its value in: the two kinds of this layer,
  // or None for other classes, whose groups are empty.
  enum class StoreKind : std::uint8_t { None, Transacted, Untransacted };
  StoreKind storeKind() const { return Kind; }
  // The stores that hold this property's group, each found directly or as
  // the twin of the other kind; null where the group has none.
  TxdPropertyData *txdStore() const;
  UnTxdPropertyData *unTxdStore() const;
  // This property as the one kind or the other, or null.
  const TxdProperty *asTxd() const;
  const UnTxdProperty *asUnTxd() const;

protected:
  // For properties of other kinds: their groups are empty.
  explicit Property(const qoString::CString &Name);

  // The two writes, storing through Store(item).
  // The writer is held throughout: a receiver may drop every other
  // reference to it.
  template <class StoreFn> bool writeFull(ItemRef Item, StoreFn Store) {
    const ConstRef Self(this);
    const bool Ok = validate(Item);
    broadcast(PreModify);
    Store(Item);
    broadcast(Modify);
    broadcast(PostModify);
    return Ok;
  }
  template <class StoreFn>
  bool writePhased(ItemRef Item, PropertyModType Type, StoreFn Store) {
    const ConstRef Self(this);
    const bool Ok = validate(Item);
    if (Type == FullModify) {
      set(Item);
      return Ok;
    }
    Store(Item);
    broadcast(Type);
    return Ok;
  }

private:
  friend class TxdProperty;
  friend class UnTxdProperty;

  // The two kinds are told apart without a dynamic cast: groups are walked
  // several times per write.
  Property(const qoString::CString &Name, StoreKind Kind);
  void sendNow(PropertyModType Type) const;
  // False for a transacted property that only the undo history revived:
  // nothing counts it, and a reference handed to a receiver would release it
  // again. Such members are not announced to and do not validate.
  bool held() const;

  const qoString::CString Name;
  mutable ModifiedSignal SigModified;
  mutable ValidationSignal SigValidation;
  const StoreKind Kind;
};

} // namespace nySupport

#endif // NYSUPPORT_PROPERTY_H
