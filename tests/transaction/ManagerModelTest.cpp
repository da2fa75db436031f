//===- tests/transaction/ManagerModelTest.cpp - Undo against a model ------===//
//
// Thousands of random transactions, undos, redos, limit changes and history
// resets on a small scene of shapes, checked after every step against a
// plain model: a list of whole-scene states and a position in it. Shapes
// are created, changed, linked (parent to a younger child, so no cycles) and
// released at random, so the lifetime machinery is exercised as well; the
// live count must be zero once the manager is gone.
//
//===----------------------------------------------------------------------===//

#include "tests/transaction/TestObjects.h"

#include "transaction/Manager.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <random>
#include <string>

using namespace txntest;

namespace {

class Scene : public nyTXN::RefCountedObject {
public:
  using RefCountedObject::RefCountedObject;
  void onTransact(nyTXN::Serializer &S) override {
    S.beginObject(this);
    S.field(Items);
    S.endObject();
  }
  void add(qo::Reference<Shape> S) {
    recordChange();
    Items.push_back(std::move(S));
  }
  void removeAt(std::size_t I) {
    recordChange();
    Items.erase(Items.begin() + static_cast<std::ptrdiff_t>(I));
  }
  std::vector<qo::Reference<Shape>> Items;
};

struct ModelShape {
  int Count = 0;
  double Size = 0;
  std::string Label = "-";
  int Child = -1;
};

struct ModelState {
  std::vector<int> Items;
  std::map<int, ModelShape> Shapes;
};

std::string describe(const ModelState &S, int Id) {
  const ModelShape &Sh = S.Shapes.at(Id);
  return "s" + std::to_string(Id) + "(" + std::to_string(Sh.Count) + "," +
         std::to_string(Sh.Size) + "," + Sh.Label + "," +
         (Sh.Child < 0 ? "-" : describe(S, Sh.Child)) + ")";
}

std::string describe(const ModelState &S) {
  std::string Text;
  for (int Id : S.Items)
    Text += describe(S, Id) + " ";
  return Text;
}

std::string describe(const Shape &Sh) {
  return Sh.name() + "(" + std::to_string(Sh.count()) + "," +
         std::to_string(Sh.size()) + "," + Sh.label() + "," +
         (Sh.child() ? describe(*Sh.child()) : "-") + ")";
}

std::string describe(const Scene &S) {
  std::string Text;
  for (const auto &Item : S.Items)
    Text += describe(*Item) + " ";
  return Text;
}

void collect(const ModelState &S, int Id, std::vector<int> &Out) {
  Out.push_back(Id);
  if (S.Shapes.at(Id).Child >= 0)
    collect(S, S.Shapes.at(Id).Child, Out);
}

void collect(Shape *Sh, std::map<int, Shape *> &Out) {
  Out[std::stoi(Sh->name().substr(1))] = Sh;
  if (Sh->child())
    collect(Sh->child().get(), Out);
}

class Driver {
public:
  explicit Driver(unsigned Seed) : Rng(Seed) {
    Root = qo::Reference<Scene>(new Scene(*M));
    States.emplace_back();
  }
  ~Driver() {
    Root.reset();
    M.reset();
  }

  void run(int Steps) {
    for (int I = 0; I < Steps; ++I) {
      step();
      check(I);
      if (::testing::Test::HasFailure())
        return;
    }
  }

private:
  int pick(int N) { return std::uniform_int_distribution<int>(0, N - 1)(Rng); }

  void step() {
    const int What = pick(20);
    if (What < 11)
      transaction(nyTXN::TxnUndoable);
    else if (What < 12)
      transaction(nyTXN::TxnUndecided);
    else if (What < 16)
      undo();
    else if (What < 19)
      redo();
    else
      history();
  }

  void transaction(int Type) {
    ModelState Next = States[Pos];
    bool Changed = false;
    M->beginTransaction(Type);
    for (int Ops = pick(4); Ops > 0; --Ops)
      Changed |= operation(Next);
    M->endTransaction();
    if (Type == nyTXN::TxnUndecided && M->hasPendingStep()) {
      EXPECT_TRUE(Changed);
      // Only a first step is dropped here: an earlier step that recorded the
      // same objects would restore them whole, which the model does not
      // follow. Dropped, the change becomes part of the base.
      if (Pos == 0 && pick(2)) {
        M->dropStep();
        States = {Next};
        if (M->isClean())
          CleanState = describe(Next);
        return;
      }
      M->keepStep();
    }
    if (!Changed)
      return;
    States.resize(Pos + 1);
    States.push_back(std::move(Next));
    ++Pos;
    trimModel();
  }

