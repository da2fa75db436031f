//===- tests/transaction/ManagerTest.cpp - Transactions, undo and redo ----===//

#include "transaction/Manager.h"

#include "tests/transaction/TestObjects.h"

#include "base/os/AppOutput.h"
#include "transaction/ImmutableReference.h"
#include "transaction/ObjectSize.h"

#include <gtest/gtest.h>

#include <memory>

using namespace txntest;
using nyTXN::Manager;

namespace {

class ManagerTest : public ::testing::Test {
protected:
  void SetUp() override { Journal.clear(); }
  void TearDown() override {
    M.reset();
    EXPECT_EQ(LiveShapes, 0) << "shapes left after the manager went";
    EXPECT_EQ(LiveTexts, 0) << "texts left after the manager went";
  }

  // Every observable of the history at once.
  void expectHistory(int Undo, int Redo) {
    EXPECT_EQ(M->undoCount(), Undo);
    EXPECT_EQ(M->redoCount(), Redo);
    EXPECT_EQ(M->canUndo(), Undo > 0);
    EXPECT_EQ(M->canRedo(), Redo > 0);
  }

  std::unique_ptr<Manager> M = std::make_unique<Manager>();
};

TEST_F(ManagerTest, UndoAndRedoRestoreEveryKindOfField) {
  auto A = Shape::create(*M, "a");
  auto B = Shape::create(*M, "b");
  {
    Txn T(*M);
    A->setCount(1);
    A->setSize(1.5);
    A->setLabel("one");
  }
  {
    Txn T(*M);
    A->setCount(2);
    A->setSize(2.5);
    A->setLabel("two");
    A->setChild(B);
    A->addMember(B.get());
  }
  expectHistory(2, 0);
  ASSERT_TRUE(M->undo());
  EXPECT_EQ(A->count(), 1);
  EXPECT_EQ(A->size(), 1.5);
  EXPECT_EQ(A->label(), "one");
  EXPECT_FALSE(A->child());
  EXPECT_TRUE(A->members().empty());
  EXPECT_EQ(B->refCount(), 1u);
  expectHistory(1, 1);

  ASSERT_TRUE(M->undo());
  EXPECT_EQ(A->count(), 0);
  EXPECT_EQ(A->label(), "-");
  EXPECT_FALSE(M->undo());
  expectHistory(0, 2);

  ASSERT_TRUE(M->redo());
  ASSERT_TRUE(M->redo());
  EXPECT_FALSE(M->redo());
  EXPECT_EQ(A->count(), 2);
  EXPECT_EQ(A->size(), 2.5);
  EXPECT_EQ(A->label(), "two");
  EXPECT_EQ(A->child(), B);
  ASSERT_EQ(A->members().size(), 1u);
  EXPECT_EQ(A->members()[0], B.get());
  EXPECT_EQ(B->refCount(), 2u);
  expectHistory(2, 0);
}

TEST_F(ManagerTest, ObjectIsRecordedOncePerTransaction) {
  auto A = Shape::create(*M, "a");
  {
    Txn T(*M);
    A->setCount(1);
    A->setCount(2);
    A->setSize(3);
    EXPECT_EQ(A->txnStamp(), M->currentStamp());
  }
  EXPECT_EQ(A->Transacts, 1);
  {
    Txn T(*M);
    A->setCount(3);
  }
  EXPECT_EQ(A->Transacts, 2);
  M->undo();
  EXPECT_EQ(A->count(), 2);
  M->undo();
  EXPECT_EQ(A->count(), 0);
  EXPECT_EQ(A->size(), 0);
}

TEST_F(ManagerTest, RestoreFunctionRunsAroundTheRestore) {
  auto A = Shape::create(*M, "a");
  {
    Txn T(*M);
    A->setCount(5);
  }
  M->undo();
  EXPECT_EQ(A->Restores, 1);
  EXPECT_TRUE(A->LastRestoreWasUndo);
  EXPECT_EQ(A->CountBeforeRestore, 5);
  EXPECT_EQ(A->CountAfterRestore, 0);
  M->redo();
  EXPECT_EQ(A->Restores, 2);
  EXPECT_FALSE(A->LastRestoreWasUndo);
  EXPECT_EQ(A->CountBeforeRestore, 0);
  EXPECT_EQ(A->CountAfterRestore, 5);
}

// Restores come in reverse recording order on undo and in recording order on
// redo; modification announcements always in recording order, after all
// restores and after the existence announcements.
TEST_F(ManagerTest, AnnouncementsComeInOrder) {
  auto A = Shape::create(*M, "a");
  auto B = Shape::create(*M, "b");
  auto Root = Shape::create(*M, "root");
  Root->setChild(B);
  B.reset();
  for (auto *S : {A.get(), Root->child().get()})
    S->LogRestored = true;
  Root->LogRestored = true;
  {
    Txn T(*M);
    A->setCount(1);
    Root->setChild(Shape::create(*M, "c")); // b released, c created
  }
  EXPECT_EQ(Journal, (std::vector<std::string>{"destroyed b"}));
  Journal.clear();
  M->undo();
  EXPECT_EQ(Journal, (std::vector<std::string>{"restored b", "restored root",
                                               "restored a", "extant b",
                                               "gone c", "modified a",
                                               "modified root", "modified b"}));
  Journal.clear();
  M->redo();
  EXPECT_EQ(Journal, (std::vector<std::string>{"restored a", "restored root",
                                               "restored b", "extant c",
                                               "gone b", "modified a",
                                               "modified root", "modified c"}));
}

TEST_F(ManagerTest, EmptyTransactionLeavesNoStepAndKeepsRedo) {
  auto A = Shape::create(*M, "a");
  {
    Txn T(*M);
    A->setCount(1);
  }
  M->undo();
  { Txn T(*M); }
  expectHistory(0, 1);
  {
    Txn T(*M);
    (void)A->count();
  }
  expectHistory(0, 1);
  EXPECT_TRUE(M->redo());
  EXPECT_EQ(A->count(), 1);
}

TEST_F(ManagerTest, NestedTransactionsMakeOneStepOfTheOuterType) {
  auto A = Shape::create(*M, "a");
  M->beginTransaction(nyTXN::TxnUndoable);
  A->setCount(1);
  M->beginTransaction(nyTXN::TxnUnrecorded);
  EXPECT_EQ(M->transactionType(), nyTXN::TxnUndoable);
  EXPECT_EQ(M->transactionDepth(), 2);
  A->setSize(2);
  M->endTransaction();
  EXPECT_TRUE(M->inTransaction());
  A->setLabel("x");
  M->endTransaction();
  EXPECT_FALSE(M->inTransaction());
  EXPECT_EQ(M->transactionType(), -1);
  expectHistory(1, 0);
  M->undo();
  EXPECT_EQ(A->count(), 0);
  EXPECT_EQ(A->size(), 0);
  EXPECT_EQ(A->label(), "-");
}

TEST_F(ManagerTest, NewChangeDiscardsTheRedoBranch) {
  auto A = Shape::create(*M, "a");
  for (int I = 1; I <= 3; ++I) {
    Txn T(*M);
    A->setCount(I);
  }
  M->undo();
  M->undo();
  expectHistory(1, 2);
  {
    Txn T(*M);
    A->setCount(10);
  }
  expectHistory(2, 0);
  M->undo();
  EXPECT_EQ(A->count(), 1);
}

TEST_F(ManagerTest, UndoIsRefusedInsideATransaction) {
  auto A = Shape::create(*M, "a");
  {
    Txn T(*M);
    A->setCount(1);
  }
  Txn T(*M);
  EXPECT_FALSE(M->undo());
  EXPECT_FALSE(M->redo());
  EXPECT_EQ(A->count(), 1);
}

//===-- Transaction types
//--------------------------------------------------===//

TEST_F(ManagerTest, TransientStepIsDroppedWithoutUndoing) {
  auto A = Shape::create(*M, "a");
  auto B = Shape::create(*M, "b");
  {
    Txn T(*M);
    A->setCount(1);
  }
  {
    Txn T(*M, nyTXN::TxnTransient);
    A->setSize(7);
    B->setSize(7);
  }
  expectHistory(1, 0);
  EXPECT_EQ(B->size(), 7);
  M->undo();
  EXPECT_EQ(A->count(), 0);
  EXPECT_EQ(A->size(), 0) << "a is restored whole by the step that recorded it";
  EXPECT_EQ(B->size(), 0) << "the transient change joined the step before";
  M->redo();
  EXPECT_EQ(A->size(), 7);
  EXPECT_EQ(B->size(), 7);
}

// What a dropped step created and linked into objects the step before did
// not record leaves with that step's undo and comes back with its redo, so
// no object is left pointing at one that undo took out of existence.
TEST_F(ManagerTest, DroppedStepsJoinTheStepBeforeWithTheirObjects) {
  auto Root = Shape::create(*M, "root");
  auto Other = Shape::create(*M, "other");
  {
    Txn T(*M);
    Root->setChild(Shape::create(*M, "b"));
  }
  Shape *B = Root->child().get();
  for (const int Type : {nyTXN::TxnTransient, nyTXN::TxnUndecided}) {
    {
      Txn T(*M, Type);
      Other->setChild(
          Shape::create(*M, Type == nyTXN::TxnTransient ? "c" : "d"));
      Other->addMember(B);
      B->setCount(B->count() + 1);
    }
    if (Type == nyTXN::TxnUndecided) {
      ASSERT_TRUE(M->dropStep());
    }
    expectHistory(1, 0);
  }
  EXPECT_EQ(LiveShapes, 4) << "c, made and let go since the step, is gone";
  ASSERT_TRUE(M->undo());
  EXPECT_FALSE(Root->child());
  EXPECT_FALSE(B->isTxnExtant());
  EXPECT_FALSE(Other->child());
  EXPECT_TRUE(Other->members().empty());
  ASSERT_TRUE(M->redo());
  ASSERT_EQ(Root->child().get(), B);
  EXPECT_TRUE(B->isTxnExtant());
  EXPECT_EQ(B->count(), 2);
  ASSERT_TRUE(Other->child());
  EXPECT_EQ(Other->child()->name(), "d");
  EXPECT_TRUE(Other->child()->isTxnExtant());
  EXPECT_EQ(Other->members(), (std::vector<Shape *>{B, B}));
}

// The step before a transient one may still need what the transient step
// released: undoing it brings the object back with its state from before
// that step. What that step itself created and the transient step released
// is freed at once.
TEST_F(ManagerTest, TransientReleaseStaysRevivableByThePreviousStep) {
  auto Root = Shape::create(*M, "root");
  {
    Txn T(*M);
    auto B = Shape::create(*M, "b");
    B->setCount(4);
    Root->setChild(B);
  }
  {
    Txn T(*M);
    Root->setCount(1);
    Root->child()->setCount(5);
    Root->child()->setChild(Shape::create(*M, "d"));
  }
  {
    Txn T(*M, nyTXN::TxnTransient);
    Root->setChild(nullptr);
  }
  EXPECT_EQ(Journal, (std::vector<std::string>{"destroyed b", "destroyed d"}));
  EXPECT_EQ(LiveShapes, 2) << "d is gone, b is kept for undo";
  expectHistory(2, 0);
  M->undo();
  EXPECT_EQ(Root->count(), 0);
  ASSERT_TRUE(Root->child());
  EXPECT_EQ(Root->child()->name(), "b");
  EXPECT_TRUE(Root->child()->isTxnExtant());
  EXPECT_EQ(Root->child()->count(), 4);
  EXPECT_FALSE(Root->child()->child());
  M->redo();
  EXPECT_EQ(Root->count(), 1);
  EXPECT_FALSE(Root->child());
}

TEST_F(ManagerTest, UnrecordedTransactionRecordsAndKeepsNothing) {
  auto Root = Shape::create(*M, "root");
  auto A = Shape::create(*M, "a");
  {
    Txn T(*M);
    Root->setChild(Shape::create(*M, "b"));
  }
  {
    Txn T(*M, nyTXN::TxnUnrecorded);
    A->setCount(3);
    Shape::create(*M, "temp");
  }
  expectHistory(1, 0);
  EXPECT_EQ(LiveShapes, 3) << "temp is deleted at once";
  M->undo();
  EXPECT_EQ(A->count(), 3);
  EXPECT_FALSE(Root->child());
}

TEST_F(ManagerTest, ReadOnlyTransactionReportsAndLetsTheChangeThrough) {
  auto A = Shape::create(*M, "a");
  auto B = Shape::create(*M, "b");
  nyTXN::undoChannel().enable();
  qoOS::AppOutput::Capture Out;
  {
    Txn T(*M, nyTXN::TxnReadOnly);
    A->setCount(1);
    A->setCount(2);
    B->setCount(3);
  }
  nyTXN::undoChannel().disable();
  EXPECT_EQ(A->count(), 2);
  expectHistory(0, 0);
  EXPECT_EQ(Out.text(),
            "nyTXN: change in a read-only transaction is not recorded "
            "(txntest::Shape)\n"
            "nyTXN: change in a read-only transaction is not recorded "
            "(txntest::Shape)\n");
}

TEST_F(ManagerTest, UndecidedStepWaitsForKeepOrDrop) {
  auto A = Shape::create(*M, "a");
  {
    Txn T(*M, nyTXN::TxnUndecided);
    A->setCount(1);
  }
  EXPECT_TRUE(M->hasPendingStep());
  EXPECT_TRUE(M->keepStep());
  EXPECT_FALSE(M->hasPendingStep());
  EXPECT_FALSE(M->keepStep());
  {
    Txn T(*M, nyTXN::TxnUndecided);
    A->setCount(2);
  }
  expectHistory(2, 0);
  EXPECT_TRUE(M->dropStep());
  EXPECT_FALSE(M->dropStep());
  expectHistory(1, 0);
  EXPECT_EQ(A->count(), 2);
  M->undo();
  EXPECT_EQ(A->count(), 0);
  // Anything that touches the history keeps a pending step.
  {
    Txn T(*M, nyTXN::TxnUndecided);
    A->setCount(3);
  }
  M->undo();
  EXPECT_FALSE(M->hasPendingStep());
  expectHistory(0, 1);
}

//===-- Stretches outside transactions
//-------------------------------------===//

TEST_F(ManagerTest, ChangesOutsideTransactionsAreReportedOncePerStretch) {
  auto A = Shape::create(*M, "a");
  auto B = Shape::create(*M, "b");
  {
    Txn T(*M);
    A->setCount(1);
    B->setCount(1);
  }
  nyTXN::undoChannel().enable();
  qoOS::AppOutput::Capture Out;
  A->setCount(2);
  B->setCount(2);
  A->setCount(3);
  const std::string Line =
      "nyTXN: change outside a transaction is not recorded (txntest::Shape)\n";
  EXPECT_EQ(Out.text(), Line);
  {
    Txn T(*M);
    A->setCount(4);
  }
  B->setCount(5);
  EXPECT_EQ(Out.text(), Line + Line);
  nyTXN::undoChannel().disable();
  expectHistory(2, 0);
}

//===-- History limits, size, clean mark, signal
//---------------------------===//

TEST_F(ManagerTest, UndoLimitKeepsOnlyTheLastSteps) {
  auto A = Shape::create(*M, "a");
  M->setUndoLimit(3);
  for (int I = 1; I <= 5; ++I) {
    Txn T(*M);
    A->setCount(I);
  }
  expectHistory(3, 0);
  while (M->undo()) {
  }
  EXPECT_EQ(A->count(), 2);
  M->redo();
  M->redo();
  M->redo();
  EXPECT_EQ(A->count(), 5);
  M->setUndoLimit(1);
  expectHistory(1, 0);
  M->undo();
  EXPECT_EQ(A->count(), 4);
}

TEST_F(ManagerTest, HistoryIsChargedForWhatItKeepsAlone) {
  auto A = Shape::create(*M, "a");
  EXPECT_EQ(M->historySize(), 0u);
  {
    Txn T(*M);
    A->setLabel("one");
  }
  const std::size_t OneStep = M->historySize();
  EXPECT_GT(OneStep, 0u);
  {
    Txn T(*M);
    A->setLabel("two"); // the holder of "one" is now kept by the history
  }
  nyTXN::ObjectSize Holder;
  TextHolder(*M, qo::make<const Text>("x")).onTxnGetSize(Holder);
  nyTXN::ObjectSize Default;
  A->RefCountedObject::onTxnGetSize(Default);
  EXPECT_EQ(Holder.total(), 72 + Default.total());
  EXPECT_EQ(Holder.references(), 1u);
  EXPECT_GE(M->historySize(), 2 * OneStep + Holder.total());
  M->clearHistory();
  EXPECT_EQ(M->historySize(), 0u);
}

TEST_F(ManagerTest, CleanMarkFollowsThePosition) {
  auto A = Shape::create(*M, "a");
  EXPECT_TRUE(M->isClean());
  {
    Txn T(*M);
    A->setCount(1);
  }
  EXPECT_FALSE(M->isClean());
  M->setClean();
  EXPECT_TRUE(M->isClean());
  M->undo();
  EXPECT_FALSE(M->isClean());
  M->redo();
  EXPECT_TRUE(M->isClean());
  {
    Txn T(*M, nyTXN::TxnUnrecorded);
    A->setCount(9);
  }
  EXPECT_TRUE(M->isClean()) << "unrecorded changes do not move the position";
}

TEST_F(ManagerTest, CleanMarkIsLostWithItsStep) {
  auto A = Shape::create(*M, "a");
  {
    Txn T(*M);
    A->setCount(1);
  }
  M->setClean();
  M->undo();
  {
    Txn T(*M);
    A->setCount(2); // discards the clean step
  }
  M->undo();
  EXPECT_FALSE(M->isClean());
  M->redo();
  EXPECT_FALSE(M->isClean());

  // A mark before the oldest step goes when that step is trimmed; a mark
  // after it stays reachable.
  M->clearHistory();
  M->setUndoLimit(2);
  M->setClean();
  for (int I = 0; I < 2; ++I) {
    Txn T(*M);
    A->setCount(10 + I);
  }
  M->undo();
  M->undo();
  EXPECT_TRUE(M->isClean());
  M->redo();
  M->setClean();
  M->redo();
  {
    Txn T(*M);
    A->setCount(20); // trims the first step; the mark after it survives
  }
  M->undo();
  M->undo();
  EXPECT_TRUE(M->isClean());
}

TEST_F(ManagerTest, HistorySignalFiresWhenAvailabilityOrPositionChanges) {
  auto A = Shape::create(*M, "a");
  int Fired = 0;
  auto C = M->getSigHistoryChanged().addCallback([&] {
    ++Fired;
    EXPECT_FALSE(M->inTransaction());
  });
  {
    Txn T(*M);
    A->setCount(1);
    EXPECT_EQ(Fired, 0) << "not before the transaction ends";
  }
  EXPECT_EQ(Fired, 1);
  { Txn T(*M); }
  {
    Txn T(*M, nyTXN::TxnUnrecorded);
    A->setCount(2);
  }
  {
    Txn T(*M, nyTXN::TxnTransient);
    A->setCount(3);
  }
  EXPECT_EQ(Fired, 1);
  M->undo();
  M->redo();
  EXPECT_EQ(Fired, 3);
  EXPECT_FALSE(M->redo());
  EXPECT_EQ(Fired, 3);
  M->setUndoLimit(5);
  EXPECT_EQ(Fired, 3);
  M->clearHistory();
  EXPECT_EQ(Fired, 4);
}

} // namespace
