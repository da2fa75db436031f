#include "tests/support/PropertyProbe.h"

#include "app/DefaultDomain.h"
#include "support/TxdProperty.h"
#include "support/UnTxdProperty.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <random>

using namespace orbotest;
using nySupport::Context;

namespace {

// The model: plain ids. Transacted state (a store's value, link and member
// list; a property's store, -1 while out of existence) is journaled as the
// history keeps it: an object's state before its first change in a step,
// swapped by undo and redo. A dropped step joins the step before: that step
// takes over the states it did not journal itself, the objects created and
// those let go. Untransacted stores and link targets are not journaled: a
// link loses its target for good. Structural changes (clone, join, releasing
// a transacted property) are made in every recording step.
enum Kind { KStore, KProp, KLink };
struct Obj {
  Obj(Kind K = KStore, long Val = 0) : K(K), Val(Val) {}
  Kind K;
  long Val;
  int Link = -1, Store = -1;
  std::vector<int> Members;
};
struct Step {
  std::map<int, Obj> Before, After, CreatedState;
  std::vector<int> Created, Destroyed;
};

void erase(std::vector<int> &V, int X) {
  auto It = std::find(V.begin(), V.end(), X);
  if (It != V.end())
    V.erase(It);
}

struct Model {
  std::map<int, Obj> T, U; // U: untransacted stores (Link is the twin)
  std::map<int, int> UProp, LinkTarget, LinkOwner;
  std::vector<Step> Steps;
  std::size_t Position = 0;
  bool Recording = false, Open = false;
  int Next = 0;

