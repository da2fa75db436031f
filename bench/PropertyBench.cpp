// Writes to a property: transacted inside a transaction (one write per
// transaction, and 100 writes to 100 properties per transaction),
// untransacted, and a plain std::map of items as the floor; then undo and
// redo of one step that changed 10000 properties. No observers are
// connected: what is measured is the store and the recording. Items are made
// once, so no benchmark measures item allocation.

#include "support/Property.h"
#include "support/TxdProperty.h"
#include "support/UnTxdProperty.h"
#include "transaction/Manager.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace {

using nySupport::Property;
using ItemRef = qo::Reference<const nyPLST::Item>;

// A history as an application keeps it; trimming the oldest step is part of
// the cost of a write.
constexpr int UndoLimit = 100;

struct Items {
  ItemRef A = qo::make<nyPLST::Double>(1);
  ItemRef B = qo::make<nyPLST::Double>(2);
  const ItemRef &pick(std::size_t I) const { return I & 1 ? A : B; }
};

// Reports the time per write (or per changed property) next to the time
// per iteration.
void perItem(benchmark::State &State, double Count) {
  State.counters["per_item"] =
      benchmark::Counter(Count, benchmark::Counter::kIsIterationInvariantRate |
                                    benchmark::Counter::kInvert);
}

void BM_MapStore(benchmark::State &State) {
  const Items V;
  std::map<std::string, qo::Reference<nyPLST::Item>> Store;
  const std::string Key = "shape.size";
  std::size_t I = 0;
  for (auto _ : State)
    Store[Key] = qo::constCast<nyPLST::Item>(V.pick(++I));
  perItem(State, 1);
}
BENCHMARK(BM_MapStore);

void BM_UnTxdSet(benchmark::State &State) {
  const Items V;
  qo::Reference<Property> P = Property::createUnTxd("shape.size", V.A);
  std::size_t I = 0;
  for (auto _ : State)
    P->set(V.pick(++I));
  perItem(State, 1);
}
BENCHMARK(BM_UnTxdSet);

// The same writes as the 100-per-transaction case below, over 100
// untransacted properties, so that both touch as much memory per write.
void BM_UnTxdSet100(benchmark::State &State) {
  const Items V;
  std::vector<qo::Reference<Property>> Ps;
  for (int K = 0; K < 100; ++K)
    Ps.push_back(Property::createUnTxd("shape.size", V.A));
  std::size_t I = 0;
  for (auto _ : State) {
    ++I;
    for (const qo::Reference<Property> &P : Ps)
      P->set(V.pick(I));
  }
  perItem(State, 100);
}
BENCHMARK(BM_UnTxdSet100);

// One type-0 transaction per iteration around the writes that MakeWrites
// prepares; the writes (and the properties they hold) are gone before the
// history is cleared, as an application would release them.
template <class MakeWritesFn>
void timeTransactions(benchmark::State &State, int WritesPerTransaction,
                      MakeWritesFn MakeWrites) {
  const Items V;
  nyTXN::Manager M;
  M.setUndoLimit(UndoLimit);
  {
    auto Writes = MakeWrites(M, V);
    std::size_t I = 0;
    for (auto _ : State) {
      M.beginTransaction(nyTXN::TxnUndoable);
      Writes(++I);
      M.endTransaction();
    }
  }
  perItem(State, WritesPerTransaction);
  M.clearHistory();
}

std::vector<qo::Reference<Property>> txdProperties(nyTXN::Manager &M,
                                                   const Items &V, int Count) {
  std::vector<qo::Reference<Property>> Ps;
  for (int K = 0; K < Count; ++K)
    Ps.push_back(Property::createTxd(M, "shape.size", V.A));
  return Ps;
}

void BM_TxdSetOnePerTransaction(benchmark::State &State) {
  timeTransactions(State, 1, [](nyTXN::Manager &M, const Items &V) {
    return [&V, P = Property::createTxd(M, "shape.size", V.A)](std::size_t I) {
      P->set(V.pick(I));
    };
  });
}
BENCHMARK(BM_TxdSetOnePerTransaction);

void BM_TxdSet100PerTransaction(benchmark::State &State) {
  timeTransactions(State, 100, [](nyTXN::Manager &M, const Items &V) {
    return [&V, Ps = txdProperties(M, V, 100)](std::size_t I) {
      for (const qo::Reference<Property> &P : Ps)
        P->set(V.pick(I));
    };
  });
}
BENCHMARK(BM_TxdSet100PerTransaction);

// Where the time of a transacted write goes: the same 100 writes without
// the group walks (the store alone: recording plus a new value holder), and
// 100 writes to one property (recorded once; 99 holders made and freed at
// once).
void BM_TxdStoreSetItem100PerTransaction(benchmark::State &State) {
  timeTransactions(State, 100, [](nyTXN::Manager &M, const Items &V) {
    std::vector<qo::Reference<nySupport::TxdPropertyData>> Stores;
    for (int K = 0; K < 100; ++K)
      Stores.push_back(nySupport::TxdPropertyData::create(M));
    return [&V, Stores = std::move(Stores)](std::size_t I) {
      for (const auto &S : Stores)
        S->setItem(V.pick(I), false);
    };
  });
}
BENCHMARK(BM_TxdStoreSetItem100PerTransaction);

void BM_TxdSet100SamePropertyPerTransaction(benchmark::State &State) {
  timeTransactions(State, 100, [](nyTXN::Manager &M, const Items &V) {
    return [&V, P = Property::createTxd(M, "shape.size", V.A)](std::size_t I) {
      for (std::size_t K = 0; K < 100; ++K)
        P->set(V.pick(I * 100 + K));
    };
  });
}
BENCHMARK(BM_TxdSet100SamePropertyPerTransaction);

// One step that changed 10000 properties, undone and redone; only the
// operation named is timed.
void undoRedo(benchmark::State &State, bool TimeUndo) {
  const Items V;
  nyTXN::Manager M;
  std::vector<qo::Reference<Property>> Ps = txdProperties(M, V, 10000);
  M.beginTransaction(nyTXN::TxnUndoable);
  for (const qo::Reference<Property> &P : Ps)
    P->set(V.B);
  M.endTransaction();
  using Clock = std::chrono::steady_clock;
  for (auto _ : State) {
    const auto T0 = Clock::now();
    M.undo();
    const auto T1 = Clock::now();
    M.redo();
    const auto T2 = Clock::now();
    State.SetIterationTime(
        std::chrono::duration<double>(TimeUndo ? T1 - T0 : T2 - T1).count());
  }
  perItem(State, 10000);
  Ps.clear();
  M.clearHistory();
}

void BM_Undo10000(benchmark::State &State) { undoRedo(State, true); }
void BM_Redo10000(benchmark::State &State) { undoRedo(State, false); }
BENCHMARK(BM_Undo10000)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_Redo10000)->UseManualTime()->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
