#include "support/CallInfo.h"

#include "support/Domain.h"

#include <algorithm>

namespace nySupport {

CallInfo::CallInfo() { Interfaces.reserve(ReservedInterfaces); }

void CallInfo::addInterface(const qo::TypeInfo &Type, void *Object) {
  Interfaces.push_back(Interface{Type, Object});
}

bool CallInfo::removeInterface(const qo::TypeInfo &Type) {
  const auto It =
      std::find_if(Interfaces.begin(), Interfaces.end(),
                   [&](const Interface &I) { return I.type == Type; });
  if (It == Interfaces.end())
    return false;
  Interfaces.erase(It);
  return true;
}

void *CallInfo::findInterface(const qo::TypeInfo &Type) const {
  for (const Interface &I : Interfaces)
    if (I.type == Type)
      return I.object;
  return nullptr;
}

CallInfo *CallInfo::currentCallInfo() { return Domain::callInfoFunc(); }

CallInfo *ci() { return CallInfo::currentCallInfo(); }

} // namespace nySupport
