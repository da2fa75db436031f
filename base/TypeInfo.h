//===- base/TypeInfo.h - Identity of a C++ type with its name -------------===//
//
// qo::TypeInfo names a C++ type at run time: it compares and hashes by the
// type's identity and offers a readable (demangled) name for messages. Call
// records, the broadcaster and the reflection database key their tables by it.
//
// Example:
//   qo::TypeInfo t = qo::TypeInfo::of<nyPLST::Array>();
//   t.name();                                  // "nyPLST::Array"
//   t == qo::TypeInfo(typeid(*item));          // dynamic type of an object
//
//===----------------------------------------------------------------------===//
#ifndef QO_TYPEINFO_H
#define QO_TYPEINFO_H

#include <cstddef>
#include <string>
#include <typeindex>
#include <typeinfo>

namespace qo {

class TypeInfo {
public:
  TypeInfo(const std::type_info &Info) noexcept : Index(Info) {}
  template <class T> static TypeInfo of() noexcept {
    return TypeInfo(typeid(T));
  }

  // The demangled name, such as "nyPLST::Array".
  std::string name() const;
  const char *mangledName() const noexcept { return Index.name(); }
  std::size_t hash() const noexcept { return Index.hash_code(); }

  friend bool operator==(const TypeInfo &A, const TypeInfo &B) noexcept {
    return A.Index == B.Index;
  }
  friend bool operator<(const TypeInfo &A, const TypeInfo &B) noexcept {
    return A.Index < B.Index;
  }

private:
  std::type_index Index;
};

} // namespace qo

template <> struct std::hash<qo::TypeInfo> {
  std::size_t operator()(const qo::TypeInfo &T) const noexcept {
    return T.hash();
  }
};

#endif // QO_TYPEINFO_H
