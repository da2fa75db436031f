//===- tests/transaction/ManagerModelTest.cpp - Undo against a model ------===//
//
// Thousands of random transactions, undos, redos, dropped steps, limit
// changes and history resets on a small scene of shapes, checked after every
// step against a plain model: the list of whole-scene descriptions taken
// after each step and a position in it. Shapes hang in chains below three
// roots; they are created, changed, relinked and released at random, so the
// lifetime machinery is exercised as well; the live count must be zero once
// the manager is gone.
//
//===----------------------------------------------------------------------===//

#include "tests/transaction/TestObjects.h"

#include "transaction/Manager.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>

using namespace txntest;

namespace {

std::string describeShape(const Shape &Sh) {
  return Sh.name() + "(" + std::to_string(Sh.count()) + "," + Sh.label() + "," +
         (Sh.child() ? describeShape(*Sh.child()) : "-") + ")";
}

class Driver {
public:
  explicit Driver(unsigned Seed) : Rng(Seed) {
    for (int I = 0; I < 3; ++I)
      Roots.push_back(make());
    States = {describe()};
    CleanState = States[0];
  }
  ~Driver() {
    Roots.clear();
    M.reset();
  }

  void run(int Steps) {
    for (int I = 0; I < Steps && !::testing::Test::HasFailure(); ++I) {
      step();
      SCOPED_TRACE("step " + std::to_string(I));
      EXPECT_EQ(describe(), States[Pos]);
      EXPECT_EQ(M->undoCount(), static_cast<int>(Pos));
      EXPECT_EQ(M->redoCount(), static_cast<int>(States.size() - 1 - Pos));
      EXPECT_TRUE(!M->isClean() || describe() == CleanState);
    }
  }

private:
  int pick(int N) { return std::uniform_int_distribution<int>(0, N - 1)(Rng); }
  qo::Reference<Shape> make() {
    return Shape::create(*M, "s" + std::to_string(NextId++));
  }

  void step() {
    const int What = pick(20);
    if (What < 12) {
      transaction(What < 11 ? nyTXN::TxnUndoable : nyTXN::TxnUndecided);
    } else if (What < 16) {
      EXPECT_EQ(M->undo(), Pos > 0);
      Pos -= Pos > 0;
    } else if (What < 19) {
      EXPECT_EQ(M->redo(), Pos + 1 < States.size());
      Pos += Pos + 1 < States.size();
    } else if (pick(3) == 0) {
      Limit = pick(6);
      M->setUndoLimit(Limit);
      trimModel();
    } else if (pick(2)) {
      M->clearHistory();
      States = {States[Pos]};
      Pos = 0;
    } else {
      M->setClean();
      CleanState = States[Pos];
    }
  }

  // A dropped step joins the one before, so the scene it leaves replaces
  // that step's; with no step before, it becomes the base.
  void transaction(int Type) {
    const int Ops = pick(4);
    M->beginTransaction(Type);
    for (int I = 0; I < Ops; ++I)
      operation();
    M->endTransaction();
    if (Ops == 0)
      return;
    States.resize(Pos + 1);
    if (Type == nyTXN::TxnUndecided && pick(2)) {
      EXPECT_TRUE(M->dropStep());
      States[Pos] = describe();
      if (M->isClean())
        CleanState = States[Pos];
      return;
    }
    EXPECT_EQ(M->keepStep(), Type == nyTXN::TxnUndecided);
    States.push_back(describe());
    ++Pos;
    trimModel();
  }

  // Shapes are linked to younger children only, so the links stay acyclic.
  void operation() {
    std::vector<Shape *> Reachable;
    for (const auto &Item : Roots)
      for (Shape *S = Item.get(); S; S = S->child().get())
        Reachable.push_back(S);
    Shape *Target = Reachable[pick(static_cast<int>(Reachable.size()))];
    auto Id = [](Shape *S) { return std::stoi(S->name().substr(1)); };
    std::vector<Shape *> Younger{nullptr, nullptr};
    for (Shape *Other : Reachable)
      if (Id(Other) > Id(Target))
        Younger.push_back(Other);
    const int At = pick(static_cast<int>(Younger.size()));
    switch (pick(3)) {
    case 0:
      return Target->setCount(pick(100));
    case 1:
      return Target->setLabel("l" + std::to_string(pick(10)));
    default:
      return Target->setChild(At == 1 ? make()
                                      : qo::Reference<Shape>(Younger[At]));
    }
  }

  std::string describe() const {
    std::string Text;
    for (const auto &Item : Roots)
      Text += describeShape(*Item) + " ";
    return Text;
  }

  void trimModel() {
    while (Limit > 0 && States.size() - 1 > static_cast<std::size_t>(Limit)) {
      if (Pos > 0) {
        States.erase(States.begin());
        --Pos;
      } else {
        States.pop_back();
      }
    }
  }

  std::mt19937 Rng;
  std::unique_ptr<nyTXN::Manager> M = std::make_unique<nyTXN::Manager>();
  std::vector<qo::Reference<Shape>> Roots;
  std::vector<std::string> States;
  std::size_t Pos = 0;
  int NextId = 0;
  int Limit = 0;
  std::string CleanState;
};

TEST(ManagerModel, RandomHistoriesMatchTheModel) {
  for (unsigned Seed = 1; Seed <= 8 && !::testing::Test::HasFailure(); ++Seed) {
    SCOPED_TRACE("seed " + std::to_string(Seed));
    Driver(Seed).run(1500);
    EXPECT_EQ(LiveShapes, 0);
    EXPECT_EQ(LiveTexts, 0);
  }
}

} // namespace
