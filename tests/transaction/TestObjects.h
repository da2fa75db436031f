//===- tests/transaction/TestObjects.h - Recorded objects for the tests ---===//
//
// Shape is a small recorded object with one field of each kind the
// framework must carry: an int, a double, an immutable value held through
// ImmutableReference, a counted reference to another shape and a list of
// plain pointers. It logs every framework announcement to a shared journal
// (the recording observer) and counts live instances, so that the tests can
// check order and lifetime. Text is the immutable value type.
//
//===----------------------------------------------------------------------===//
#ifndef ORBO_TESTS_TRANSACTION_TESTOBJECTS_H
#define ORBO_TESTS_TRANSACTION_TESTOBJECTS_H

#include "base/Reference.h"
#include "base/ReferenceCount.h"
#include "transaction/ImmutableReference.h"
#include "transaction/Manager.h"
#include "transaction/Object.h"
#include "transaction/Serializer.h"

#include <string>
#include <utility>
#include <vector>

namespace txntest {

inline int LiveShapes = 0;
inline int LiveTexts = 0;
inline std::vector<std::string> Journal;

class Text : public qo::ReferenceCount {
public:
  explicit Text(std::string S) : S(std::move(S)) { ++LiveTexts; }
  ~Text() override { --LiveTexts; }
  const std::string &str() const { return S; }

private:
  std::string S;
};

using TextHolder = nyTXN::ImmutableReference<const Text>;

class Shape : public nyTXN::RefCountedObject {
public:
  Shape(nyTXN::Manager &M, std::string Name)
      : RefCountedObject(M), Name(std::move(Name)) {
    ++LiveShapes;
  }
  ~Shape() override { --LiveShapes; }

  static qo::Reference<Shape> create(nyTXN::Manager &M, std::string Name) {
    return qo::Reference<Shape>(new Shape(M, std::move(Name)));
  }

  const std::string &name() const { return Name; }
  int count() const { return Count; }
  double size() const { return Size; }
  std::string label() const {
    return Label && Label->get() ? Label->get()->str() : std::string("-");
  }
  const qo::Reference<Shape> &child() const { return Child; }
  const std::vector<Shape *> &members() const { return Members; }

  void setCount(int V) {
    recordChange();
    Count = V;
  }
  void setSize(double V) {
    recordChange();
    Size = V;
  }
  void setLabel(const std::string &V) {
    recordChange();
    Label = TextHolder::create(txnManager(), qo::make<const Text>(V));
  }
  void setChild(qo::Reference<Shape> C) {
    recordChange();
    Child = std::move(C);
  }
  void addMember(Shape *S) {
    recordChange();
    Members.push_back(S);
  }
  void removeMember(Shape *S) {
    recordChange();
    std::erase(Members, S);
  }

  // Counters for the tests that look at the mechanics.
  int Transacts = 0;
  int Restores = 0;
  bool LogRestored = false;
  // Taken by the restore function just before and after the restore.
  int CountBeforeRestore = 0;
  int CountAfterRestore = 0;
  bool LastRestoreWasUndo = false;

  void onTransact(nyTXN::Serializer &S) override {
    ++Transacts;
    S.beginObject(this, &Shape::txnRestore);
    RefCountedObject::onTransact(S);
    S.field(Count);
    S.field(Size);
    S.field(Label);
    S.field(Child);
    S.field(Members);
    S.endObject();
  }
  void onTxnRestored() override {
    if (LogRestored)
      Journal.push_back("restored " + Name);
  }
  void onTxnModified() override {
    RefCountedObject::onTxnModified();
    Journal.push_back("modified " + Name);
  }
  void onTxnDestroyed() override {
    RefCountedObject::onTxnDestroyed();
    Journal.push_back("destroyed " + Name);
  }
  void onTxnExtant() override {
    RefCountedObject::onTxnExtant();
    Journal.push_back(std::string(isTxnExtant() ? "extant " : "gone ") + Name);
  }

private:
  static void txnRestore(Shape *S, nyTXN::Restorer &R) {
    ++S->Restores;
    S->LastRestoreWasUndo = R.isUndo();
    S->CountBeforeRestore = S->Count;
    R.restore();
    S->CountAfterRestore = S->Count;
  }

  std::string Name;
  int Count = 0;
  double Size = 0;
  qo::Reference<TextHolder> Label;
  qo::Reference<Shape> Child;
  std::vector<Shape *> Members;
};

// Opens a transaction for its lifetime.
class Txn {
public:
  explicit Txn(nyTXN::Manager &M, int Type = nyTXN::TxnUndoable) : M(M) {
    M.beginTransaction(Type);
  }
  ~Txn() { M.endTransaction(); }
  Txn(const Txn &) = delete;
  Txn &operator=(const Txn &) = delete;

private:
  nyTXN::Manager &M;
};

} // namespace txntest

#endif // ORBO_TESTS_TRANSACTION_TESTOBJECTS_H
