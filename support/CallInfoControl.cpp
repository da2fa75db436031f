#include "support/CallInfoControl.h"

#include "support/Domain.h"

namespace nySupport {

CallInfoControl::~CallInfoControl() {
  if (!Suppressed)
    return;
  Suppressed = false;
  TheDomain.callInfoRelease();
}

void CallInfoControl::suppress() {
  Suppressed = true;
  TheDomain.callInfoSuppress();
}

void CallInfoControl::release() {
  Suppressed = false;
  TheDomain.callInfoRelease();
}

bool CallInfoControl::isSuppressed() const {
  return TheDomain.callInfoSuppressed();
}

} // namespace nySupport