  Step *open() {
    if (Recording && !Open) {
      Steps.resize(Position);
      Steps.emplace_back();
      Open = true;
    }
    return Recording ? &Steps.back() : nullptr;
  }
  bool born(Step *S, int Id) {
    return std::count(S->Created.begin(), S->Created.end(), Id) != 0;
  }
  void touch(int Id) {
    if (Step *S = open(); S && !born(S, Id))
      S->Before.emplace(Id, T[Id]);
  }
  int make(Obj O) {
    T[++Next] = O;
    if (Step *S = open())
      S->Created.push_back(Next);
    return Next;
  }
  // Let go by the living world: deleted at once when born in this step.
  void gone(int Id) {
    if (Step *S = open())
      born(S, Id) ? erase(S->Created, Id) : S->Destroyed.push_back(Id);
  }
  int target(int S) const {
    auto It = LinkTarget.find(T.at(S).Link);
    return It == LinkTarget.end() ? -1 : It->second;
  }
  int refs(int S) const {
    return int(std::count_if(T.begin(), T.end(), [S](const auto &E) {
      return E.second.K == KProp && E.second.Store == S;
    }));
  }
  void link(int S, int To) {
    touch(S);
    const int L = make(Obj(KLink));
    LinkTarget[L] = To, LinkOwner[L] = S, U[To].Link = S;
    if (const int Old = std::exchange(T[S].Link, L); Old != -1)
      gone(Old);
  }
  int addT(int S) {
    const int P = make(Obj(KProp));
    T[P].Store = S;
    touch(S);
    T[S].Members.push_back(P);
    return P;
  }
  int addU(int S) {
    UProp[++Next] = S;
    U[S].Members.push_back(Next);
    return Next;
  }
  int newU(long Val) {
    U[++Next] = Obj(KStore, Val);
    return Next;
  }
  void storeDeath(int S) {
    touch(S);
    if (const int To = target(S); To != -1)
      U[To].Link = -1;
    if (T[S].Link != -1)
      LinkTarget[T[S].Link] = -1, gone(T[S].Link);
    T[S] = Obj(KStore);
    gone(S);
  }
  void propDeath(int P) {
    const int S = T[P].Store;
    touch(S), erase(T[S].Members, P);
    touch(P), T[P].Store = -1;
    gone(P);
    if (refs(S) == 0)
      storeDeath(S);
  }
  // An untransacted property leaves its store, which dies with its last
  // member unless it is the store the property moves to.
  void leaveU(int P, int Into) {
    const int S = UProp[P];
    erase(U[S].Members, P);
    if (S == Into || !U[S].Members.empty())
      return;
    if (U[S].Link != -1 && T[U[S].Link].Link != -1)
      LinkTarget[T[U[S].Link].Link] = -1;
    U.erase(S);
  }
  // (transacted store, untransacted store) of P's group.
  std::pair<int, int> stores(int P) const {
    if (UProp.count(P))
      return {U.at(UProp.at(P)).Link, UProp.at(P)};
    const int S = T.at(P).Store;
    return {S, S == -1 ? -1 : target(S)};
  }
  long read(int P) const {
    auto [S, To] = stores(P);
    return UProp.count(P) ? U.at(To).Val : S == -1 ? 0 : T.at(S).Val;
  }
  void set(int P, long V) {
    auto [S, To] = stores(P);
    if (To != -1)
      U[To].Val = V;
    if (S != -1)
      touch(S), T[S].Val = V;
  }
  // Property::cloneTxd / cloneUnTxd: the new property, or -1.
  int clone(int P, bool ToTxd) {
    auto [S, To] = stores(P);
    if (!UProp.count(P) && S == -1)
      return -1;
    if (ToTxd && S == -1)
      link(S = make(Obj(KStore, U[To].Val)), To);
    if (!ToTxd && To == -1)
      link(S, To = newU(T[S].Val));
    return ToTxd ? addT(S) : addU(To);
  }
  void join(int P, int O, const std::map<int, PropertyRef> &Held) {
    auto [S, Su] = stores(P);
    auto [To, ToU] = stores(O);
    if (To == -1 && ToU == -1)
      return;
    const std::vector<int> TM = S == -1 ? std::vector<int>() : T[S].Members;
    const std::vector<int> UM = Su == -1 ? std::vector<int>() : U[Su].Members;
    if (!TM.empty() && To == -1)
      link(To = make(Obj(KStore, U[ToU].Val)), ToU);
    if (!UM.empty() && ToU == -1)
      link(To, ToU = newU(T[To].Val));
    for (int M : TM) {
      const int Old = T[M].Store;
      touch(M), touch(Old), erase(T[Old].Members, M);
      T[M].Store = To;
      if (Old != To && refs(Old) == 0)
        storeDeath(Old);
      touch(To), T[To].Members.push_back(M);
    }
    for (int M : UM)
      leaveU(M, ToU), UProp[M] = ToU, U[ToU].Members.push_back(M);
    // Members only undo revived: join's own references release them again.
    for (int M : TM)
      if (!Held.count(M))
        propDeath(M);
  }
  void restored(const Step &S) {
    for (const auto &[Id, O] : S.Before)
      if (O.K == KStore && target(Id) != -1)
        U[target(Id)].Val = T[Id].Val;
  }
  void undo() {
    Step &S = Steps[--Position];
    for (auto &[Id, O] : S.Before)
      S.After[Id] = std::exchange(T[Id], O);
    for (int Id : S.Created)
      S.CreatedState[Id] = std::exchange(T[Id], Obj(T[Id].K));
    restored(S);
    for (int L : S.Created)
      if (T[L].K == KLink && LinkTarget[L] != -1) {
        if (U[LinkTarget[L]].Link == LinkOwner[L])
          U[LinkTarget[L]].Link = -1;
        LinkTarget[L] = -1;
      }
  }
  void redo() {
    Step &S = Steps[Position++];
    for (int Id : S.Created)
      T[Id] = S.CreatedState[Id];
    for (auto &[Id, O] : S.Before)
      O = std::exchange(T[Id], S.After[Id]);
    restored(S);
  }
  void end(bool Keep) {
    const bool Empty = Open && Steps.back().Before.empty() &&
                       Steps.back().Created.empty() &&
                       Steps.back().Destroyed.empty();
    if (Open && !Empty && !Keep)
      drop();
    else if (Open && Empty)
      Steps.pop_back();
    else if (Open)
      Position = Steps.size();
    Open = Recording = false;
  }
  void drop() {
    Step D = std::move(Steps.back());
    Steps.pop_back();
    if (Position == 0)
      return;
    Step &Prev = Steps[Position - 1];
    for (const auto &[Id, O] : D.Before)
      if (!born(&Prev, Id))
        Prev.Before.emplace(Id, O);
    for (int Id : D.Destroyed)
      born(&Prev, Id) ? erase(Prev.Created, Id) : Prev.Destroyed.push_back(Id);
    Prev.Created.insert(Prev.Created.end(), D.Created.begin(), D.Created.end());
  }
};

// Random operations through the public surface, checked after each action
// against the model: every held property's value, which stores it shares
// with the others, and the undo position; nothing outlives teardown.
void runModel(std::uint32_t Seed, int Actions) {
  auto M = std::make_unique<nyTXN::Manager>();
  auto D = std::make_unique<nyApp::DefaultDomain>(*M);
  Model Mo;
  std::map<int, PropertyRef> Real;
  PropertyCounter Counter;
  std::mt19937 Rng(Seed);
  auto Pick = [&](int N) { return int(Rng() % unsigned(N)); };
  auto Any = [&] { return std::next(Real.begin(), Pick(int(Real.size()))); };
  long Value = 0;

  for (int Action = 0; Action < Actions; ++Action) {
    SCOPED_TRACE(Action);
    const int R = Pick(100);
    if (R < 10 && Mo.Position > 0) {
      ASSERT_TRUE(D->undo());
      Mo.undo();
    } else if (R < 20 && Mo.Position < Mo.Steps.size()) {
      ASSERT_TRUE(D->redo());
      Mo.redo();
    } else {
      static const Context::Mode Modes[] = {
          Context::Momentary, Context::Momentary, Context::Transient,
          Context::NoTxn,     Context::Const,     Context::Undecided};
      const Context::Mode Mode = Modes[Pick(6)];
      const bool Keep =
          Mode == Context::Momentary || (Mode == Context::Undecided && Pick(2));
      {
        Context C(D.get(), Mode);
        Mo.Recording = Mode != Context::NoTxn && Mode != Context::Const;
        for (int Ops = 1 + Pick(3); Ops > 0; --Ops) {
          int Op = Real.empty() ? 0 : Pick(Mo.Recording ? 9 : 4);
          if (Op == 0 && Real.size() > 40)
            Op = 3;
          auto It = Real.empty() ? Real.end() : Any();
          if (Op == 0) {
            const bool Txd = Pick(2);
            const long V = ++Value;
            const int P =
                Txd ? Mo.addT(Mo.make(Obj(KStore, V))) : Mo.addU(Mo.newU(V));
            const auto Name = qoString::CString::format("p%d", P);
            Real[P] = Txd ? Property::createTxd(*M, Name, num(double(V)))
                          : Property::createUnTxd(Name, num(double(V)));
            Counter.track(Real[P]);
          } else if (Op <= 2) {
            Mo.set(It->first, ++Value);
            It->second->set(num(double(Value)));
          } else if (Op <= 4) {
            if (Mo.UProp.count(It->first)) {
              Mo.leaveU(It->first, -1);
              Mo.UProp.erase(It->first);
            } else if (Mo.T[It->first].Store != -1) {
              if (!Mo.Recording)
                continue;
              Mo.propDeath(It->first);
            }
            Real.erase(It);
          } else if (Op <= 6) {
            const bool ToTxd = Pick(2);
            const int Q = Mo.clone(It->first, ToTxd);
            const auto Name = qoString::CString::format("p%d", Q);
            PropertyRef P = ToTxd ? It->second->cloneTxd(*M, Name)
                                  : It->second->cloneUnTxd(Name);
            ASSERT_EQ(bool(P), Q != -1);
            if (P)
              Counter.track(Real[Q] = P);
          } else {
            auto To = Any();
            Mo.join(It->first, To->first, Real);
            It->second->join(To->second);
          }
        }
      }
      if (M->hasPendingStep())
        Keep ? M->keepStep() : M->dropStep();
      Mo.end(Keep);
    }
    ASSERT_EQ(M->undoCount(), int(Mo.Position));
    ASSERT_EQ(M->redoCount(), int(Mo.Steps.size() - Mo.Position));
    // Model stores and real stores must correspond one to one; untransacted
    // stores take the negative keys.
    std::map<int, const void *> ToReal;
    std::map<const void *, int> ToModel;
    auto Same = [&](int Key, const void *Store) {
      if (Key == -1)
        return Store == nullptr;
      return ToReal.emplace(Key, Store).first->second == Store &&
             ToModel.emplace(Store, Key).first->second == Key;
    };
    for (const auto &[Id, P] : Real) {
      const long V = Mo.read(Id);
      ASSERT_EQ(text(P->get()), V ? std::to_string(V) : "-") << "p" << Id;
      auto [S, To] = Mo.stores(Id);
      ASSERT_TRUE(Same(S, P->txdStore())) << "p" << Id;
      ASSERT_TRUE(Same(To == -1 ? -1 : -2 - To, P->unTxdStore())) << "p" << Id;
    }
  }
  Real.clear();
  D.reset();
  M.reset();
  EXPECT_EQ(Counter.live(), 0);
  EXPECT_EQ(CountedDouble::Live, 0);
}

} // namespace

// Several seeds, among them ones that once mixed unrecorded releases with
// undo and redo, or structural changes in dropped steps, into a crash.
TEST(PropertyModel, RandomOperationsMatchThePlainModel) {
  for (const std::uint32_t Seed :
       {20240611u, 1u, 5u, 14u, 51u, 119u, 186u, 300u}) {
    SCOPED_TRACE(Seed);
    runModel(Seed, 1500);
    if (::testing::Test::HasFailure())
      return;
  }
}
