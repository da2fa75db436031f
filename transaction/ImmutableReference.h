//===- transaction/ImmutableReference.h - A value held for the history ----===//
//
// nyTXN::ImmutableReference<T> is a RefCountedObject holding one
// qo::Reference<T> that never changes. A recorded object keeps a value of a
// plain reference-counted type (an item, say) through a
// qo::Reference<ImmutableReference<T>> field: replacing the value means
// replacing the holder, the history keeps the old holder while a step needs
// it, and the value itself is never copied. The holder records nothing (it
// cannot change) and is charged config::ValueHolderBytes plus the default
// object charge; the value counts as a reference of no size, since it is
// shared with the living data. Holders are value objects (see
// RefCountedObject::newValueObject): create() is the only way to make one.
//
// Example:
//   using Holder = nyTXN::ImmutableReference<const nyPLST::Item>;
//   qo::Reference<Holder> Value;               // a recorded field
//   void Store::setItem(qo::Reference<const nyPLST::Item> V) {
//     recordChange();
//     Value = Holder::create(txnManager(), std::move(V));
//   }
//
//===----------------------------------------------------------------------===//
#ifndef NYTXN_IMMUTABLEREFERENCE_H
#define NYTXN_IMMUTABLEREFERENCE_H

#include "base/Reference.h"
#include "transaction/Config.h"
#include "transaction/Object.h"
#include "transaction/ObjectSize.h"

#include <utility>

namespace nyTXN {

template <class T> class ImmutableReference final : public RefCountedObject {
public:
  static qo::Reference<ImmutableReference> create(Manager &M,
                                                  qo::Reference<T> Value) {
    return qo::Reference<ImmutableReference>(
        newValueObject<ImmutableReference>(M, std::move(Value)));
  }

  const qo::Reference<T> &get() const { return Value; }

  void onTxnGetSize(ObjectSize &S) const override {
    S.atLeast(config::ValueHolderBytes);
    Object::onTxnGetSize(S);
    if (Value)
      S.add(0);
  }

private:
  friend class RefCountedObject;
  ImmutableReference(ValueObjectTag Tag, Manager &M,
                     qo::Reference<T> Value) noexcept
      : RefCountedObject(Tag, M), Value(std::move(Value)) {}

  const qo::Reference<T> Value;
};

} // namespace nyTXN

#endif // NYTXN_IMMUTABLEREFERENCE_H
