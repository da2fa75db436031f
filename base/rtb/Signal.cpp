#include "base/rtb/Signal.h"

// Invariant: Head..Tail links, in order of addition, every connection whose
// Owner is this chain; each of them is connected or locked (or both), and
// the chain holds one reference to each. Count counts the connected ones. A
// connection that is neither connected nor locked has left the chain, holds
// no callback and no chain reference. A connection that was locked when the
// chain was dropped wholesale (disconnectAll, destruction) has a null Owner
// but keeps the chain's reference until its last unlock releases it.

namespace qoRTB {

using internal::SignalChain;

void Connection::disconnect() {
  if (!Connected)
    return;
  Connected = false;
  --Owner->Count;
  if (Locks == 0)
    SignalChain::release(this);
}

qo::Reference<Connection> SignalCore::append(Connection *C) {
  SignalChain &Owner = chain();
  C->Owner = &Owner;
  C->Serial = Owner.NextSerial++;
  C->Connected = true;
  C->Prev = Owner.Tail;
  (Owner.Tail ? Owner.Tail->Next : Owner.Head) = C;
  Owner.Tail = C;
  ++Owner.Count;
  C->ref();
  return qo::Reference<Connection>(C);
}

SignalChain::~SignalChain() {
  for (SignalEmission *E = Emissions; E; E = E->Outer)
    E->Dead = true;
  // A dropped callback's captured state could connect again while we empty
  // the chain; keep going until nothing is left.
  while (Head)
    disconnectAll();
}

void SignalChain::disconnectAll() {
  Connection *First = std::exchange(Head, nullptr);
  Tail = nullptr;
  Count = 0;
  // Detach everything before releasing anything: a released callback's
  // captured state may run arbitrary code (disconnect, emit, even destroy
  // this signal), and none of it must reach the list being walked here.
  for (Connection *C = First; C; C = C->Next) {
    C->Connected = false;
    C->Owner = nullptr;
  }
  while (First) {
    Connection *C = std::exchange(First, First->Next);
    C->Prev = C->Next = nullptr;
    // A locked one is in some emission's hands; its last unlock releases it.
    if (C->Locks == 0)
      release(C);
  }
}

void SignalChain::release(Connection *C) {
  if (C->Owner)
    C->Owner->unlink(C);
  C->dropCallback();
  C->unref();
}

void SignalChain::unlink(Connection *C) {
  (C->Prev ? C->Prev->Next : Head) = C->Next;
  (C->Next ? C->Next->Prev : Tail) = C->Prev;
  C->Prev = C->Next = nullptr;
  C->Owner = nullptr;
}

} // namespace qoRTB
