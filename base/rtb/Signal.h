//===- base/rtb/Signal.h - Signals with ordered, lockable connections -----===//
//
// qoRTB::Signal, SignalArg<T> and Signal2Args<A, B> call their connected
// callbacks, in the order they were added, each time they are emitted.
// addCallback returns the qoRTB::Connection through which the caller later
// disconnects or blocks that callback; dropping the returned reference does
// not disconnect (the signal holds its own).
//
// Protocol:
// - The signal owns a chain of connections (one reference each), in order of
//   addition. connectionCount() counts the connected ones.
// - Emission walks the chain. The connection being called is locked (a lock
//   count) and the next one is locked before the current one is unlocked, so a
//   callback may add, disconnect, block or emit anything, itself included.
// - Disconnecting a locked connection only marks it; it is never called again
//   and leaves the chain, dropping its callback, when its last lock goes.
//   Disconnecting an unlocked one unlinks it at once.
// - Connections added during an emission are not called by that emission (a
//   nested emission started later does call them).
// - A blocked signal calls nothing, also when blocked halfway through an
//   emission; a blocked connection is skipped.
// - Destroying the signal disconnects every connection; Connection objects
//   still held elsewhere stay valid and report isConnected() == false. A
//   callback may destroy the signal that is calling it: the emission stops
//   there without touching the signal again.
// - Arguments are passed to every callback as declared: SignalArg<const Foo &>
//   hands each callback the very object given to emit.
// - Single thread: a signal and its connections belong to one thread at a
//   time. Emission allocates nothing.
//
// Example:
//   qoRTB::SignalArg<int> changed;
//   qo::Reference<qoRTB::Connection> c =
//       changed.addCallback([](int v) { std::printf("%d\n", v); });
//   changed.emit(3);   // prints 3
//   c->block();
//   changed.emit(4);   // prints nothing
//   c->disconnect();
//
//===----------------------------------------------------------------------===//
#ifndef QORTB_SIGNAL_H
#define QORTB_SIGNAL_H

#include "base/Reference.h"
#include "base/ReferenceCount.h"

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <utility>

namespace qoRTB {

class SignalCore;
namespace internal {
struct SignalChain;
class SignalEmission;
} // namespace internal

// One callback's place in a signal's chain.
class Connection : public qo::ReferenceCount {
public:
  Connection(const Connection &) = delete;
  Connection &operator=(const Connection &) = delete;

  // Harmless when already disconnected or when the signal is gone.
  void disconnect();
  void block() { Blocked = true; }
  void unblock() { Blocked = false; }
  bool isConnected() const { return Connected; }
  bool isBlocked() const { return Blocked; }

protected:
  Connection() = default;

private:
  friend class SignalCore;
  friend struct internal::SignalChain;
  friend class internal::SignalEmission;

  // Releases what the callback captured; called once the connection has left
  // the chain and is no longer locked.
  virtual void dropCallback() = 0;

  // Null once the connection has left the chain (or the signal is gone).
  internal::SignalChain *Owner = nullptr;
  Connection *Prev = nullptr;
  Connection *Next = nullptr;
  // Order of addition; an emission calls only serials below its limit.
  std::uint64_t Serial = 0;
  std::uint32_t Locks = 0;
  bool Connected = false;
  bool Blocked = false;
};

namespace internal {

// What a signal knows once it has been connected or blocked. Most signals
// never are (a property has three, usually all idle), so a signal is one
// pointer until then and its chain is made on first use.
struct SignalChain {
  Connection *Head = nullptr;
  Connection *Tail = nullptr;
  SignalEmission *Emissions = nullptr;
  std::uint64_t NextSerial = 0;
  std::size_t Count = 0;
  bool Blocked = false;

