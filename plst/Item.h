//===- plst/Item.h - Property-list items: the layer's value model ---------===//
//
// An item is one of five kinds: Bool, Double, String, Array (items in order)
// and Dictionary (string keys to items, always in byte-wise key order). Items
// are reference counted and held through qo::Reference; a Reference<const
// Item> is a read-only view of an object that others may hold mutably. Items
// are plain values: set() and the container mutators change them in place for
// every holder.
//
// clone() is a deep copy. congruent() compares shape, not values, and the left
// operand decides: an array is congruent to anything that is not an array of
// the same non-zero size with an incongruent pair, while a dictionary demands
// a dictionary with the same keys and congruent values. Copy, comparison and
// release walk containers without recursion, so trees of any depth are safe.
//
// Example:
//   auto dict = qo::make<nyPLST::Dictionary>();
//   dict->insert("b", qo::make<nyPLST::Double>(2));
//   dict->insert("a", qo::make<nyPLST::Bool>(true));   // iterates a, b
//   if (auto b = nyPLST::asDouble(dict->find("b")))
//     use(b->value());
//
//===----------------------------------------------------------------------===//
#ifndef NYPLST_ITEM_H
#define NYPLST_ITEM_H

#include "base/Containers.h"
#include "base/Reference.h"
#include "base/ReferenceCount.h"
#include "base/string/CString.h"
#include "plst/internal/NodeBlockAllocator.h"

#include <cstdint>
#include <type_traits>
#include <utility>

namespace nyPLST {

// The kind of an item. The values are fixed: writers dispatch on them.
enum Type : std::uint32_t {
  BoolType = 0,
  DoubleType = 1,
  StringType = 2,
  ArrayType = 3,
  DictionaryType = 4,
};

class Item : public qo::ReferenceCount {
public:
  explicit Item(Type T) : Kind(T) {}
  ~Item() override = default;

  Type type() const { return Kind; }

  qo::Reference<Item> clone() const { return onClone(); }
  bool congruent(const Item &Other) const { return onCongruent(Other); }

protected:
  Item(const Item &) = default;

  virtual qo::Reference<Item> onClone() const = 0;
  // The base rule: same dynamic class.
  virtual bool onCongruent(const Item &Other) const;

private:
  const Type Kind;
};

class Bool : public Item {
public:
  Bool() : Bool(false) {}
  explicit Bool(bool V) : Item(BoolType), Value(V) {}
  bool value() const { return Value; }
  void set(bool V) { Value = V; }

protected:
  qo::Reference<Item> onClone() const override;

private:
  bool Value;
};

class Double : public Item {
public:
  Double() : Double(0.0) {}
  explicit Double(double V) : Item(DoubleType), Value(V) {}
  double value() const { return Value; }
  void set(double V) { Value = V; }

protected:
  qo::Reference<Item> onClone() const override;

private:
  double Value;
};

class String : public Item {
public:
  explicit String(const qoString::CString &V) : Item(StringType), Value(V) {}
  explicit String(qoString::CString &&V)
      : Item(StringType), Value(std::move(V)) {}
  const qoString::CString &value() const { return Value; }
  void set(const qoString::CString &V) { Value = V; }

protected:
  qo::Reference<Item> onClone() const override;

private:
  qoString::CString Value;
};

class Array : public Item {
public:
  using Vector = qo::vector<qo::Reference<Item>>;

  Array() : Item(ArrayType) {}
  ~Array() override;

  bool empty() const { return Elements.empty(); }
  int size() const { return static_cast<int>(Elements.size()); }
  int capacity() const { return static_cast<int>(Elements.capacity()); }

  void insert(qo::Reference<Item> Element) {
    Elements.push_back(std::move(Element));
  }
  void clear();

  // No bounds check: Index must be in [0, size()).
  qo::Reference<Item> objectAt(int Index) const { return Elements[Index]; }
  qo::Reference<Item> operator[](int Index) const { return Elements[Index]; }
  qo::Reference<Item> &operator[](int Index) { return Elements[Index]; }

  Vector &array() { return Elements; }
  const Vector &array() const { return Elements; }

protected:
  qo::Reference<Item> onClone() const override;
  bool onCongruent(const Item &Other) const override;

private:
  Vector Elements;
};

class Dictionary : public Item {
public:
  // Nodes come in blocks (see internal/NodeBlockAllocator.h): a small
  // dictionary costs one allocation for all its entries.
  using Map =
      qo::rbtree<qoString::CString, qo::Reference<Item>,
                 qo::less<qoString::CString>,
                 internal::NodeBlockAllocator<
                     std::pair<const qoString::CString, qo::Reference<Item>>>>;

  Dictionary() : Item(DictionaryType) {}
  // For a dictionary about to receive ExpectedEntries entries: their nodes
  // come in one block.
  explicit Dictionary(std::size_t ExpectedEntries)
      : Item(DictionaryType), Entries(Map::allocator_type(ExpectedEntries)) {}
  ~Dictionary() override;

  bool empty() const { return Entries.empty(); }
  int size() const { return static_cast<int>(Entries.size()); }

  // Stores Value under Key, replacing (and releasing) what was there.
  void insert(const qoString::CString &Key, qo::Reference<Item> Value);
  void insert(qoString::CString &&Key, qo::Reference<Item> Value);
  // Null when Key is absent; never creates an entry.
  qo::Reference<Item> find(const qoString::CString &Key) const;
  qo::Reference<Item> get(const qoString::CString &Key) const {
    return find(Key);
  }
  void clear();

  Map &dictionary() { return Entries; }
  const Map &dictionary() const { return Entries; }

protected:
  qo::Reference<Item> onClone() const override;
  bool onCongruent(const Item &Other) const override;

private:
  Map Entries;
};

// Checked down-casts: the same object when the item is of that kind (or of a
// class derived from it), null when it is null or of another kind. Never
// copies. A const view casts to a const view.
namespace internal {
template <class To, class From>
using CastResult =
    qo::Reference<std::conditional_t<std::is_const_v<From>, const To, To>>;
template <class To, class From>
CastResult<To, From> downCast(const qo::Reference<From> &I) {
  static_assert(std::is_base_of_v<Item, std::remove_const_t<From>>);
  return CastResult<To, From>(
      dynamic_cast<typename CastResult<To, From>::element_type *>(I.get()));
}
} // namespace internal

template <class T> auto asBool(const qo::Reference<T> &I) {
  return internal::downCast<Bool>(I);
}
template <class T> auto asDouble(const qo::Reference<T> &I) {
  return internal::downCast<Double>(I);
}
template <class T> auto asString(const qo::Reference<T> &I) {
  return internal::downCast<String>(I);
}
template <class T> auto asArray(const qo::Reference<T> &I) {
  return internal::downCast<Array>(I);
}
template <class T> auto asDictionary(const qo::Reference<T> &I) {
  return internal::downCast<Dictionary>(I);
}

} // namespace nyPLST

#endif // NYPLST_ITEM_H
