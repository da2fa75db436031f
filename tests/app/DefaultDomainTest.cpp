#include "app/DefaultDomain.h"

#include "tests/support/PropertyProbe.h"

#include "support/CallInfo.h"
#include "support/TxdProperty.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

using namespace orbotest;
using nySupport::Context;

namespace {

struct DefaultDomain : ::testing::Test {
  template <class F> void change(Context::Mode Mode, F Change) {
    Context C(&D, Mode);
    Change();
  }
  nyTXN::Manager M;
  nyApp::DefaultDomain D{M};
};

} // namespace

// The model test covers what each mode records; this covers what the
// domain adds: call records, nesting, and no undo inside an operation.
TEST_F(DefaultDomain, OutermostContextOwnsTheTransaction) {
  PropertyRef P;
  change(Context::Const, [&] {
    EXPECT_EQ(nySupport::ci()->find<nyTXN::Manager>(), &M);
    EXPECT_EQ(nySupport::ci()->find<nySupport::Domain>(), &D);
    Context Inner(&D, Context::Momentary); // joins the read-only transaction
    P = Property::createTxd(M, "p", num(1));
  });
  EXPECT_EQ(M.undoCount(), 0);
  change(Context::Undecided, [&] {
    Context Inner(&D, Context::Momentary);
    P->set(num(2));
    EXPECT_FALSE(D.undo());
  });
  EXPECT_TRUE(M.hasPendingStep() && M.keepStep());
  EXPECT_TRUE(D.undo());
  EXPECT_EQ(text(P->get()), "1");
}

// Each change is undone and redone: the whole observable state must come
// back, and observers hear exactly the restore announcements.
TEST_F(DefaultDomain, UndoAndRedoRoundTripsThroughContexts) {
  PropertyLog Log;
  PropertyCounter Counter;
  std::vector<PropertyRef> All;
  PropertyRef E;
  change(Context::Momentary, [&] {
    PropertyRef A = Property::createTxd(M, "a", num(1));
    PropertyRef C = Property::createTxd(M, "c", num(5));
    All = {A, A->cloneUnTxd("b"), C, C->cloneTxd(M, "d"),
           Property::createUnTxd("u", num(7))};
    E = A->cloneTxd(M, "e");
  });
  for (const PropertyRef &P : All)
    Log.watch(P), Counter.track(P);
  Log.watch(E), Counter.track(E);
  using Lines = std::vector<std::string>;
  const Lines Restore = {"b Pre", "b Mod", "b Post", "a txn", "e txn"};
  const struct {
    const char *Name;
    std::function<void()> Change;
    Lines Undo, Redo;
    // Set where redo cannot bring the state after the change back.
    const char *Redone = nullptr;
  } Cases[] = {
      {"write", [&] { All[0]->set(num(2)); }, Restore, Restore},
      {"write through twin", [&] { All[1]->set(num(3)); }, Restore, Restore},
      // Restoring the item that is already there tells the twins nothing.
      {"same item",
       [&] { All[0]->set(All[0]->get()); },
       {"a txn", "e txn"},
       {"a txn", "e txn"}},
      {"release", [&] { E.reset(); }, {"a txn"}, {"a txn"}},
      {"join",
       [&] { All[2]->join(All[0]); },
       {"c txn", "c txn", "d txn", "a txn", "d txn"},
       {"c txn", "a txn", "c txn", "d txn", "d txn"}},
      {"clone with twin",
       [&] { All.push_back(All[4]->cloneTxd(M, "t")); },
       {},
       {},
       "a=3 [a c d | b] b=3 [a c d | b] c=3 [a c d | b] d=3 [a c d | b] "
       "u=7 [- | u] t=7 [t | -] "},
  };
  for (const auto &Case : Cases) {
    SCOPED_TRACE(Case.Name);
    const std::vector<PropertyRef> Before = All;
    const std::string BeforeState = describe(Before);
    change(Context::Momentary, Case.Change);
    const std::string AfterState = describe(All);
    Log.take();
    ASSERT_TRUE(D.undo());
    EXPECT_EQ(describe(Before), BeforeState);
    EXPECT_EQ(Log.take(), Case.Undo);
    ASSERT_TRUE(D.redo());
    EXPECT_EQ(describe(All), Case.Redone ? Case.Redone : AfterState);
    EXPECT_EQ(Log.take(), Case.Redo);
  }
  // Released in a recorded step, everything is the history's to free.
  change(Context::Momentary, [&] { All.clear(); });
  M.clearHistory();
  EXPECT_EQ(Counter.live(), 0);
  EXPECT_EQ(M.keptObjectCount(), 0u);
  EXPECT_EQ(CountedDouble::Live, 0);
}
