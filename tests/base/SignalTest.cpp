#include "base/rtb/Signal.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

using qo::Reference;
using qoRTB::Connection;
using qoRTB::Signal;
using qoRTB::SignalArg;

// Counts the allocations made on this thread while Counting is set, to hold
// emission to its promise of allocating nothing. The replacement serves the
// whole test program; kept out of line so that the compiler does not pair a
// visible malloc with a visible new.
namespace {
thread_local bool Counting = false;
thread_local int Allocations = 0;
} // namespace

[[gnu::noinline]] void *operator new(std::size_t Size) {
  Allocations += Counting;
  if (void *P = std::malloc(Size ? Size : 1))
    return P;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void *P) noexcept { std::free(P); }
[[gnu::noinline]] void operator delete(void *P, std::size_t) noexcept {
  std::free(P);
}

namespace {

// Lives in a callback's captures: tells when the signal released it.
struct Token {
  explicit Token(int &Live) : Live(&Live) { ++Live; }
  Token(const Token &Other) : Live(Other.Live) { ++*Live; }
  ~Token() { --*Live; }
  int *Live;
};

// Connections A, B, C that log their name and hold a Token each. The first
// time B runs it also performs Act, then notes how many Tokens are left.
struct Chain {
  int Live = 0, LiveAfterAct = -1;
  std::unique_ptr<Signal> S = std::make_unique<Signal>();
  std::string Log;
  Reference<Connection> A, B, C;

  explicit Chain(std::function<void(Chain &)> Act) {
    A = S->addCallback([this, T = Token(Live)] { Log += 'A'; });
    B = S->addCallback([this, T = Token(Live), Act]() mutable {
      Log += 'B';
      if (Act) {
        std::exchange(Act, nullptr)(*this);
        LiveAfterAct = Live;
      }
    });
    C = S->addCallback([this, T = Token(Live)] { Log += 'C'; });
  }
  std::string emit() {
    Log.clear();
    if (S)
      S->emit();
    return Log;
  }
};

} // namespace

// The connection being called is locked, the one after it is read only once
// it returns: a callback may change anything, itself included.
TEST(Signal, ChangesDuringEmission) {
  using Action = void (*)(Chain &);
  const struct {
    const char *Name;
    Action Act;
    const char *First, *Second;
    int LiveAfterAct, LiveAtEnd;
  } Cases[] = {
      {"disconnect itself", [](Chain &Ch) { Ch.B->disconnect(); }, "ABC", "AC",
       3, 2},
      {"disconnect next", [](Chain &Ch) { Ch.C->disconnect(); }, "AB", "AB", 2,
       2},
      {"disconnect previous", [](Chain &Ch) { Ch.A->disconnect(); }, "ABC",
       "BC", 2, 2},
      {"disconnect all", [](Chain &Ch) { Ch.S->disconnectAll(); }, "AB", "", 1,
       0},
      {"block the signal", [](Chain &Ch) { Ch.S->block(); }, "AB", "", 3, 3},
      // The running callback keeps its captures until it returns.
      {"destroy the signal", [](Chain &Ch) { Ch.S.reset(); }, "AB", "", 1, 0},
      // A nested emission calls what was added before it began, and passes
      // over a locked, disconnected connection that leaves only at the end.
      {"connect and emit",
       [](Chain &Ch) {
         Ch.S->addCallback([&Ch] { Ch.Log += 'D'; });
         Ch.S->emit();
       },
       "ABABCDC", "ABCD", 3, 3},
      {"disconnect itself and emit",
       [](Chain &Ch) {
         Ch.B->disconnect();
         Ch.S->emit();
       },
       "ABACC", "AC", 3, 2},
  };
  for (const auto &Case : Cases) {
    SCOPED_TRACE(Case.Name);
    Chain Ch(Case.Act);
    EXPECT_EQ(Ch.emit(), Case.First);
    EXPECT_EQ(Ch.LiveAfterAct, Case.LiveAfterAct);
    EXPECT_EQ(Ch.emit(), Case.Second);
    EXPECT_EQ(Ch.Live, Case.LiveAtEnd);
  }
}

TEST(Signal, HeldConnectionOutlivesItsSignal) {
  int Live = 0;
  Reference<Connection> Kept;
  {
    Signal S;
    Kept = S.addCallback([T = Token(Live)] {});
  }
  EXPECT_FALSE(Kept->isConnected());
  EXPECT_EQ(Live, 0);
  Kept->disconnect();
  EXPECT_EQ(Kept->refCount(), 1u);
}

TEST(Signal, ThrowingCallbackLeavesTheSignalUsable) {
  Chain Ch([](Chain &) { throw std::runtime_error("boom"); });
  EXPECT_THROW(Ch.emit(), std::runtime_error);
  EXPECT_EQ(Ch.Log, "AB");
  Ch.B->disconnect();
  EXPECT_EQ(Ch.Live, 2) << "B was left locked";
  EXPECT_EQ(Ch.emit(), "AC");
}

TEST(Signal, PassesReferencesWithoutCopyOrAllocation) {
  SignalArg<const std::string &> S;
  const std::string Text = "a string too long for the small buffer";
  int Seen = 0;
  for (int I = 0; I < 8; ++I)
    S.addCallback([&](const std::string &V) { Seen += &V == &Text; });
  Counting = true;
  Allocations = 0;
  for (int I = 0; I < 100; ++I)
    S.emit(Text);
  Counting = false;
  EXPECT_EQ(Allocations, 0);
  EXPECT_EQ(Seen, 800);

  qoRTB::Signal2Args<int, std::string &> Trim;
  Trim.addCallback([](int N, std::string &Value) { Value.resize(N); });
  std::string Trimmed = "abcdef";
  Trim.emit(3, Trimmed);
  EXPECT_EQ(Trimmed, "abc");
}