  // One random change, applied to the scene and to the model alike.
  bool operation(ModelState &S) {
    std::vector<int> Reachable;
    for (int Id : S.Items)
      collect(S, Id, Reachable);
    std::map<int, Shape *> Real;
    for (const auto &Item : Root->Items)
      collect(Item.get(), Real);
    const int Kind = pick(6);
    if (Kind == 0 || Reachable.empty()) {
      const int Id = NextId++;
      Root->add(Shape::create(*M, "s" + std::to_string(Id)));
      S.Items.push_back(Id);
      S.Shapes[Id];
      return true;
    }
    const int Id = Reachable[pick(static_cast<int>(Reachable.size()))];
    Shape *Target = Real.at(Id);
    ModelShape &Sh = S.Shapes[Id];
    switch (Kind) {
    case 1:
      Sh.Count = pick(100);
      Target->setCount(Sh.Count);
      return true;
    case 2:
      Sh.Size = pick(100) / 4.0;
      Target->setSize(Sh.Size);
      return true;
    case 3:
      Sh.Label = "l" + std::to_string(pick(10));
      Target->setLabel(Sh.Label);
      return true;
    case 4: {
      // A younger child only: the links stay acyclic.
      std::vector<int> Younger{-1, -2};
      for (int Other : Reachable)
        if (Other > Id)
          Younger.push_back(Other);
      const int Child = Younger[pick(static_cast<int>(Younger.size()))];
      if (Child == -2) {
        const int New = NextId++;
        Target->setChild(Shape::create(*M, "s" + std::to_string(New)));
        S.Shapes[New];
        Sh.Child = New;
      } else {
        Target->setChild(Child < 0 ? nullptr
                                   : qo::Reference<Shape>(Real.at(Child)));
        Sh.Child = Child;
      }
      return true;
    }
    default: {
      if (S.Items.empty())
        return false;
      const int At = pick(static_cast<int>(S.Items.size()));
      Root->removeAt(static_cast<std::size_t>(At));
      S.Items.erase(S.Items.begin() + At);
      return true;
    }
    }
  }

  void undo() {
    EXPECT_EQ(M->undo(), Pos > 0);
    if (Pos > 0)
      --Pos;
  }

  void redo() {
    EXPECT_EQ(M->redo(), Pos + 1 < States.size());
    if (Pos + 1 < States.size())
      ++Pos;
  }

  void history() {
    switch (pick(3)) {
    case 0:
      Limit = pick(6);
      M->setUndoLimit(Limit);
      trimModel();
      return;
    case 1:
      M->clearHistory();
      States = {States[Pos]};
      Pos = 0;
      return;
    default:
      M->setClean();
      CleanState = describe(States[Pos]);
      return;
    }
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

  void check(int Step) {
    SCOPED_TRACE("step " + std::to_string(Step));
    EXPECT_EQ(describe(*Root), describe(States[Pos]));
    EXPECT_EQ(M->undoCount(), static_cast<int>(Pos));
    EXPECT_EQ(M->redoCount(), static_cast<int>(States.size() - 1 - Pos));
    if (M->isClean()) {
      EXPECT_EQ(describe(*Root), CleanState);
    }
  }

  std::mt19937 Rng;
  std::unique_ptr<nyTXN::Manager> M = std::make_unique<nyTXN::Manager>();
  qo::Reference<Scene> Root;
  std::vector<ModelState> States;
  std::size_t Pos = 0;
  int NextId = 0;
  int Limit = 0;
  std::string CleanState = "";
};

TEST(ManagerModel, RandomHistoriesMatchTheModel) {
  for (unsigned Seed = 1; Seed <= 8; ++Seed) {
    SCOPED_TRACE("seed " + std::to_string(Seed));
    {
      Driver D(Seed);
      D.run(1500);
    }
    EXPECT_EQ(LiveShapes, 0);
    EXPECT_EQ(LiveTexts, 0);
    if (::testing::Test::HasFailure())
      return;
  }
}

} // namespace