  ~SignalChain();
  void disconnectAll();
  void unlink(Connection *C);
  static void lock(Connection *C) { ++C->Locks; }
  static void unlock(Connection *C) {
    assert(C->Locks > 0 && "unlock of a connection that is not locked");
    if (--C->Locks == 0 && !C->Connected)
      release(C);
  }
  static void release(Connection *C);
};

// One emission in progress: it lives on the emitter's stack and is linked
// into the chain so that the chain's destructor can tell it the signal is
// gone.
class SignalEmission {
public:
  explicit SignalEmission(SignalChain &S)
      : Core(S), Outer(S.Emissions), Limit(S.NextSerial), Current(S.Head) {
    S.Emissions = this;
    SignalChain::lock(Current);
  }
  ~SignalEmission() {
    if (Current)
      SignalChain::unlock(Current);
    if (!Dead)
      Core.Emissions = Outer;
  }
  SignalEmission(const SignalEmission &) = delete;
  SignalEmission &operator=(const SignalEmission &) = delete;

  // The connection to call now, or null when the emission is over.
  Connection *current() const { return Current; }
  bool callable() const { return Current->Connected && !Current->Blocked; }
  void advance() {
    if (Dead) {
      finish();
      return;
    }
    Connection *Next = Current->Next;
    if (Next && Next->Serial >= Limit)
      Next = nullptr;
    if (Next)
      SignalChain::lock(Next);
    Connection *Done = std::exchange(Current, Next);
    // May free Done, whose captured state may in turn destroy the signal.
    SignalChain::unlock(Done);
    if (Current && (Dead || Core.Blocked))
      finish();
  }

private:
  friend struct SignalChain;

  void finish() { SignalChain::unlock(std::exchange(Current, nullptr)); }

  SignalChain &Core;
  SignalEmission *Outer;
  const std::uint64_t Limit;
  Connection *Current;
  bool Dead = false;
};

} // namespace internal

// The untyped part of every signal: the chain and its protocol.
class SignalCore {
public:
  SignalCore(const SignalCore &) = delete;
  SignalCore &operator=(const SignalCore &) = delete;

  void block() { chain().Blocked = true; }
  void unblock() {
    if (Chain)
      Chain->Blocked = false;
  }
  bool isBlocked() const { return Chain && Chain->Blocked; }
  std::size_t connectionCount() const { return Chain ? Chain->Count : 0; }
  void disconnectAll() {
    if (Chain)
      Chain->disconnectAll();
  }

protected:
  SignalCore() = default;
  ~SignalCore() { delete Chain; }

  qo::Reference<Connection> append(Connection *C);
  // True when an emission would call nothing: the cheap early exit.
  bool idle() const { return !Chain || !Chain->Head || Chain->Blocked; }

  // An emission of a signal that is not idle().
  class Emission : public internal::SignalEmission {
  public:
    explicit Emission(SignalCore &S) : SignalEmission(*S.Chain) {}
  };

private:
  internal::SignalChain &chain() {
    if (!Chain)
      Chain = new internal::SignalChain;
    return *Chain;
  }

  internal::SignalChain *Chain = nullptr;
};

// The typed front of a signal: callbacks taking Args, emit(Args).
template <class... Args> class BasicSignal : public SignalCore {
public:
  using Callback = std::function<void(Args...)>;

  BasicSignal() = default;

  qo::Reference<Connection> addCallback(Callback F) {
    assert(F && "connecting an empty callback");
    return append(new Slot(std::move(F)));
  }

  void emit(Args... A) {
    if (idle())
      return;
    for (Emission E(*this); E.current(); E.advance())
      if (E.callable())
        static_cast<Slot *>(E.current())->F(A...);
  }

private:
  struct Slot final : Connection {
    explicit Slot(Callback F) : F(std::move(F)) {}
    void dropCallback() override { F = nullptr; }
    Callback F;
  };
};

class Signal : public BasicSignal<> {};

template <class T> class SignalArg : public BasicSignal<T> {};

template <class A, class B> class Signal2Args : public BasicSignal<A, B> {};

} // namespace qoRTB

#endif // QORTB_SIGNAL_H
