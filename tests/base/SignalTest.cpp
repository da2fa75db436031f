#include "base/rtb/Signal.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using qo::Reference;
using qoRTB::Connection;
using qoRTB::Signal;
using qoRTB::Signal2Args;
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
  if (Counting)
    ++Allocations;
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

// Three connections A, B, C that log their name; B's body is supplied.
struct Chain {
  Signal S;
  std::string Log;
  Reference<Connection> A, B, C;

  template <class F> explicit Chain(F BodyOfB) {
    A = S.addCallback([this] { Log += 'A'; });
    B = S.addCallback([this, BodyOfB] {
      Log += 'B';
      BodyOfB(*this);
    });
    C = S.addCallback([this] { Log += 'C'; });
  }
  std::string emit() {
    Log.clear();
    S.emit();
    return Log;
  }
};

} // namespace

TEST(Signal, CallsConnectionsInOrderOfAddition) {
  Chain Ch([](Chain &) {});
  EXPECT_EQ(Ch.S.connectionCount(), 3u);
  EXPECT_EQ(Ch.emit(), "ABC");
  EXPECT_EQ(Ch.emit(), "ABC");
}

TEST(Signal, ArgumentsReachEveryCallback) {
  SignalArg<int> One;
  Signal2Args<std::string, int> Two;
  std::vector<std::string> Got;
  One.addCallback([&](int V) { Got.push_back(std::to_string(V)); });
  One.addCallback([&](int V) { Got.push_back(std::to_string(V * 2)); });
  Two.addCallback([&](std::string S, int V) {
    Got.push_back(S + "=" + std::to_string(V));
  });
  One.emit(21);
  Two.emit("x", 3);
  EXPECT_EQ(Got, (std::vector<std::string>{"21", "42", "x=3"}));
}

TEST(Signal, ReferenceArgumentsAreTheEmittedObject) {
  struct Probe {
    Probe() = default;
    Probe(const Probe &) { ++Copies; }
    int Copies = 0;
  };
  SignalArg<const Probe &> Sig;
  Probe P;
  std::vector<const Probe *> Seen;
  Sig.addCallback([&](const Probe &Q) { Seen.push_back(&Q); });
  Sig.addCallback([&](const Probe &Q) { Seen.push_back(&Q); });
  Sig.emit(P);
  EXPECT_EQ(Seen, (std::vector<const Probe *>{&P, &P}));
  EXPECT_EQ(P.Copies, 0);

  // A receiver may replace what a non-const reference refers to.
  Signal2Args<int, std::string &> Validate;
  Validate.addCallback([](int Limit, std::string &Value) {
    if (static_cast<int>(Value.size()) > Limit)
      Value.resize(Limit);
  });
  std::string Value = "abcdef";
  Validate.emit(3, Value);
  EXPECT_EQ(Value, "abc");
}

TEST(Signal, DisconnectReleasesTheCallbackAtOnce) {
  Signal S;
  int Live = 0;
  int Calls = 0;
  Reference<Connection> C =
      S.addCallback([&Calls, T = Token(Live)] { ++Calls; });
  S.addCallback([] {}); // the signal's own reference keeps this one
  EXPECT_EQ(Live, 1);
  S.emit();
  C->disconnect();
  EXPECT_FALSE(C->isConnected());
  EXPECT_EQ(Live, 0);
  EXPECT_EQ(S.connectionCount(), 1u);
  S.emit();
  EXPECT_EQ(Calls, 1);
  C->disconnect();
  EXPECT_EQ(C->refCount(), 1u);
}

struct DisconnectCase {
  const char *Name;
  Reference<Connection> Chain::*Target; // whom B disconnects
  const char *First;
  const char *Second;
};

class SignalDisconnectDuringEmission
    : public testing::TestWithParam<DisconnectCase> {};

// B disconnects a connection while B's callback runs; B is locked then, and
// the connection after it is read only once B returns.
TEST_P(SignalDisconnectDuringEmission, NeverCallsItAgain) {
  const DisconnectCase &Case = GetParam();
  int Live = 0;
  bool Done = false;
  Chain Ch([&, T = Token(Live)](Chain &Ch) {
    if (!std::exchange(Done, true))
      (Ch.*Case.Target)->disconnect();
    // The callback's own captures must survive its self-disconnection.
    EXPECT_EQ(T.Live, &Live);
    EXPECT_EQ(Live, 1);
  });
  EXPECT_EQ(Ch.emit(), Case.First);
  EXPECT_EQ(Ch.S.connectionCount(), 2u);
  EXPECT_FALSE((Ch.*Case.Target)->isConnected());
  EXPECT_EQ(Ch.emit(), Case.Second);
  EXPECT_EQ(Live, Case.Target == &Chain::B ? 0 : 1);
}

INSTANTIATE_TEST_SUITE_P(
    Targets, SignalDisconnectDuringEmission,
    testing::Values(DisconnectCase{"Itself", &Chain::B, "ABC", "AC"},
                    DisconnectCase{"Next", &Chain::C, "AB", "AB"},
                    DisconnectCase{"Previous", &Chain::A, "ABC", "BC"}),
    [](const auto &Info) { return std::string(Info.param.Name); });

TEST(Signal, DisconnectAllDuringEmissionStopsIt) {
  Chain Ch([](Chain &Ch) { Ch.S.disconnectAll(); });
  EXPECT_EQ(Ch.emit(), "AB");
  EXPECT_EQ(Ch.S.connectionCount(), 0u);
  EXPECT_FALSE(Ch.B->isConnected());
  EXPECT_EQ(Ch.emit(), "");
}

