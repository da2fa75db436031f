//===- bench/BroadcastBench.cpp - Message delivery against peers ----------===//
//
// One message type delivered to 1 and to 10 listeners: Broadcaster::broadcast
// against Boost.Signals2 and a plain loop over a vector of std::function, all
// in the same run. Every listener does the same trivial work through a
// std::function, so the rows differ only in what surrounds the call. Items
// are deliveries (listener calls), so "items_per_second" inverts to ns per
// delivery. The "Levels" rows spread the listeners over as many priorities.
//
//===----------------------------------------------------------------------===//
#include "support/Broadcaster.h"
#include "support/Message.h"

#include <benchmark/benchmark.h>
#ifdef ORBO_HAVE_BOOST_SIGNALS2
#include <boost/signals2.hpp>
#endif

#include <cstdint>
#include <functional>
#include <vector>

namespace {

struct TickMsg : nySupport::Message {
  std::int64_t Count = 0;
};

void tick(TickMsg &M) { ++M.Count; }

void finish(benchmark::State &State, const TickMsg &M, std::int64_t Listeners) {
  if (M.Count != static_cast<std::int64_t>(State.iterations()) * Listeners)
    State.SkipWithError("listeners were not all called");
  State.SetItemsProcessed(State.iterations() * Listeners);
}

void BM_Broadcaster(benchmark::State &State) {
  const std::int64_t Listeners = State.range(0);
  nySupport::Broadcaster B;
  for (std::int64_t I = 0; I < Listeners; ++I)
    B.getSignal<TickMsg>().addCallback(&tick);
  TickMsg M;
  for (auto _ : State) {
    B.broadcast(M);
    benchmark::ClobberMemory();
  }
  finish(State, M, Listeners);
}
BENCHMARK(BM_Broadcaster)->Arg(1)->Arg(10);

void BM_BroadcasterLevels(benchmark::State &State) {
  const std::int64_t Listeners = State.range(0);
  nySupport::Broadcaster B;
  for (std::int64_t I = 0; I < Listeners; ++I)
    B.getSignal<TickMsg>(nySupport::Priority(static_cast<int>(I), 0))
        .addCallback(&tick);
  TickMsg M;
  for (auto _ : State) {
    B.broadcast(M);
    benchmark::ClobberMemory();
  }
  finish(State, M, Listeners);
}
BENCHMARK(BM_BroadcasterLevels)->Arg(10);

void BM_PlainFunctionLoop(benchmark::State &State) {
  const std::int64_t Listeners = State.range(0);
  std::vector<std::function<void(TickMsg &)>> Callbacks(
      static_cast<std::size_t>(Listeners), &tick);
  TickMsg M;
  for (auto _ : State) {
    for (const std::function<void(TickMsg &)> &F : Callbacks)
      F(M);
    benchmark::ClobberMemory();
  }
  finish(State, M, Listeners);
}
BENCHMARK(BM_PlainFunctionLoop)->Arg(1)->Arg(10);

void BM_BoostSignals2(benchmark::State &State) {
#ifdef ORBO_HAVE_BOOST_SIGNALS2
  const std::int64_t Listeners = State.range(0);
  boost::signals2::signal<void(TickMsg &)> Signal;
  for (std::int64_t I = 0; I < Listeners; ++I)
    Signal.connect(std::function<void(TickMsg &)>(&tick));
  TickMsg M;
  for (auto _ : State) {
    Signal(M);
    benchmark::ClobberMemory();
  }
  finish(State, M, Listeners);
#else
  State.SkipWithError("Boost.Signals2 was not found when configuring");
  for (auto _ : State) {
  }
#endif
}
BENCHMARK(BM_BoostSignals2)->Arg(1)->Arg(10);

} // namespace

BENCHMARK_MAIN();
