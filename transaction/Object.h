//===- transaction/Object.h - Recorded objects ----------------------------===//
//
// nyTXN::Object is the base of everything the transaction framework records:
// it knows its manager and the stamp of the last transaction that recorded
// it, and it describes its fields to a Serializer in onTransact(). The
// framework calls the other virtual hooks when undo, redo and the history
// change the object's state or existence.
//
// nyTXN::RefCountedObject adds a reference count (for qo::Reference) whose
// fall to zero is handed to the manager instead of deleting the object, so
// that undo can bring it back; Manager.h describes the whole lifetime. Such
// objects are created with new and held through qo::Reference; the count
// starts at 0. A plain Object may live anywhere but must outlive every step
// that recorded it.
//
// Recording a class: onTransact() opens the object (with an optional restore
// function), lets its base record, lists its fields, and closes it:
//
//   class Circle : public nyTXN::RefCountedObject {
//   public:
//     explicit Circle(nyTXN::Manager &M) : RefCountedObject(M) {}
//     void setRadius(double R) { recordChange(); Radius = R; }
//     void onTransact(nyTXN::Serializer &S) override {
//       S.beginObject(this);
//       RefCountedObject::onTransact(S);
//       S.field(Radius);
//       S.field(Style);            // a qo::Reference<StyleObject>
//       S.endObject();
//     }
//   private:
//     double Radius = 1;
//     qo::Reference<StyleObject> Style;
//   };
//
//===----------------------------------------------------------------------===//
#ifndef NYTXN_OBJECT_H
#define NYTXN_OBJECT_H

#include "transaction/Config.h"
#include "transaction/Manager.h"

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <new>
#include <type_traits>
#include <utility>

namespace nyTXN {

class Serializer;
class ObjectSize;
class Writer;

class Object {
public:
  explicit Object(Manager &M) noexcept : Mgr(&M), TxnStamp(M.currentStamp()) {}
  Object(const Object &) = delete;
  Object &operator=(const Object &) = delete;
  virtual ~Object();

  // Describes the fields to record. The default records nothing, so a class
  // without fields of its own need not override it; subclasses call their
  // base's version between beginObject and endObject.
  virtual void onTransact(Serializer &) {}
  // After undo or redo wrote this object's recorded bytes back (during the
  // restore pass, before any announcement).
  virtual void onTxnRestored() {}
  // After undo or redo changed this object's recorded state, once the whole
  // step is restored; only objects that exist afterwards are told.
  virtual void onTxnModified() {}
  // The count of a RefCountedObject reached zero: the object is leaving the
  // living set. Changes it makes now to other objects (or to itself) belong
  // to the transaction that released it.
  virtual void onTxnDestroyed() {}
  // Undo or redo changed whether the object exists; isTxnExtant() tells which.
  virtual void onTxnExtant() {}
  // What the history is charged while it keeps this object (see ObjectSize);
  // the default charges config::DefaultObjectBytes.
  virtual void onTxnGetSize(ObjectSize &S) const;

  bool isTxnExtant() const { return Extant; }
  Manager &txnManager() const { return *Mgr; }
  Stamp txnStamp() const { return TxnStamp; }

  // The write rule: call before every change of a recorded field.
  void recordChange() {
    if (TxnStamp != Mgr->currentStamp())
      Mgr->onTransact(this);
  }

private:
  friend class Manager;
  friend class RefCountedObject;

  Manager *Mgr;
  Stamp TxnStamp;
  bool Extant = true;
  // Set by RefCountedObject, so that the manager can tell without a cast.
  bool Counted = false;
};

class RefCountedObject : public Object {
public:
  // Proof that a constructor runs for newValueObject; only this class can
  // make one.
  class ValueObjectTag {
    friend class RefCountedObject;
    ValueObjectTag() = default;
  };

  explicit RefCountedObject(Manager &M);
  // The base of a value object: known to no list of the manager.
  RefCountedObject(ValueObjectTag, Manager &M) noexcept : Object(M) {
    Counted = true;
    Flags = ValueObject;
  }
  ~RefCountedObject() override;

  // Called when the count reaches zero; the default hands the object to its
  // manager, which keeps or deletes it. An override must do the same in the
  // end (call RefCountedObject::txnDelete()).
  virtual void txnDelete();

  void ref() const { ++Count; }
  void unref() const {
    assert(Count > 0 && "unref of a transaction object with no references");
    if (--Count == 0)
      const_cast<RefCountedObject *>(this)->txnDelete();
  }
  std::uint32_t refCount() const { return Count; }

protected:
  // Makes a value object: an immutable T that records nothing (its
  // onTransact describes no field, ever), made and released in great
  // numbers, such as a value holder. T's constructor takes a ValueObjectTag
  // first and hands it to this class's constructor. A value object never
  // leaves the living set: the history holds it by counting instead (a step
  // takes a reference on every value object its bytes name, and drops it
  // with the bytes), so when its count reaches zero nothing can bring it
  // back, and it is destroyed at once, inside a transaction or not, without
  // txnDelete or onTxnDestroyed (it has no state to hand over). Its memory
  // comes from M's block cache and goes back there.
  template <class T, class... Args>
  static T *newValueObject(Manager &M, Args &&...A);

private:
  friend class Manager;
  friend class Writer;

  enum : std::uint8_t {
    Orphan = 1,       // in Manager::Orphans
    Parked = 2,       // in Manager::Parked, deleted by the manager's destructor
    Detached = 4,     // no step keeps it any more: delete at zero
    Queued = 8,       // in Manager::ReleaseQueue or Candidates
    Deleting = 16,    // deleted by its manager, which has unlinked it
    ValueObject = 32, // made by newValueObject; in no list of the manager
  };

  // The small fields come first: they fill the tail of Object, which keeps
  // a value holder within one 64-byte block.
  mutable std::uint32_t Count = 0;
  std::uint8_t Flags = 0;
  // Index in the Created list of the step that created it.
  std::uint32_t Slot = 0;
  // Stamp of the recording transaction that created it, or 0.
  Stamp BirthStamp = 0;
  // Highest stamp of a step whose bytes hold this object's pointer or state.
  mutable Stamp SnapStamp = 0;
};

template <class T, class... Args>
T *RefCountedObject::newValueObject(Manager &M, Args &&...A) {
  static_assert(std::is_base_of_v<RefCountedObject, T> && std::is_final_v<T>,
                "a value object is a final RefCountedObject");
  static_assert(sizeof(T) <= config::ValueObjectBytes &&
                    alignof(T) <= config::ValueObjectBytes,
                "a value object must fit a block of the manager's cache");
  // Made on the hot path of every recorded write: no unwinding to prepare.
  void *Memory = M.allocateValueObject();
  static_assert(
      noexcept(::new (Memory) T(ValueObjectTag(), M, std::forward<Args>(A)...)),
      "a value object's constructor must not throw");
  return ::new (Memory) T(ValueObjectTag(), M, std::forward<Args>(A)...);
}

} // namespace nyTXN

#endif // NYTXN_OBJECT_H
