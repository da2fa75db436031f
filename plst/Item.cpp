//===- plst/Item.cpp - Property-list items --------------------------------===//
//
// Containers own their children through strong references. Copy, comparison
// and release of nested containers run over explicit work lists instead of
// the call stack: a tree read from outside may be a million levels deep, and
// a recursive walk would overflow the stack long before that. Only the plain
// Array and Dictionary classes are walked this way; any other item (scalars,
// classes derived from a kind) goes through its own virtual onClone or
// onCongruent, as the interface promises.
//
//===----------------------------------------------------------------------===//
#include "plst/Item.h"

#include <type_traits>
#include <typeinfo>
#include <utility>

namespace nyPLST {

namespace {

// The type tag is checked first: it rules out most items without a run-time
// type lookup, which would otherwise dominate releasing a large tree.
bool isPlainArray(const Item &I) {
  return I.type() == ArrayType && typeid(I) == typeid(Array);
}
bool isPlainDictionary(const Item &I) {
  return I.type() == DictionaryType && typeid(I) == typeid(Dictionary);
}

// The item as an Array (or a class derived from it), else null. Every Array
// carries ArrayType, so other tags need no lookup.
template <class ItemT> auto *asArrayPtr(ItemT &I) {
  using Result = std::conditional_t<std::is_const_v<ItemT>, const Array, Array>;
  if (I.type() != ArrayType)
    return static_cast<Result *>(nullptr);
  if (typeid(I) == typeid(Array))
    return static_cast<Result *>(&I);
  return dynamic_cast<Result *>(&I);
}
template <class ItemT> auto *asDictionaryPtr(ItemT &I) {
  using Result =
      std::conditional_t<std::is_const_v<ItemT>, const Dictionary, Dictionary>;
  if (I.type() != DictionaryType)
    return static_cast<Result *>(nullptr);
  if (typeid(I) == typeid(Dictionary))
    return static_cast<Result *>(&I);
  return dynamic_cast<Result *>(&I);
}

// Releasing the last reference to a container runs its destructor, which
// releases its children: a chain would recurse once per level. So a reference
// that would destroy a container is not released in place but handed to a
// work list; every other reference (scalars, shared containers) is released
// at once, which recurses nowhere.
void releaseOrDefer(qo::Reference<Item> &Ref,
                    qo::vector<qo::Reference<Item>> &Pending) {
  if (Ref && Ref->refCount() == 1 &&
      (Ref->type() == ArrayType || Ref->type() == DictionaryType))
    Pending.push_back(std::move(Ref));
  else
    Ref.reset();
}

// Empties each deferred container before dropping it, so its destructor finds
// nothing to release and no destructor ever recurses.
void releaseAll(qo::vector<qo::Reference<Item>> &Pending) {
  while (!Pending.empty()) {
    const qo::Reference<Item> Last = std::move(Pending.back());
    Pending.pop_back();
    if (Last->refCount() != 1)
      continue;
    if (auto *A = asArrayPtr(*Last)) {
      for (auto &Child : A->array())
        releaseOrDefer(Child, Pending);
      A->array().clear();
    } else if (auto *D = asDictionaryPtr(*Last)) {
      for (auto &Entry : D->dictionary())
        releaseOrDefer(Entry.second, Pending);
      D->dictionary().clear();
    }
  }
}

struct ClonePair {
  const Item *Source;
  Item *Copy;
};

// A fresh empty container for a plain Array or Dictionary source, or null when
// the source clones itself.
qo::Reference<Item> emptyCopyOf(const Item &Source) {
  if (isPlainArray(Source))
    return qo::Reference<Item>(new Array);
  if (isPlainDictionary(Source))
    return qo::Reference<Item>(new Dictionary(
        static_cast<const Dictionary &>(Source).dictionary().size()));
  return nullptr;
}

qo::Reference<Item> copyChild(const Item &Child, qo::vector<ClonePair> &Work) {
  qo::Reference<Item> Copy = emptyCopyOf(Child);
  if (!Copy)
    return Child.clone();
  Work.push_back({&Child, Copy.get()});
  return Copy;
}

qo::Reference<Item> cloneTree(const Item &Root) {
  qo::Reference<Item> Result = emptyCopyOf(Root);
  qo::vector<ClonePair> Work{{&Root, Result.get()}};
  while (!Work.empty()) {
    const ClonePair Pair = Work.back();
    Work.pop_back();
    if (Pair.Source->type() == ArrayType) {
      const auto &From = static_cast<const Array &>(*Pair.Source).array();
      auto &To = static_cast<Array &>(*Pair.Copy).array();
      To.reserve(From.size());
      for (const auto &Child : From)
        To.push_back(copyChild(*Child, Work));
      continue;
    }
    auto &To = static_cast<Dictionary &>(*Pair.Copy).dictionary();
    for (const auto &[Key, Child] :
         static_cast<const Dictionary &>(*Pair.Source).dictionary())
      To.emplace_hint(To.end(), Key, copyChild(*Child, Work));
  }
  return Result;
}

struct ComparePair {
  const Item *Left;
  const Item *Right;
};

// One level of the array rule; pairs to compare further go to Work. Returns
// false when this level already decides "not congruent".
bool compareArrays(const Array &Left, const Item &Right,
                   qo::vector<ComparePair> &Work) {
  const auto *Other = asArrayPtr(Right);
  if (!Other || Left.size() != Other->size())
    return true;
  for (int I = 0; I < Left.size(); ++I)
    Work.push_back({Left.array()[I].get(), Other->array()[I].get()});
  return true;
}

bool compareDictionaries(const Dictionary &Left, const Item &Right,
                         qo::vector<ComparePair> &Work) {
  const auto *Other = asDictionaryPtr(Right);
  if (!Other || Left.size() != Other->size())
    return false;
  auto R = Other->dictionary().begin();
  for (const auto &[Key, Value] : Left.dictionary()) {
    if (Key.compare(R->first) != 0)
      return false;
    Work.push_back({Value.get(), R->second.get()});
    ++R;
  }
  return true;
}

bool congruentTree(const Item &Left, const Item &Right) {
  qo::vector<ComparePair> Work{{&Left, &Right}};
  while (!Work.empty()) {
    const ComparePair Pair = Work.back();
    Work.pop_back();
    bool Same;
    if (isPlainArray(*Pair.Left))
      Same = compareArrays(static_cast<const Array &>(*Pair.Left), *Pair.Right,
                           Work);
    else if (isPlainDictionary(*Pair.Left))
      Same = compareDictionaries(static_cast<const Dictionary &>(*Pair.Left),
                                 *Pair.Right, Work);
    else
      Same = Pair.Left->congruent(*Pair.Right);
    if (!Same)
      return false;
  }
  return true;
}

} // namespace

bool Item::onCongruent(const Item &Other) const {
  return typeid(*this) == typeid(Other);
}

qo::Reference<Item> Bool::onClone() const { return qo::make<Bool>(Value); }
qo::Reference<Item> Double::onClone() const { return qo::make<Double>(Value); }
qo::Reference<Item> String::onClone() const { return qo::make<String>(Value); }

Array::~Array() { clear(); }

void Array::clear() {
  qo::vector<qo::Reference<Item>> Pending;
  for (auto &Element : Elements)
    releaseOrDefer(Element, Pending);
  Elements.clear();
  releaseAll(Pending);
}

qo::Reference<Item> Array::onClone() const {
  if (isPlainArray(*this))
    return cloneTree(*this);
  auto Copy = qo::make<Array>();
  for (const auto &Child : Elements)
    Copy->insert(Child->clone());
  return Copy;
}

bool Array::onCongruent(const Item &Other) const {
  if (isPlainArray(*this))
    return congruentTree(*this, Other);
  qo::vector<ComparePair> Work;
  compareArrays(*this, Other, Work);
  for (const auto &Pair : Work)
    if (!Pair.Left->congruent(*Pair.Right))
      return false;
  return true;
}

Dictionary::~Dictionary() { clear(); }

void Dictionary::insert(const qoString::CString &Key,
                        qo::Reference<Item> Value) {
  Entries.insert_or_assign(Key, std::move(Value));
}

void Dictionary::insert(qoString::CString &&Key, qo::Reference<Item> Value) {
  Entries.insert_or_assign(std::move(Key), std::move(Value));
}

qo::Reference<Item> Dictionary::find(const qoString::CString &Key) const {
  const auto Found = Entries.find(Key);
  return Found == Entries.end() ? nullptr : Found->second;
}

void Dictionary::clear() {
  qo::vector<qo::Reference<Item>> Pending;
  for (auto &Entry : Entries)
    releaseOrDefer(Entry.second, Pending);
  Entries.clear();
  releaseAll(Pending);
}

qo::Reference<Item> Dictionary::onClone() const {
  if (isPlainDictionary(*this))
    return cloneTree(*this);
  auto Copy = qo::make<Dictionary>(Entries.size());
  for (const auto &[Key, Value] : Entries)
    Copy->insert(Key, Value->clone());
  return Copy;
}

bool Dictionary::onCongruent(const Item &Other) const {
  if (isPlainDictionary(*this))
    return congruentTree(*this, Other);
  qo::vector<ComparePair> Work;
  if (!compareDictionaries(*this, Other, Work))
    return false;
  for (const auto &Pair : Work)
    if (!Pair.Left->congruent(*Pair.Right))
      return false;
  return true;
}

} // namespace nyPLST
