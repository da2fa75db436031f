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

#include <typeinfo>
#include <utility>

namespace nyPLST {

namespace {

bool isPlainArray(const Item &I) { return typeid(I) == typeid(Array); }
bool isPlainDictionary(const Item &I) {
  return typeid(I) == typeid(Dictionary);
}

// Drops references one at a time; a container whose last reference is being
// dropped hands its children to the list first, so its destructor finds
// nothing to release and no destructor ever recurses.
void releaseAll(qo::vector<qo::Reference<Item>> &Pending) {
  while (!Pending.empty()) {
    qo::Reference<Item> Last = std::move(Pending.back());
    Pending.pop_back();
    if (!Last || Last->refCount() != 1)
      continue;
    if (auto *A = dynamic_cast<Array *>(Last.get())) {
      for (auto &Child : A->array())
        Pending.push_back(std::move(Child));
      A->array().clear();
    } else if (auto *D = dynamic_cast<Dictionary *>(Last.get())) {
      for (auto &Entry : D->dictionary())
        Pending.push_back(std::move(Entry.second));
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
    return qo::Reference<Item>(new Dictionary);
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
  const auto *Other = dynamic_cast<const Array *>(&Right);
  if (!Other || Left.size() != Other->size())
    return true;
  for (int I = 0; I < Left.size(); ++I)
    Work.push_back({Left.array()[I].get(), Other->array()[I].get()});
  return true;
}

bool compareDictionaries(const Dictionary &Left, const Item &Right,
                         qo::vector<ComparePair> &Work) {
  const auto *Other = dynamic_cast<const Dictionary *>(&Right);
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
  if (Elements.empty())
    return;
  qo::vector<qo::Reference<Item>> Pending(
      std::make_move_iterator(Elements.begin()),
      std::make_move_iterator(Elements.end()));
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
  if (Entries.empty())
    return;
  qo::vector<qo::Reference<Item>> Pending;
  Pending.reserve(Entries.size());
  for (auto &Entry : Entries)
    Pending.push_back(std::move(Entry.second));
  Entries.clear();
  releaseAll(Pending);
}

qo::Reference<Item> Dictionary::onClone() const {
  if (isPlainDictionary(*this))
    return cloneTree(*this);
  auto Copy = qo::make<Dictionary>();
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
