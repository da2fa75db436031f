//===- support/Broadcaster.h - Typed, prioritised message delivery --------===//
//
// nySupport::Broadcaster delivers a message synchronously to every listener
// of exactly the message's static type (never to listeners of its base or
// derived types), in ascending Priority; listeners of one priority run in the
// order they connected. A listener connects to the qoRTB signal that
// getSignal<T>(priority) returns and disconnects through the connection that
// addCallback gave it. Listeners may connect and disconnect anything while a
// message is being delivered; a priority level added meanwhile is reached by
// that delivery only when it lies after the level being delivered.
//
// Lifetime: the broadcaster owns its signals; destroying it disconnects every
// listener and sets every flag registered with addFirstTimeFlag to true, so a
// "connect once per broadcaster" guard connects again on the next one. Not
// thread-safe: use one broadcaster from one thread.
//
// Example:
//   static bool firstTime = true;
//   if (firstTime) {
//     firstTime = false;
//     broadcaster.addFirstTimeFlag(&firstTime);
//     broadcaster.getSignal<AppInitMsg>(nySupport::Priority(0, 0))
//         .addCallback([](AppInitMsg &msg) { prepare(msg); });
//   }
//   AppInitMsg msg;
//   broadcaster.broadcast(msg);
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_BROADCASTER_H
#define NYSUPPORT_BROADCASTER_H

#include "base/Containers.h"
#include "base/TypeInfo.h"
#include "base/rtb/Signal.h"
#include "support/Priority.h"

#include <cstddef>
#include <memory>
#include <type_traits>

namespace nySupport {

// The signal of one (message type, priority) pair, as the broadcaster keeps
// it; the typed signal lives in Sig<T>.
class SigBase {
public:
  explicit SigBase(const Priority &P) : P(P) {}
  SigBase(const SigBase &) = delete;
  SigBase &operator=(const SigBase &) = delete;
  virtual ~SigBase();

  const Priority &priority() const { return P; }

private:
  const Priority P;
};

template <class T> class Sig final : public SigBase {
public:
  explicit Sig(const Priority &P) : SigBase(P) {}

  qoRTB::SignalArg<T &> &signal() { return Signal; }

private:
  qoRTB::SignalArg<T &> Signal;
};

namespace internal {
// A small process-wide number for a message type, the same for every copy of
// the template in every loaded library because it is looked up by TypeInfo.
std::size_t registerMessageType(const qo::TypeInfo &Type);

template <class T> std::size_t messageTypeSlot() {
  static const std::size_t Slot = registerMessageType(qo::TypeInfo::of<T>());
  return Slot;
}
} // namespace internal

class Broadcaster {
public:
  Broadcaster();
  Broadcaster(const Broadcaster &) = delete;
  Broadcaster &operator=(const Broadcaster &) = delete;
  virtual ~Broadcaster();

  // The signal of T at priority P, created on first request; the same signal
  // for every later request of the same pair.
  template <class T>
  qoRTB::SignalArg<T &> &getSignal(const Priority &P = Priority()) {
    static_assert(std::is_same_v<T, std::remove_cvref_t<T>>,
                  "message types are plain, non-const class types");
    SigBase &S = signalAt(internal::messageTypeSlot<T>(), P, &makeSig<T>);
    return static_cast<Sig<T> &>(S).signal();
  }

  // Delivers Message to the listeners of T; T is the static type.
  template <class T> void broadcast(T &Message) {
    static_assert(!std::is_const_v<T>,
                  "listeners receive the message as a mutable reference");
    const std::size_t Slot = internal::messageTypeSlot<T>();
    SigList *List = Slot < Lists.size() ? Lists[Slot].get() : nullptr;
    if (!List)
      List = &listAt(Slot);
    // Levels are never removed and list nodes never move, so the walk
    // survives listeners that add levels of this or any other type.
    for (const std::unique_ptr<SigBase> &S : *List)
      static_cast<Sig<T> &>(*S).signal().emit(Message);
  }

  // Flag is set to true when the broadcaster is destroyed. Registering an
  // address twice registers it once.
  void addFirstTimeFlag(bool *Flag);

private:
  using SigList = qo::list<std::unique_ptr<SigBase>>;
  using SigFactory = SigBase *(*)(const Priority &);

  template <class T> static SigBase *makeSig(const Priority &P) {
    return new Sig<T>(P);
  }

  SigList &listAt(std::size_t Slot);
  SigBase &signalAt(std::size_t Slot, const Priority &P, SigFactory Make);

  // Indexed by message type slot; null for types this broadcaster has not
  // seen. Each list is sorted by ascending priority, one level per priority.
  qo::vector<std::unique_ptr<SigList>> Lists;
  qo::set<bool *> FirstTimeFlags;
};

} // namespace nySupport

#endif // NYSUPPORT_BROADCASTER_H
