//===- transaction/IOMethods.h - How recorded fields reach the history ----===//
//
// A recorded field is an address plus a table of three I/O methods
// (FieldIO): callWrite puts the field's value into the history through a
// Writer, callRead sets the field from what a Reader gives back, callClear
// empties it when its object leaves the living set. IOMethods<T>::Table is
// the table for a field of type T; it calls the overloads
//
//   void nyTXN::write(Writer &, const T &);
//   void nyTXN::read(Reader &, T &);          // reads what write wrote
//   void nyTXN::clear(Clear &, T &);          // default: nothing
//
// found by argument-dependent lookup (Writer, Reader and Clear are in nyTXN,
// so overloads declared in nyTXN for any type are found). This header gives
// them for arithmetic and enumeration types (raw bytes), plain pointers (the
// pointer; to a RefCountedObject, the address of that base, which need not be
// the object's own), qo::Reference<T> (the pointer; reading takes a reference
// on the new object and then releases the old one; clearing releases and nulls)
// and std::vector<T> (a 4-byte signed count, then each element; clearing
// empties it). support/TxnIO.h adds the layer's value types.
//
// Ownership: the history keeps pointers, not references. A pointer written
// there must be to a RefCountedObject (the manager keeps it alive while a step
// needs it; a value object such as an ImmutableReference is referenced by the
// step itself) or to something that outlives the history; qo::Reference to a
// plain qo::ReferenceCount object is therefore refused at compile time: put
// such values in an ImmutableReference.
//
// Example (a custom table for a field kept in a different form):
//   void write(nyTXN::Writer &W, const Angle &A) { W.writeValue(A.radians()); }
//   void read(nyTXN::Reader &R, Angle &A) {
//     A = Angle::fromRadians(R.readValue<double>());
//   }
//
//===----------------------------------------------------------------------===//
#ifndef NYTXN_IOMETHODS_H
#define NYTXN_IOMETHODS_H

#include "base/Reference.h"
#include "base/ReferenceCount.h"
#include "transaction/Object.h"
#include "transaction/internal/ByteBuffer.h"

#include <cassert>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <vector>

namespace nyTXN {

// Appends a field's bytes to an undo step.
class Writer {
public:
  // For the framework: Bytes go into Buffer; pointers to RefCountedObjects
  // are remembered as held by the step with StepStamp, and value objects
  // written are referenced once each and listed in Holds (when given).
  Writer(internal::ByteBuffer &Buffer, Stamp StepStamp,
         std::vector<const RefCountedObject *> *Holds = nullptr)
      : Buffer(&Buffer), Holds(Holds), StepStamp(StepStamp) {}

  void writeData(const void *Data, int Size) {
    assert(Size >= 0 && "negative size written to the history");
    Buffer->append(Data, static_cast<std::size_t>(Size));
  }
  void writePtr(const void *Ptr) { Buffer->append(&Ptr, sizeof Ptr); }
  // The same bytes; the manager learns that the history refers to Ptr.
  void writePtr(const RefCountedObject *Ptr) {
    note(Ptr);
    writePtr(static_cast<const void *>(Ptr));
  }
  template <class T> void writeValue(const T &Value) {
    static_assert(std::is_trivially_copyable_v<T>);
    Buffer->append(&Value, sizeof Value);
  }

  // Tells the manager that the history refers to Ptr without writing it.
  void note(const RefCountedObject *Ptr) {
    if (!Ptr)
      return;
    if (Ptr->Flags & RefCountedObject::ValueObject)
      hold(Ptr);
    else if (Ptr->SnapStamp < StepStamp)
      Ptr->SnapStamp = StepStamp;
  }

private:
  void hold(const RefCountedObject *Value) {
    if (!Holds)
      return;
    Value->ref();
    Holds->push_back(Value);
  }

  internal::ByteBuffer *Buffer;
  std::vector<const RefCountedObject *> *Holds;
  Stamp StepStamp;
};

// Reads a field's bytes back, in the order they were written. Reading past
// the end (a read method that does not match its write method) yields zero
// bytes and sets failed(); it never reads outside the step.
class Reader {
public:
  Reader(const unsigned char *Data, std::size_t Size)
      : Pos(Data), End(Data + Size) {}

  void readData(void *Data, int Size) {
    assert(Size >= 0 && "negative size read from the history");
    const auto N = static_cast<std::size_t>(Size);
    if (static_cast<std::size_t>(End - Pos) < N) {
      overrun(Data, N);
      return;
    }
    if (N)
      std::memcpy(Data, Pos, N);
    Pos += N;
  }
  void *readPtr() {
    void *Ptr;
    readData(&Ptr, sizeof Ptr);
    return Ptr;
  }
  template <class T> T readValue() {
    static_assert(std::is_trivially_copyable_v<T>);
    T Value;
    readData(&Value, sizeof Value);
    return Value;
  }

