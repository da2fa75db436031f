//===- tests/transaction/ManagerTest.cpp - Transactions, undo and redo ----===//

#include "transaction/Manager.h"

#include "tests/transaction/TestObjects.h"

#include "base/os/AppOutput.h"

#include <gtest/gtest.h>

using namespace txntest;

namespace {

using ManagerTest = TxnTest;
using Lines = std::vector<std::string>;

TEST_F(ManagerTest, UndoAndRedoRestoreEveryKindOfField) {
  auto A = Shape::create(*M, "a");
  auto B = Shape::create(*M, "b");
  inTxn([&] {
    A->setCount(1);
    A->setLabel("one");
  });
  inTxn([&] {
    A->setCount(2);
    A->setCount(3);
    A->setLabel("two");
    A->setChild(B);
    A->addMember(B.get());
  });
  EXPECT_EQ(A->Transacts, 2) << "recorded once per transaction";
  ASSERT_TRUE(M->undo());
  EXPECT_EQ(A->count(), 1);
  EXPECT_EQ(A->label(), "one");
  EXPECT_FALSE(A->child());
  EXPECT_EQ(B->refCount(), 1u);
  EXPECT_EQ(A->LastRestore, "undo 3->1");
  ASSERT_TRUE(M->undo());
  EXPECT_EQ(A->label(), "-");
  EXPECT_FALSE(M->undo());
  expectHistory(0, 2);
  while (M->redo()) {
  }
  expectHistory(2, 0);
  EXPECT_EQ(A->LastRestore, "redo 1->3");
  EXPECT_EQ(A->Restores, 4);
  EXPECT_EQ(A->count(), 3);
  EXPECT_EQ(A->label(), "two");
  EXPECT_EQ(A->child(), B);
  EXPECT_EQ(A->members(), std::vector<Shape *>{B.get()});
  EXPECT_EQ(B->refCount(), 2u);
}

// Restores come in reverse recording order on undo and in recording order on
// redo; modification announcements always in recording order, after all
// restores and after the existence announcements.
TEST_F(ManagerTest, AnnouncementsComeInOrder) {
  auto A = Shape::create(*M, "a");
  Root = Shape::create(*M, "root");
  Root->setChild(Shape::create(*M, "b"));
  for (Shape *S : {A.get(), Root.get(), Root->child().get()})
    S->LogRestored = true;
  inTxn([&] {
    A->setCount(1);
    Root->setChild(Shape::create(*M, "c")); // b released, c created
  });
  EXPECT_EQ(Journal, Lines{"destroyed b"});
  Journal.clear();
  M->undo();
  EXPECT_EQ(Journal,
            (Lines{"restored b", "restored root", "restored a", "extant b",
                   "gone c", "modified a", "modified root", "modified b"}));
  Journal.clear();
  M->redo();
  EXPECT_EQ(Journal,
            (Lines{"restored a", "restored root", "restored b", "extant c",
                   "gone b", "modified a", "modified root", "modified c"}));
}

TEST_F(ManagerTest, TransactionsWithoutChangesLeaveNoStep) {
  auto A = Shape::create(*M, "a");
  inTxn([&] { A->setCount(1); });
  M->undo();
  inTxn([] {});
  inTxn([&] { (void)A->count(); });
  expectHistory(0, 1);
  // Nested transactions make one step of the outer type.
  inTxn([&] {
    inTxn([&] { EXPECT_EQ(M->transactionDepth(), 2); });
    EXPECT_FALSE(M->undo()) << "refused inside a transaction";
  });
  expectHistory(0, 1);
  inTxn([&] {
    A->setCount(2);
    inTxn(nyTXN::TxnUnrecorded, [&] { A->setLabel("x"); });
  });
  expectHistory(1, 0);
  M->undo();
  EXPECT_EQ(A->label(), "-");
}

// A dropped step joins the step before: objects that step recorded come
// back whole, and what the dropped step created and linked into objects the
// step before did not record leaves with its undo and comes back with redo.
TEST_F(ManagerTest, DroppedStepsJoinTheStepBeforeWithTheirObjects) {
  Root = Shape::create(*M, "root");
  auto Other = Shape::create(*M, "other");
  inTxn([&] { Root->setChild(Shape::create(*M, "b")); });
  Shape *B = Root->child().get();
  for (const int Type : {nyTXN::TxnTransient, nyTXN::TxnUndecided}) {
    inTxn(Type, [&] {
      Other->setChild(
          Shape::create(*M, Type == nyTXN::TxnTransient ? "c" : "d"));
      Other->addMember(B);
      B->setCount(B->count() + 1);
      Root->setCount(Root->count() + 1);
    });
    EXPECT_EQ(M->dropStep(), Type == nyTXN::TxnUndecided);
    expectHistory(1, 0);
  }
  EXPECT_EQ(LiveShapes, 4) << "c, made and let go since the step, is gone";
  ASSERT_TRUE(M->undo());
  EXPECT_FALSE(Root->child());
  EXPECT_EQ(Root->count(), 0);
  EXPECT_FALSE(B->isTxnExtant());
  EXPECT_FALSE(Other->child());
  EXPECT_TRUE(Other->members().empty());
  ASSERT_TRUE(M->redo());
  ASSERT_EQ(Root->child().get(), B);
  EXPECT_EQ(Root->count(), 2);
  EXPECT_EQ(B->count(), 2);
  ASSERT_TRUE(Other->child());
  EXPECT_EQ(Other->child()->name(), "d");
  EXPECT_TRUE(Other->child()->isTxnExtant());
  EXPECT_EQ(Other->members(), (std::vector<Shape *>{B, B}));
}

// The step before a transient one may still need what the transient step
// released; what that step itself created and the transient released goes.
TEST_F(ManagerTest, TransientReleaseStaysRevivableByThePreviousStep) {
  Root = Shape::create(*M, "root");
  inTxn([&] { Root->setChild(Shape::create(*M, "b")); });
  inTxn([&] {
    Root->child()->setCount(5);
    Root->child()->setChild(Shape::create(*M, "d"));
  });
  inTxn(nyTXN::TxnTransient, [&] { Root->setChild(nullptr); });
  EXPECT_EQ(Journal, (Lines{"destroyed b", "destroyed d"}));
  EXPECT_EQ(LiveShapes, 2) << "d is gone, b is kept for undo";
  M->undo();
  ASSERT_TRUE(Root->child());
  EXPECT_TRUE(Root->child()->isTxnExtant());
  EXPECT_EQ(Root->child()->count(), 0);
  M->redo();
  EXPECT_FALSE(Root->child());
}

TEST_F(ManagerTest, UnrecordedAndReadOnlyTransactionsKeepNoStep) {
  Root = Shape::create(*M, "root");
  auto A = Shape::create(*M, "a");
  inTxn([&] { Root->setChild(Shape::create(*M, "b")); });
  inTxn(nyTXN::TxnUnrecorded, [&] {
    A->setCount(3);
    Shape::create(*M, "temp");
  });
  EXPECT_EQ(LiveShapes, 3) << "temp is deleted at once";
  nyTXN::undoChannel().enable();
  qoOS::AppOutput::Capture Out;
  inTxn(nyTXN::TxnReadOnly, [&] {
    A->setCount(4);
    A->setCount(5);
    Root->setCount(6);
  });
  nyTXN::undoChannel().disable();
  const std::string Line = "nyTXN: change in a read-only transaction is not "
                           "recorded (txntest::Shape)\n";
  EXPECT_EQ(Out.text(), Line + Line);
  expectHistory(1, 0);
  M->undo();
  EXPECT_EQ(A->count(), 5);
  EXPECT_FALSE(Root->child());
}

TEST_F(ManagerTest, UndecidedStepWaitsForKeepOrDrop) {
  auto A = Shape::create(*M, "a");
  inTxn(nyTXN::TxnUndecided, [&] { A->setCount(1); });
  EXPECT_TRUE(M->hasPendingStep() && M->keepStep());
  EXPECT_FALSE(M->keepStep());
  inTxn(nyTXN::TxnUndecided, [&] { A->setCount(2); });
  EXPECT_TRUE(M->dropStep());
  EXPECT_FALSE(M->dropStep());
  expectHistory(1, 0);
  inTxn(nyTXN::TxnUndecided, [&] { A->setCount(3); });
  M->undo(); // keeps the pending step
  EXPECT_FALSE(M->hasPendingStep());
  expectHistory(1, 1);
}

TEST_F(ManagerTest, ChangesOutsideTransactionsAreReportedOncePerStretch) {
  auto A = Shape::create(*M, "a");
  auto B = Shape::create(*M, "b");
  inTxn([&] { A->setCount(1); });
  nyTXN::undoChannel().enable();
  qoOS::AppOutput::Capture Out;
  A->setCount(2);
  B->setCount(2);
  A->setCount(3);
  inTxn([&] { A->setCount(4); });
  B->setCount(5);
  nyTXN::undoChannel().disable();
  const std::string Line =
      "nyTXN: change outside a transaction is not recorded (txntest::Shape)\n";
  EXPECT_EQ(Out.text(), Line + Line);
  expectHistory(2, 0);
}

TEST_F(ManagerTest, UndoLimitKeepsOnlyTheLastSteps) {
  auto A = Shape::create(*M, "a");
  M->setUndoLimit(3);
  for (int I = 1; I <= 5; ++I)
    inTxn([&] { A->setCount(I); });
  expectHistory(3, 0);
  while (M->undo()) {
  }
  EXPECT_EQ(A->count(), 2);
  while (M->redo()) {
  }
  M->setUndoLimit(1);
  expectHistory(1, 0);
  M->undo();
  EXPECT_EQ(A->count(), 4);
}

TEST_F(ManagerTest, CleanMarkFollowsThePositionAndIsLostWithItsStep) {
  auto A = Shape::create(*M, "a");
  EXPECT_TRUE(M->isClean());
  inTxn([&] { A->setCount(1); });
  EXPECT_FALSE(M->isClean());
  M->setClean();
  M->undo();
  EXPECT_FALSE(M->isClean());
  M->redo();
  inTxn(nyTXN::TxnUnrecorded, [&] { A->setCount(9); });
  EXPECT_TRUE(M->isClean()) << "unrecorded changes do not move the position";
  M->undo();
  inTxn([&] { A->setCount(2); }); // discards the clean step
  M->undo();
  EXPECT_FALSE(M->isClean());
  M->redo();
  EXPECT_FALSE(M->isClean());
  // A mark before the oldest step goes when that step is trimmed; a mark
  // after it stays reachable.
  M->clearHistory();
  M->setUndoLimit(2);
  M->setClean();
  inTxn([&] { A->setCount(10); });
  inTxn([&] { A->setCount(11); });
  M->undo();
  M->undo();
  EXPECT_TRUE(M->isClean());
  M->redo();
  M->setClean();
  M->redo();
  inTxn([&] { A->setCount(20); });
  EXPECT_FALSE(M->isClean());
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
  inTxn([&] {
    A->setCount(1);
    EXPECT_EQ(Fired, 0) << "not before the transaction ends";
  });
  inTxn([] {});
  inTxn(nyTXN::TxnUnrecorded, [&] { A->setCount(2); });
  inTxn(nyTXN::TxnTransient, [&] { A->setCount(3); });
  EXPECT_EQ(Fired, 1);
  M->undo();
  M->redo();
  EXPECT_FALSE(M->redo());
  M->setUndoLimit(5);
  EXPECT_EQ(Fired, 3);
  M->clearHistory();
  EXPECT_EQ(Fired, 4);
}

} // namespace
