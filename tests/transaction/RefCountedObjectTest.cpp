//===- tests/transaction/RefCountedObjectTest.cpp - Lifetime under undo ---===//

#include "tests/transaction/TestObjects.h"

#include "base/os/AppOutput.h"
#include "transaction/Manager.h"
#include "transaction/Object.h"

#include <gtest/gtest.h>

#include <memory>

using namespace txntest;
using nyTXN::Manager;

namespace {

class RefCountedObjectTest : public ::testing::Test {
protected:
  void SetUp() override { Journal.clear(); }
  void TearDown() override {
    Root.reset();
    M.reset();
    EXPECT_EQ(LiveShapes, 0) << "shapes left after the manager went";
    EXPECT_EQ(LiveTexts, 0) << "texts left after the manager went";
  }

  // root -> b -> c, built outside the history.
  void buildChain() {
    Root = Shape::create(*M, "root");
    auto B = Shape::create(*M, "b");
    B->setChild(Shape::create(*M, "c"));
    B->setLabel("bee");
    Root->setChild(B);
  }

  std::unique_ptr<Manager> M = std::make_unique<Manager>();
  qo::Reference<Shape> Root;
};

TEST_F(RefCountedObjectTest,
       ReleasedObjectsLeaveTheLivingSetAndUndoRevivesThem) {
  buildChain();
  Shape *B = Root->child().get();
  Shape *C = B->child().get();
  {
    Txn T(*M);
    Root->setChild(nullptr);
  }
  EXPECT_EQ(Journal, (std::vector<std::string>{"destroyed b", "destroyed c"}));
  EXPECT_EQ(LiveShapes, 3);
  EXPECT_FALSE(B->isTxnExtant());
  EXPECT_FALSE(B->child()) << "a released object lets go of what it held";
  EXPECT_EQ(B->label(), "-");
  EXPECT_EQ(M->keptObjectCount(), 3u) << "b, c and b's label holder";

  Journal.clear();
  M->undo();
  ASSERT_EQ(Root->child().get(), B);
  EXPECT_TRUE(B->isTxnExtant());
  EXPECT_TRUE(C->isTxnExtant());
  EXPECT_EQ(B->child().get(), C);
  EXPECT_EQ(B->label(), "bee");
  EXPECT_EQ(B->refCount(), 1u);
  EXPECT_EQ(C->refCount(), 1u);
  EXPECT_EQ(M->keptObjectCount(), 0u);
  EXPECT_EQ(Journal,
            (std::vector<std::string>{"extant b", "extant c", "modified root",
                                      "modified b", "modified c"}));
  M->redo();
  EXPECT_FALSE(B->isTxnExtant());
  EXPECT_FALSE(C->isTxnExtant());
  EXPECT_FALSE(Root->child());
}

TEST_F(RefCountedObjectTest, CreatedObjectsAreGoneAfterUndoAndBackAfterRedo) {
  Root = Shape::create(*M, "root");
  {
    Txn T(*M);
    auto B = Shape::create(*M, "b");
    B->setLabel("bee");
    B->setChild(Shape::create(*M, "c"));
    Root->setChild(B);
  }
  Shape *B = Root->child().get();
  Shape *C = B->child().get();
  Journal.clear();
  M->undo();
  EXPECT_FALSE(Root->child());
  EXPECT_FALSE(B->isTxnExtant());
  EXPECT_FALSE(C->isTxnExtant());
  EXPECT_FALSE(B->child()) << "an undone object holds no references";
  EXPECT_EQ(LiveShapes, 3) << "kept for redo";
  EXPECT_EQ(M->keptObjectCount(), 3u) << "b, c and b's label holder";
  EXPECT_EQ(Journal,
            (std::vector<std::string>{"gone b", "gone c", "modified root"}));
  Journal.clear();
  M->redo();
  EXPECT_EQ(Root->child().get(), B);
  EXPECT_EQ(B->child().get(), C);
  EXPECT_EQ(B->label(), "bee");
  EXPECT_EQ(B->refCount(), 1u);
  EXPECT_EQ(C->refCount(), 1u);
  EXPECT_EQ(Journal,
            (std::vector<std::string>{"extant b", "extant c", "modified root",
                                      "modified b", "modified c"}));
}

TEST_F(RefCountedObjectTest, DiscardedRedoBranchFreesWhatOnlyItCouldRevive) {
  Root = Shape::create(*M, "root");
  {
    Txn T(*M);
    Root->setChild(Shape::create(*M, "b"));
  }
  M->undo();
  EXPECT_EQ(LiveShapes, 2);
  {
    Txn T(*M);
    Root->setCount(1);
  }
  EXPECT_EQ(LiveShapes, 1);
  EXPECT_EQ(M->keptObjectCount(), 0u);
}

TEST_F(RefCountedObjectTest, TrimmedStepsFreeWhatOnlyTheyCouldRevive) {
  Root = Shape::create(*M, "root");
  std::vector<qo::Reference<Shape>> Held;
  for (int I = 0; I < 4; ++I)
    Held.push_back(Shape::create(*M, "s" + std::to_string(I)));
  for (int I = 0; I < 4; ++I) {
    Txn T(*M);
    Root->setCount(I + 1);
    Held[I].reset(); // released in step I
  }
  EXPECT_EQ(LiveShapes, 5);
  M->setUndoLimit(2);
  EXPECT_EQ(LiveShapes, 3) << "s0 and s1 can no longer come back";
  M->undo();
  M->undo();
  EXPECT_EQ(LiveShapes, 3);
  EXPECT_EQ(Root->count(), 2);
}

TEST_F(RefCountedObjectTest, ReleaseInTheCreatingTransactionDeletesAtOnce) {
  Root = Shape::create(*M, "root");
  Txn T(*M);
  for (int I = 0; I < 100; ++I)
    Root->setChild(Shape::create(*M, "temp"));
  EXPECT_EQ(LiveShapes, 2);
  EXPECT_EQ(Journal.size(), 99u);
}

TEST_F(RefCountedObjectTest, ZeroOutsideTransactionsDeletesAtOnce) {
  auto Loose = Shape::create(*M, "loose");
  Loose.reset();
  EXPECT_EQ(LiveShapes, 0);
  EXPECT_EQ(Journal, (std::vector<std::string>{"destroyed loose"}));
}

// Undoing the step below would write its pointer back: the object must
// outlive the history even though it was released where nothing records.
TEST_F(RefCountedObjectTest, ZeroOutsideTransactionsParksWhatTheHistoryHolds) {
  Root = Shape::create(*M, "root");
  auto B = Shape::create(*M, "b");
  Shape *Raw = B.get();
  {
    Txn T(*M);
    Root->setChild(B);
  }
  {
    Txn T(*M);
    Root->setChild(nullptr); // b lives on: the test holds it
  }
  nyTXN::undoChannel().enable();
  qoOS::AppOutput::Capture Out;
  B.reset();
  nyTXN::undoChannel().disable();
  EXPECT_EQ(LiveShapes, 2);
  EXPECT_EQ(M->keptObjectCount(), 1u);
  EXPECT_NE(Out.text().find("txntest::Shape released outside a recording "
                            "transaction"),
            std::string::npos);
  M->undo();
  EXPECT_EQ(Root->child().get(), Raw);
}

// Undo revives an object the step released even after it was parked; the
// step keeps it again, so a second unrecorded release parks it once and the
// manager deletes it once.
TEST_F(RefCountedObjectTest, ParkedObjectRevivedByUndoIsParkedOnce) {
  Root = Shape::create(*M, "root");
  Root->setChild(Shape::create(*M, "b"));
  Shape *B = Root->child().get();
  {
    Txn T(*M);
    Root->setChild(nullptr);
  }
  for (int Round = 0; Round < 2; ++Round) {
    SCOPED_TRACE(Round);
    ASSERT_TRUE(M->undo());
    EXPECT_TRUE(B->isTxnExtant());
    // Unrecorded: b is parked again.
    Root->setChild(qo::Reference<Shape>(B));
    Root->setChild(nullptr);
    EXPECT_FALSE(B->isTxnExtant());
    EXPECT_EQ(LiveShapes, 2);
    EXPECT_EQ(M->keptObjectCount(), 1u);
    ASSERT_TRUE(M->redo());
  }
}

TEST_F(RefCountedObjectTest, HeldObjectOutlivesTheStepThatKeptIt) {
  Root = Shape::create(*M, "root");
  qo::Reference<Shape> B;
  {
    Txn T(*M);
    B = Shape::create(*M, "b");
    Root->setChild(B);
  }
  M->undo();
  {
    Txn T(*M);
    Root->setCount(1); // discards the step that created b
  }
  EXPECT_EQ(LiveShapes, 2);
  EXPECT_FALSE(B->isTxnExtant());
  B.reset();
  EXPECT_EQ(LiveShapes, 1);
}

// A member reached only through plain pointers comes back with nothing
// counting it; the manager deletes it in the end.
TEST_F(RefCountedObjectTest, RevivedUncountedObjectStaysUntilTheManagerGoes) {
  Root = Shape::create(*M, "root");
  auto B = Shape::create(*M, "b");
  Root->addMember(B.get());
  {
    Txn T(*M);
    Root->removeMember(B.get());
    B.reset();
  }
  M->undo();
  ASSERT_EQ(Root->members().size(), 1u);
  Shape *Revived = Root->members()[0];
  EXPECT_TRUE(Revived->isTxnExtant());
  EXPECT_EQ(Revived->refCount(), 0u);
  EXPECT_EQ(M->keptObjectCount(), 1u);
  M->redo();
  EXPECT_FALSE(Revived->isTxnExtant());
  M->undo();
  EXPECT_EQ(M->keptObjectCount(), 1u);
}

TEST_F(RefCountedObjectTest, LongChainsAreReleasedWithoutRecursion) {
  constexpr int Length = 200000;
  Root = Shape::create(*M, "root");
  {
    qo::Reference<Shape> Head;
    for (int I = 0; I < Length; ++I) {
      auto Next = Shape::create(*M, "link");
      Next->setChild(std::move(Head));
      Head = std::move(Next);
    }
    Root->setChild(std::move(Head));
  }
  {
    Txn T(*M);
    Root->setChild(nullptr);
  }
  EXPECT_EQ(M->keptObjectCount(), static_cast<std::size_t>(Length));
  M->undo();
  EXPECT_EQ(M->keptObjectCount(), 0u);
  M->clearHistory();
  Root->setChild(nullptr); // outside: deleted at once, link by link
  EXPECT_EQ(LiveShapes, 1);
  Journal.clear();
}

TEST_F(RefCountedObjectTest, MemoryLimitDropsOldestStepsAndTheirObjects) {
  Root = Shape::create(*M, "root");
  std::vector<qo::Reference<Shape>> Held;
  for (int I = 0; I < 10; ++I)
    Held.push_back(Shape::create(*M, "s" + std::to_string(I)));
  std::vector<std::size_t> Sizes;
  for (int I = 0; I < 10; ++I) {
    Txn T(*M);
    Root->setCount(I + 1);
    Held[I].reset();
    Sizes.push_back(M->historySize());
  }
  const std::size_t PerStep = Sizes[1] - Sizes[0];
  M->setMemoryLimit(3 * PerStep + PerStep / 2);
  EXPECT_EQ(M->undoCount(), 3);
  EXPECT_LE(M->historySize(), M->memoryLimit());
  EXPECT_EQ(LiveShapes, 1 + 3) << "only the last three released shapes stay";
  while (M->undo()) {
  }
  EXPECT_EQ(Root->count(), 7);
  // The newest step stays even when it alone is over the limit.
  M->setMemoryLimit(1);
  EXPECT_EQ(M->redoCount() + M->undoCount(), 1);
}

} // namespace
