#include "support/Broadcaster.h"

#include "base/thread/Mutex.h"

// Invariant: Lists[slot] is null or the list of the message type that owns
// that slot, sorted by strictly ascending priority; every SigBase in it is a
// Sig<T> of that very type. Message type slots are process-wide and never
// reused, so a slot means the same type in every broadcaster.

namespace nySupport {

SigBase::~SigBase() = default;

namespace internal {

std::size_t registerMessageType(const qo::TypeInfo &Type) {
  // Guarded statics: message types are first seen during static
  // initialisation of other libraries too.
  static qoThread::Mutex Guard;
  static qo::unordered_map<qo::TypeInfo, std::size_t> Slots;
  qoThread::Mutex::Lock Hold(Guard);
  return Slots.try_emplace(Type, Slots.size()).first->second;
}

} // namespace internal

Broadcaster::Broadcaster() = default;

Broadcaster::~Broadcaster() {
  // Levels go before the flags are reset: captured state released with a
  // connection must not find a flag inviting it to connect to this dying
  // broadcaster again.
  for (std::unique_ptr<SigList> &List : Lists)
    if (List)
      List->clear();
  for (bool *Flag : FirstTimeFlags)
    *Flag = true;
}

void Broadcaster::addFirstTimeFlag(bool *Flag) { FirstTimeFlags.insert(Flag); }

Broadcaster::SigList &Broadcaster::listAt(std::size_t Slot) {
  if (Slot >= Lists.size())
    Lists.resize(Slot + 1);
  std::unique_ptr<SigList> &List = Lists[Slot];
  if (!List)
    List = std::make_unique<SigList>();
  return *List;
}

SigBase &Broadcaster::signalAt(std::size_t Slot, const Priority &P,
                               SigFactory Make) {
  SigList &List = listAt(Slot);
  auto It = List.begin();
  for (; It != List.end(); ++It) {
    const int Order = compare((*It)->priority(), P);
    if (Order == 0)
      return **It;
    if (Order > 0)
      break;
  }
  return **List.emplace(It, Make(P));
}

} // namespace nySupport
