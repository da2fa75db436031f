//===- base/Reference.h - Intrusive smart pointer -------------------------===//
//
// qo::Reference<T> holds one reference to an object that counts its own
// references through ref()/unref(). Any class with those two members works,
// including classes that implement them virtually in their own way.
// Reference<const T> is a read-only view of the same object and converts
// implicitly from Reference<T>; nothing is copied. References compare by
// identity.
//
// Example:
//   qo::Reference<nyPLST::Array> array(new nyPLST::Array);
//   qo::Reference<const nyPLST::Item> view = array;
//   auto again = qo::dynamicCast<const nyPLST::Array>(view); // same object
//
//===----------------------------------------------------------------------===//
#ifndef QO_REFERENCE_H
#define QO_REFERENCE_H

#include <cstddef>
#include <functional>
#include <type_traits>
#include <utility>

namespace qo {

template <class T> class Reference {
public:
  using element_type = T;

  Reference() noexcept = default;
  Reference(std::nullptr_t) noexcept {}
  // Takes a new reference to Ptr (which may already be held elsewhere).
  Reference(T *Ptr) noexcept : Ptr(Ptr) { retain(); }
  Reference(const Reference &Other) noexcept : Ptr(Other.Ptr) { retain(); }
  Reference(Reference &&Other) noexcept
      : Ptr(std::exchange(Other.Ptr, nullptr)) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *>>>
  Reference(const Reference<U> &Other) noexcept : Ptr(Other.get()) {
    retain();
  }
  template <class U, class = std::enable_if_t<std::is_convertible_v<U *, T *>>>
  Reference(Reference<U> &&Other) noexcept : Ptr(Other.release()) {}
  ~Reference() { reset(); }

  Reference &operator=(Reference Other) noexcept {
    std::swap(Ptr, Other.Ptr);
    return *this;
  }

  T *get() const noexcept { return Ptr; }
  T *operator->() const noexcept { return Ptr; }
  T &operator*() const noexcept { return *Ptr; }
  explicit operator bool() const noexcept { return Ptr != nullptr; }

  void reset() noexcept {
    if (T *Old = std::exchange(Ptr, nullptr))
      Old->unref();
  }
  // Gives up ownership without releasing: the caller owns one reference.
  T *release() noexcept { return std::exchange(Ptr, nullptr); }

  friend bool operator==(const Reference &A, const Reference &B) noexcept {
    return A.Ptr == B.Ptr;
  }
  friend bool operator==(const Reference &A, std::nullptr_t) noexcept {
    return A.Ptr == nullptr;
  }
  // Without this, a raw pointer would be converted to a temporary Reference
  // whose release deletes an object that nothing held yet.
  friend bool operator==(const Reference &A, const T *B) noexcept {
    return A.Ptr == B;
  }
  friend auto operator<=>(const Reference &A, const Reference &B) noexcept {
    return std::compare_three_way()(A.Ptr, B.Ptr);
  }

private:
  void retain() const noexcept {
    if (Ptr)
      Ptr->ref();
  }

  T *Ptr = nullptr;
};

template <class T, class... Args> Reference<T> make(Args &&...A) {
  return Reference<T>(new T(std::forward<Args>(A)...));
}

// Dynamic class test: null when From is null or not a T.
template <class T, class U> Reference<T> dynamicCast(const Reference<U> &From) {
  return Reference<T>(dynamic_cast<T *>(From.get()));
}

template <class T, class U> Reference<T> staticCast(const Reference<U> &From) {
  return Reference<T>(static_cast<T *>(From.get()));
}

template <class T, class U> Reference<T> constCast(const Reference<U> &From) {
  return Reference<T>(const_cast<T *>(From.get()));
}

} // namespace qo

template <class T> struct std::hash<qo::Reference<T>> {
  std::size_t operator()(const qo::Reference<T> &R) const noexcept {
    return std::hash<T *>()(R.get());
  }
};

#endif // QO_REFERENCE_H
