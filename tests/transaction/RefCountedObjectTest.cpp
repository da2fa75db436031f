//===- tests/transaction/RefCountedObjectTest.cpp - Lifetime under undo ---===//

#include "tests/transaction/TestObjects.h"

#include "transaction/Manager.h"
#include "transaction/Object.h"

#include <gtest/gtest.h>

#include <cstdint>

using namespace txntest;

namespace {

using RefCountedObjectTest = TxnTest;
using Lines = std::vector<std::string>;

TEST_F(RefCountedObjectTest, ReleasedObjectsLeaveTheLivingSetAndUndoRevives) {
  Root = Shape::create(*M, "root");
  Root->setChild(Shape::create(*M, "b"));
  Shape *B = Root->child().get();
  B->setChild(Shape::create(*M, "c"));
  B->setLabel("bee");
  Shape *C = B->child().get();
  inTxn([&] { Root->setChild(nullptr); });
  EXPECT_EQ(Journal, (Lines{"destroyed b", "destroyed c"}));
  EXPECT_EQ(LiveShapes, 3);
  EXPECT_FALSE(B->isTxnExtant());
  EXPECT_FALSE(B->child()) << "a released object lets go of what it held";
  EXPECT_EQ(M->keptObjectCount(), 2u)
      << "b and c; b's label holder is held by the step's bytes";
  Journal.clear();
  M->undo();
  ASSERT_EQ(Root->child().get(), B);
  EXPECT_TRUE(C->isTxnExtant());
  EXPECT_EQ(B->child().get(), C);
  EXPECT_EQ(B->label(), "bee");
  EXPECT_EQ(C->refCount(), 1u);
  EXPECT_EQ(M->keptObjectCount(), 0u);
  EXPECT_EQ(Journal, (Lines{"extant b", "extant c", "modified root",
                            "modified b", "modified c"}));
  M->redo();
  EXPECT_FALSE(C->isTxnExtant());
  EXPECT_FALSE(Root->child());
}

TEST_F(RefCountedObjectTest, CreatedObjectsAreGoneAfterUndoAndBackAfterRedo) {
  Root = Shape::create(*M, "root");
  inTxn([&] {
    for (int I = 0; I < 10; ++I) // released where created: deleted at once
      Root->setChild(Shape::create(*M, "temp"));
    Root->setChild(Shape::create(*M, "b"));
    Root->child()->setChild(Shape::create(*M, "c"));
  });
  EXPECT_EQ(LiveShapes, 3);
  Shape *B = Root->child().get();
  Journal.clear();
  M->undo();
  EXPECT_FALSE(Root->child());
  EXPECT_FALSE(B->isTxnExtant());
  EXPECT_FALSE(B->child()) << "an undone object holds no references";
  EXPECT_EQ(M->keptObjectCount(), 2u);
  EXPECT_EQ(Journal, (Lines{"gone b", "gone c", "modified root"}));
  M->redo();
  EXPECT_EQ(Root->child().get(), B);
  EXPECT_TRUE(B->child()->isTxnExtant());
  EXPECT_EQ(B->refCount(), 1u);
}

// Objects only a discarded redo branch or a trimmed step could bring back are
// freed; one the program still holds lives on, non-extant.
TEST_F(RefCountedObjectTest, DroppedStepsFreeWhatOnlyTheyCouldRevive) {
  Root = Shape::create(*M, "root");
  qo::Reference<Shape> Held;
  inTxn([&] {
    Held = Shape::create(*M, "held");
    Root->setChild(Shape::create(*M, "b"));
    Root->addMember(Held.get());
  });
  M->undo();
  EXPECT_EQ(LiveShapes, 3);
  inTxn([&] { Root->setCount(1); });
  EXPECT_EQ(LiveShapes, 2);
  EXPECT_FALSE(Held->isTxnExtant());
  Held.reset();
  EXPECT_EQ(LiveShapes, 1);

  std::vector<qo::Reference<Shape>> Shapes;
  for (int I = 0; I < 4; ++I)
    Shapes.push_back(Shape::create(*M, "s" + std::to_string(I)));
  for (int I = 0; I < 4; ++I)
    inTxn([&] { Shapes[I].reset(); });
  EXPECT_EQ(LiveShapes, 5);
  M->setUndoLimit(2);
  EXPECT_EQ(LiveShapes, 3) << "s0 and s1 can no longer come back";
  EXPECT_EQ(M->keptObjectCount(), 2u);
}

// A value holder lives while the living data or a kept step's bytes name
// it: trimming and discarding steps frees the labels only they named.
TEST_F(RefCountedObjectTest, ValueHoldersLiveWhileAStepNamesThem) {
  Root = Shape::create(*M, "root");
  M->setUndoLimit(2);
  for (const char *Label : {"a", "b", "c", "d"})
    inTxn([&] { Root->setLabel(Label); });
  EXPECT_EQ(LiveTexts, 3) << "d, and c and b for the two steps kept";
  M->undo();
  M->undo();
  EXPECT_EQ(Root->label(), "b");
  EXPECT_EQ(LiveTexts, 3);
  inTxn([&] { Root->setLabel("e"); });
  EXPECT_EQ(LiveTexts, 2) << "the redo branch named c and d";
  M->undo();
  EXPECT_EQ(Root->label(), "b");
  M->clearHistory();
  EXPECT_EQ(LiveTexts, 1);
}

TEST_F(RefCountedObjectTest, MemoryLimitDropsOldestStepsAndTheirObjects) {
  Root = Shape::create(*M, "root");
  std::vector<qo::Reference<Shape>> Held;
  for (int I = 0; I < 10; ++I)
    Held.push_back(Shape::create(*M, "s" + std::to_string(I)));
  for (int I = 0; I < 10; ++I)
    inTxn([&] {
      Root->setCount(I + 1);
      Held[I].reset();
    });
  const std::size_t Unlimited = M->historySize();
  M->setMemoryLimit(SIZE_MAX);
  EXPECT_EQ(M->historySize(), Unlimited) << "measured late or at once alike";
  const std::size_t PerStep = Unlimited / 10;
  M->setMemoryLimit(3 * PerStep + PerStep / 2);
  EXPECT_EQ(M->undoCount(), 3);
  EXPECT_LE(M->historySize(), M->memoryLimit());
  EXPECT_EQ(LiveShapes, 1 + 3) << "only the last three released shapes stay";
  while (M->undo()) {
  }
  EXPECT_EQ(Root->count(), 7);
  M->setMemoryLimit(1);
  EXPECT_EQ(M->redoCount() + M->undoCount(), 1) << "the newest step stays";
}

// Undo revives an object the step released even after an unrecorded
// release parked it; the step keeps it again, so a second unrecorded
// release parks it once and the manager deletes it once.
TEST_F(RefCountedObjectTest, ParkedObjectRevivedByUndoIsParkedOnce) {
  Root = Shape::create(*M, "root");
  Root->setChild(Shape::create(*M, "b"));
  Shape *B = Root->child().get();
  inTxn([&] { Root->setChild(nullptr); });
  for (int Round = 0; Round < 2; ++Round) {
    SCOPED_TRACE(Round);
    ASSERT_TRUE(M->undo());
    EXPECT_TRUE(B->isTxnExtant());
    Root->setChild(qo::Reference<Shape>(B));
    Root->setChild(nullptr);
    EXPECT_FALSE(B->isTxnExtant());
    EXPECT_EQ(LiveShapes, 2);
    EXPECT_EQ(M->keptObjectCount(), 1u);
    ASSERT_TRUE(M->redo());
  }
}

TEST_F(RefCountedObjectTest, LongChainsAreReleasedWithoutRecursion) {
  constexpr int Length = 200000;
  Root = Shape::create(*M, "root");
  for (int I = 0; I < Length; ++I) {
    auto Next = Shape::create(*M, "link");
    Next->setChild(Root->child());
    Root->setChild(std::move(Next));
  }
  inTxn([&] { Root->setChild(nullptr); });
  EXPECT_EQ(M->keptObjectCount(), static_cast<std::size_t>(Length));
  M->undo();
  M->clearHistory();
  Root->setChild(nullptr); // outside: deleted at once, link by link
  EXPECT_EQ(LiveShapes, 1);
}

} // namespace
