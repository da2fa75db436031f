//===- transaction/Serializer.h - An object's fields, described -----------===//
//
// nyTXN::Serializer is what Object::onTransact() describes itself to: the
// begin of the object (with an optional restore function), its fields, each
// an address with the I/O methods of its type, and the end of the object.
// The framework runs the same description to record the fields (write), to
// put recorded values back (read) and to empty the fields of an object that
// leaves the living set (clear); the object need not know which.
//
// beginObject/endObject pairs may nest, so a subclass can wrap its base's
// description; the first restore function given (outermost first) is used.
//
// nyTXN::Restorer is handed to a restore function during undo and redo.
// The function does what it must around the restore and calls restore()
// exactly once; without a restore function the fields are simply read back.
//
// Example:
//   void Store::onTransact(nyTXN::Serializer &S) {
//     S.beginObject(this, &Store::txnRestore);
//     RefCountedObject::onTransact(S);
//     S.field(Members);                     // IOMethods<decltype(Members)>
//     S.field(&Value, nyTXN::IOMethods<qo::Reference<Holder>>::Table);
//     S.endObject();
//   }
//   void Store::txnRestore(Store *S, nyTXN::Restorer &R) {
//     auto Old = S->Value;
//     R.restore();
//     if (S->Value != Old)
//       S->announce();
//   }
//
//===----------------------------------------------------------------------===//
#ifndef NYTXN_SERIALIZER_H
#define NYTXN_SERIALIZER_H

#include "transaction/IOMethods.h"
#include "transaction/Object.h"

#include <cassert>
#include <cstdint>
#include <type_traits>
#include <vector>

namespace nyTXN {

class Restorer;

class Serializer {
public:
  enum class Operation : std::uint8_t { Write, Read, Clear };

  explicit Serializer(Writer &W) : Op(Operation::Write), W(&W) {}
  explicit Serializer(Reader &R) : Op(Operation::Read), R(&R) {}
  explicit Serializer(Clear &C) : Op(Operation::Clear), C(&C) {}
  Serializer(const Serializer &) = delete;
  Serializer &operator=(const Serializer &) = delete;

  void beginObject(Object *Obj) { begin(Obj, nullptr, nullptr); }
  // Restore is called instead of a plain read during undo and redo. T is the
  // object's class or a subclass of U.
  template <class T, class U>
  requires std::is_base_of_v<U, T> && std::is_base_of_v<Object, U>
  void beginObject(T *Obj, void (*Restore)(U *, Restorer &)) {
    begin(static_cast<Object *>(static_cast<U *>(Obj)),
          Restore ? reinterpret_cast<void (*)()>(Restore) : nullptr,
          &invokeRestore<U>);
  }
  void endObject() {
    assert(Depth > 0 && "endObject without beginObject");
    --Depth;
  }

  void field(void *Address, const FieldIO &IO) {
    assert(Depth > 0 && "field outside beginObject/endObject");
    switch (Op) {
    case Operation::Write:
      IO.callWrite(*W, Address);
      return;
    case Operation::Read:
      IO.callRead(*R, Address);
      return;
    case Operation::Clear:
      IO.callClear(*C, Address);
      return;
    }
  }
  // Recording is the hot path (every first change of an object in a
  // transaction), so the write is called directly rather than through the
  // table; the other operations go through it.
  template <class T> void field(T &Value) {
    assert(Depth > 0 && "field outside beginObject/endObject");
    if (Op == Operation::Write) {
      IOMethods<T>::callWrite(*W, &Value);
      return;
    }
    field(static_cast<void *>(&Value), IOMethods<T>::Table);
  }

  Operation operation() const { return Op; }
  // True once the description has begun an object: an object that records
  // nothing of its own never does.
  bool hasBegun() const { return Began; }

private:
  friend class Manager;
  using Trampoline = void (*)(void (*)(), Object *, Restorer &);

  template <class U>
  static void invokeRestore(void (*Fn)(), Object *Obj, Restorer &R) {
    reinterpret_cast<void (*)(U *, Restorer &)>(Fn)(static_cast<U *>(Obj), R);
  }
  void begin(Object *Obj, void (*Fn)(), Trampoline Call) {
    if (Depth++ == 0 && !Began)
      Target = Obj;
    assert(Obj == Target && "one description covers one object");
    Began = true;
    if (Fn && !RestoreFn) {
      RestoreFn = Fn;
      RestoreCall = Call;
    }
  }

  Operation Op;
  Writer *W = nullptr;
  Reader *R = nullptr;
  Clear *C = nullptr;
  int Depth = 0;
  bool Began = false;
  Object *Target = nullptr;
  void (*RestoreFn)() = nullptr;
  Trampoline RestoreCall = nullptr;
};

class Restorer {
public:
  Restorer(const Restorer &) = delete;
  Restorer &operator=(const Restorer &) = delete;

  // Writes the recorded fields back into the object.
  void restore();
  bool isUndo() const { return Undo; }
  Object &object() const { return *Target; }

private:
  friend class Manager;
  Restorer(Object &Target, Reader &Source, bool Undo)
      : Target(&Target), Source(&Source), Undo(Undo) {}

  Object *Target;
  Reader *Source;
  bool Undo;
  bool Done = false;
};

// The bytes the history would record for O now (its fields, written as
// onTransact describes them). For tests and diagnostics.
std::vector<unsigned char> recordedBytes(Object &O);

} // namespace nyTXN

#endif // NYTXN_SERIALIZER_H
