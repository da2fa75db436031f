//===- transaction/Object.cpp - Recorded objects --------------------------===//

#include "transaction/Object.h"

#include "transaction/Config.h"
#include "transaction/ObjectSize.h"

namespace nyTXN {

Object::~Object() = default;

void Object::onTxnGetSize(ObjectSize &S) const {
  S.addOwn(config::DefaultObjectBytes);
}

RefCountedObject::RefCountedObject(Manager &M) : Object(M) {
  Counted = true;
  M.created(this);
}

// The manager unlinks what it deletes itself; anything else (a constructor
// that threw after this base was built) must leave the manager's lists.
RefCountedObject::~RefCountedObject() {
  if (!(Flags & (Deleting | ValueObject)))
    txnManager().abandoned(this);
}

void RefCountedObject::txnDelete() { txnManager().release(this); }

} // namespace nyTXN
