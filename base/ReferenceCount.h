//===- base/ReferenceCount.h - Intrusive, non-atomic reference count ------===//
//
// qo::ReferenceCount is the base of every object held through qo::Reference:
// items, properties, functions, connections. The count is a plain integer, so
// an object and everything that refers to it belong to one thread at a time;
// objects handed between threads use qoThread::ReferenceCount instead.
//
// The count starts at 0; the first qo::Reference makes it 1 and the release
// that takes it back to 0 deletes the object through its virtual destructor.
// ref() and unref() are const so that read-only references (Reference<const
// T>) keep the object alive as well.
//
// Example:
//   class Node : public qo::ReferenceCount { ... };
//   qo::Reference<Node> node(new Node);   // count 1
//   qo::Reference<const Node> view = node; // count 2, same object
//
//===----------------------------------------------------------------------===//
#ifndef QO_REFERENCECOUNT_H
#define QO_REFERENCECOUNT_H

#include <cassert>
#include <cstdint>

namespace qo {

class ReferenceCount {
public:
  ReferenceCount() = default;
  // A copy is a new object: it starts with no references of its own.
  ReferenceCount(const ReferenceCount &) : Count(0) {}
  ReferenceCount &operator=(const ReferenceCount &) { return *this; }
  virtual ~ReferenceCount() = default;

  void ref() const { ++Count; }
  void unref() const {
    assert(Count > 0 && "unref of an object with no references");
    if (--Count == 0)
      delete this;
  }
  std::uint32_t refCount() const { return Count; }

private:
  mutable std::uint32_t Count = 0;
};

} // namespace qo

#endif // QO_REFERENCECOUNT_H
