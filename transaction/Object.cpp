//===- transaction/Object.cpp - Recorded objects --------------------------===//

#include "transaction/Object.h"

#include "transaction/Config.h"
#include "transaction/ObjectSize.h"

namespace nyTXN {

Object::Object(Manager &M) : Mgr(&M), TxnStamp(M.currentStamp()) {}

Object::~Object() = default;

void Object::onTransact(Serializer &) {}
void Object::onTxnRestored() {}
void Object::onTxnModified() {}
void Object::onTxnDestroyed() {}
void Object::onTxnExtant() {}

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
  if (!(Flags & Deleting))
    txnManager().abandoned(this);
}

void RefCountedObject::txnDelete() { txnManager().release(this); }

} // namespace nyTXN