TEST(Signal, ConnectionsAddedDuringEmissionWaitForTheNextOne) {
  bool Added = false;
  Chain Ch([&](Chain &Ch) {
    if (!std::exchange(Added, true))
      Ch.S.addCallback([&Ch] { Ch.Log += 'D'; });
  });
  EXPECT_EQ(Ch.emit(), "ABC");
  EXPECT_EQ(Ch.emit(), "ABCD");
}

TEST(Signal, BlockedSignalsAndConnectionsAreSkipped) {
  Chain Ch([](Chain &) {});
  Ch.S.block();
  EXPECT_TRUE(Ch.S.isBlocked());
  EXPECT_EQ(Ch.emit(), "");
  Ch.S.unblock();
  Ch.B->block();
  EXPECT_TRUE(Ch.B->isBlocked());
  EXPECT_EQ(Ch.emit(), "AC");
  Ch.B->unblock();
  EXPECT_EQ(Ch.emit(), "ABC");
  EXPECT_EQ(Ch.S.connectionCount(), 3u);
}

TEST(Signal, BlockingDuringEmissionStopsIt) {
  Chain Ch([](Chain &Ch) { Ch.S.block(); });
  EXPECT_EQ(Ch.emit(), "AB");
  Ch.S.unblock();
  Ch.A->block();
  EXPECT_EQ(Ch.emit(), "B");
}

TEST(Signal, NestedEmission) {
  SignalArg<int> S;
  std::string Log;
  Reference<Connection> B;
  S.addCallback([&](int N) {
    Log += "A" + std::to_string(N);
    if (N > 0)
      S.emit(N - 1);
  });
  B = S.addCallback([&](int N) { Log += "B" + std::to_string(N); });
  S.emit(2);
  EXPECT_EQ(Log, "A2A1A0B0B1B2");
}

// B, locked by the outer emission, disconnects itself and emits again: the
// inner emission passes over B, and B leaves only when the outer one is done.
TEST(Signal, NestedEmissionSkipsALockedDisconnectedConnection) {
  SignalArg<int> S;
  std::string Log;
  int Live = 0;
  Reference<Connection> B;
  S.addCallback([&](int N) { Log += "A" + std::to_string(N); });
  B = S.addCallback([&, T = Token(Live)](int N) {
    Log += "B" + std::to_string(N);
    B->disconnect();
    S.emit(N - 1);
    EXPECT_EQ(Live, 1);
  });
  S.addCallback([&](int N) { Log += "C" + std::to_string(N); });
  S.emit(1);
  EXPECT_EQ(Log, "A1B1A0C0C1");
  EXPECT_EQ(Live, 0);
  EXPECT_EQ(S.connectionCount(), 2u);
}

TEST(Signal, NestedEmissionCallsConnectionsAddedBeforeIt) {
  SignalArg<int> S;
  std::string Log;
  S.addCallback([&](int N) {
    Log += "A" + std::to_string(N);
    if (N == 0)
      return;
    S.addCallback([&](int M) { Log += "D" + std::to_string(M); });
    S.emit(N - 1);
  });
  S.emit(1);
  EXPECT_EQ(Log, "A1A0D0");
}

TEST(Signal, ConnectionOutlivesItsSignal) {
  int Live = 0;
  Reference<Connection> C;
  {
    Signal S;
    C = S.addCallback([T = Token(Live)] {});
  }
  EXPECT_FALSE(C->isConnected());
  EXPECT_EQ(Live, 0);
  C->disconnect();
  C->block();
  EXPECT_EQ(C->refCount(), 1u);
}

TEST(Signal, CallbackMayDestroyItsSignal) {
  auto S = std::make_unique<Signal>();
  int Live = 0;
  std::string Log;
  Reference<Connection> A = S->addCallback([&, T = Token(Live)] {
    Log += 'A';
    S.reset();
    // B's captures went with the signal; this running callback's did not.
    EXPECT_EQ(Live, 1);
    EXPECT_EQ(T.Live, &Live);
    Log += 'a';
  });
  S->addCallback([&, T = Token(Live)] { Log += 'B'; });
  S->emit();
  EXPECT_EQ(Log, "Aa");
  EXPECT_EQ(Live, 0);
  EXPECT_FALSE(A->isConnected());
}

TEST(Signal, CallbackMayDestroyItsSignalInANestedEmission) {
  auto S = std::make_unique<SignalArg<int>>();
  std::string Log;
  S->addCallback([&](int N) {
    Log += "A" + std::to_string(N);
    if (N > 0)
      S->emit(N - 1);
  });
  S->addCallback([&](int N) {
    Log += "B" + std::to_string(N);
    S.reset();
  });
  S->emit(1);
  EXPECT_EQ(Log, "A1A0B0");
}

TEST(Signal, ThrowingCallbackLeavesTheSignalUsable) {
  int Calls = 0;
  Chain Ch([&](Chain &) {
    if (++Calls == 1)
      throw std::runtime_error("boom");
  });
  EXPECT_THROW(Ch.S.emit(), std::runtime_error);
  EXPECT_EQ(Ch.Log, "AB");
  Ch.B->disconnect();
  EXPECT_EQ(Ch.emit(), "AC");
}

TEST(Signal, EmissionAllocatesNothing) {
  SignalArg<const std::string &> S;
  std::size_t Total = 0;
  for (int I = 0; I < 8; ++I)
    S.addCallback([&](const std::string &V) { Total += V.size(); });
  const std::string Text = "a string too long for the small buffer";
  Counting = true;
  Allocations = 0;
  for (int I = 0; I < 100; ++I)
    S.emit(Text);
  Counting = false;
  EXPECT_EQ(Allocations, 0);
  EXPECT_EQ(Total, 800 * Text.size());
}
