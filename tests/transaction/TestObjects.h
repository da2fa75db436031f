//===- tests/transaction/TestObjects.h - Recorded objects for the tests ---===//
//
// Shape is a small recorded object with one field of each kind the
// framework must carry: an int, an immutable value held through
// ImmutableReference, a counted reference to another shape and a list of
// plain pointers. It logs every framework announcement to a shared journal
// (the recording observer) and counts live instances, so that the tests can
// check order and lifetime. Text is the immutable value type. TxnTest is
// the fixture: it owns the manager and checks that nothing outlives it.
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

#include <gtest/gtest.h>

#include <memory>
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
  std::string label() const {
    return Label && Label->get() ? Label->get()->str() : std::string("-");
  }
  const qo::Reference<Shape> &child() const { return Child; }
  const std::vector<Shape *> &members() const { return Members; }

  void setCount(int V) {
    recordChange();
    Count = V;
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

  int Transacts = 0;
  int Restores = 0;
  bool LogRestored = false;
  // Written by the restore function: "undo 3->1" for the last restore.
  std::string LastRestore;

  void onTransact(nyTXN::Serializer &S) override {
    ++Transacts;
    S.beginObject(this, &Shape::txnRestore);
    RefCountedObject::onTransact(S);
    S.field(Count);
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
    const int Before = S->Count;
    R.restore();
    ++S->Restores;
    S->LastRestore = std::string(R.isUndo() ? "undo " : "redo ") +
                     std::to_string(Before) + "->" + std::to_string(S->Count);
  }

  std::string Name;
  int Count = 0;
  qo::Reference<TextHolder> Label;
  qo::Reference<Shape> Child;
  std::vector<Shape *> Members;
};

class TxnTest : public ::testing::Test {
protected:
  void SetUp() override { Journal.clear(); }
  void TearDown() override {
    Root.reset();
    M.reset();
    EXPECT_EQ(LiveShapes, 0) << "shapes left after the manager went";
    EXPECT_EQ(LiveTexts, 0) << "texts left after the manager went";
  }
  template <class F> void inTxn(F Fn) { inTxn(nyTXN::TxnUndoable, Fn); }
  template <class F> void inTxn(int Type, F Fn) {
    M->beginTransaction(Type);
    Fn();
    M->endTransaction();
  }
  void expectHistory(int Undo, int Redo) {
    EXPECT_EQ(M->undoCount(), Undo);
    EXPECT_EQ(M->redoCount(), Redo);
    EXPECT_EQ(M->canUndo(), Undo > 0);
    EXPECT_EQ(M->canRedo(), Redo > 0);
  }

  std::unique_ptr<nyTXN::Manager> M = std::make_unique<nyTXN::Manager>();
  qo::Reference<Shape> Root;
};

} // namespace txntest

#endif // ORBO_TESTS_TRANSACTION_TESTOBJECTS_H
