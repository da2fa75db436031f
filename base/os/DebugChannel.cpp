#include "base/os/DebugChannel.h"

#include "base/os/AppOutput.h"

namespace qoOS {

void DebugChannel::print(const char *Format, ...) {
  if (!Enabled)
    return;
  va_list Args;
  va_start(Args, Format);
  vprint(Format, Args);
  va_end(Args);
}

void DebugChannel::vprint(const char *Format, va_list Args) {
  if (!Enabled)
    return;
  AppOutput::write(qoString::CString::vformat(Format, Args));
}

} // namespace qoOS
