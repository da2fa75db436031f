//===- support/CallInfo.h - Typed records of the operation in progress ----===//
//
// nySupport::CallInfo is the call record of the operation in progress: a list
// of (type, object) records through which any code finds the shared objects
// (the Broadcaster, the transaction manager, the cache manager, the domain)
// by type. A domain creates a record when a context opens without one and
// deletes it when that context closes; the services fill it as it is created.
// nySupport::ci() returns the record of the innermost context open anywhere.
//
// Lifetime: the record does not own the objects it lists; whoever adds an
// object removes it (or lets the record go) before the object dies. Lookup
// compares exact types: a record of a derived class is not found as its base.
//
// Example:
//   nySupport::Context context(&domain, nySupport::Context::Momentary);
//   nySupport::CallInfo *info = nySupport::ci();
//   info->add(&broadcaster);
//   if (auto *b = nySupport::ci()->find<nySupport::Broadcaster>())
//     b->broadcast(msg);
//   info->remove<nySupport::Broadcaster>();
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_CALLINFO_H
#define NYSUPPORT_CALLINFO_H

#include "base/Containers.h"
#include "base/TypeInfo.h"

#include <cstddef>
#include <type_traits>

namespace nySupport {

class CallInfo {
public:
  struct Interface {
    qo::TypeInfo type;
    void *object;
  };

  // Records reserved at construction: the services of a full application fit
  // without a reallocation.
  static constexpr std::size_t ReservedInterfaces = 32;

  CallInfo();
  CallInfo(const CallInfo &) = delete;
  CallInfo &operator=(const CallInfo &) = delete;

  // Appends a record of type T; an earlier record of T keeps precedence.
  template <class T> void add(T *Object) {
    addInterface(qo::TypeInfo::of<T>(),
                 const_cast<std::remove_cv_t<T> *>(Object));
  }
  // Erases the first record of type T, if any.
  template <class T> void remove() { removeInterface(qo::TypeInfo::of<T>()); }
  // The object of the first record of exactly type T, or null.
  template <class T> T *find() const {
    return static_cast<T *>(findInterface(qo::TypeInfo::of<T>()));
  }

  void addInterface(const qo::TypeInfo &Type, void *Object);
  // False when no record of Type was there.
  bool removeInterface(const qo::TypeInfo &Type);
  void *findInterface(const qo::TypeInfo &Type) const;

  const qo::vector<Interface> &interfaces() const { return Interfaces; }

  // The record of the domain of the innermost context open anywhere in the
  // process, which may be null (see Domain::callInfoFunc).
  static CallInfo *currentCallInfo();

private:
  qo::vector<Interface> Interfaces;
};

// The current call record: CallInfo::currentCallInfo().
CallInfo *ci();

} // namespace nySupport

#endif // NYSUPPORT_CALLINFO_H