  bool atEnd() const { return Pos == End; }
  bool failed() const { return Failed; }

private:
  void overrun(void *Data, std::size_t Size);

  const unsigned char *Pos;
  const unsigned char *End;
  bool Failed = false;
};

// Handed to the clear methods; it carries nothing today and exists so that
// they have a type of their own to overload on.
class Clear {};

// The I/O methods of one field type.
struct FieldIO {
  void (*callWrite)(Writer &, const void *);
  void (*callRead)(Reader &, void *);
  void (*callClear)(Clear &, void *);
};

// Arithmetic and enumeration values: their bytes.
template <class T>
requires std::is_arithmetic_v<T> || std::is_enum_v<T>
void write(Writer &W, const T &Value) { W.writeValue(Value); }
template <class T>
requires std::is_arithmetic_v<T> || std::is_enum_v<T>
void read(Reader &R, T &Value) { R.readData(&Value, sizeof Value); }

// Whatever has no clear method of its own is left as it is.
template <class T> void clear(Clear &, T &) {}

// Plain pointers: the pointer. Clearing nulls it.
template <class T> void write(Writer &W, T *const &Ptr) {
  using Bare = std::remove_cv_t<T>;
  if constexpr (std::is_base_of_v<RefCountedObject, Bare>) {
    W.writePtr(static_cast<const RefCountedObject *>(Ptr));
  } else {
    if constexpr (std::is_polymorphic_v<Bare>)
      W.note(dynamic_cast<const RefCountedObject *>(Ptr));
    W.writePtr(static_cast<const void *>(Ptr));
  }
}
// The write side stored the RefCountedObject base's address, which is not
// the object's own when that base is not the first: cast back through it.
namespace internal {
template <class T> T *readPointer(Reader &R) {
  void *Raw = R.readPtr();
  if constexpr (std::is_base_of_v<RefCountedObject, std::remove_cv_t<T>>)
    return static_cast<T *>(static_cast<RefCountedObject *>(Raw));
  else
    return static_cast<T *>(Raw);
}
} // namespace internal
template <class T> void read(Reader &R, T *&Ptr) {
  Ptr = internal::readPointer<T>(R);
}
template <class T> void clear(Clear &, T *&Ptr) { Ptr = nullptr; }

// qo::Reference: the pointer; reading takes a reference on the new object,
// then releases the old one.
template <class T> void write(Writer &W, const qo::Reference<T> &Ref) {
  static_assert(!std::is_base_of_v<qo::ReferenceCount, std::remove_cv_t<T>>,
                "the history does not keep plain reference-counted objects "
                "alive: hold them through nyTXN::ImmutableReference");
  T *Ptr = Ref.get();
  write(W, Ptr);
}
template <class T> void read(Reader &R, qo::Reference<T> &Ref) {
  Ref = qo::Reference<T>(internal::readPointer<T>(R));
}
template <class T> void clear(Clear &, qo::Reference<T> &Ref) { Ref.reset(); }

// Vectors: a 4-byte signed count, then each element in order.
template <class T, class A>
void write(Writer &W, const std::vector<T, A> &Values) {
  const auto Count = static_cast<std::int32_t>(Values.size());
  W.writeData(&Count, sizeof Count);
  for (const T &Value : Values)
    write(W, Value);
}
template <class T, class A> void read(Reader &R, std::vector<T, A> &Values) {
  Values.clear();
  std::int32_t Count = 0;
  R.readData(&Count, sizeof Count);
  for (std::int32_t I = 0; I < Count && !R.failed(); ++I) {
    Values.emplace_back();
    read(R, Values.back());
  }
}
template <class T, class A> void clear(Clear &, std::vector<T, A> &Values) {
  Values.clear();
}

// The table for a field of type T.
template <class T> struct IOMethods {
  static void callWrite(Writer &W, const void *Field) {
    write(W, *static_cast<const T *>(Field));
  }
  static void callRead(Reader &R, void *Field) {
    read(R, *static_cast<T *>(Field));
  }
  static void callClear(Clear &C, void *Field) {
    clear(C, *static_cast<T *>(Field));
  }
  static constexpr FieldIO Table{&callWrite, &callRead, &callClear};
};

} // namespace nyTXN

#endif // NYTXN_IOMETHODS_H
