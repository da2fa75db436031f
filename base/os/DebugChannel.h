//===- base/os/DebugChannel.h - A named diagnostic channel ----------------===//
//
// qoOS::DebugChannel is a named switch for one kind of diagnostic output.
// While it is on, print() formats its text and sends it to qoOS::AppOutput
// unchanged (no prefix, no newline added); while it is off print() does
// nothing beyond the test of the flag. Channels are values: copies have their
// own switch. Switch a channel from one thread at a time.
//
// Example:
//   qoOS::DebugChannel Resources("Resources");
//   Resources.print("paged out %zu bytes\n", Bytes);   // nothing: off
//   Resources.enable();
//   Resources.print("paged out %zu bytes\n", Bytes);   // printed
//
//===----------------------------------------------------------------------===//
#ifndef QOOS_DEBUGCHANNEL_H
#define QOOS_DEBUGCHANNEL_H

#include "base/string/CString.h"

#include <cstdarg>
#include <utility>

namespace qoOS {

class DebugChannel {
public:
  explicit DebugChannel(qoString::CString Name, bool Enabled = false)
      : Name(std::move(Name)), Enabled(Enabled) {}

  const qoString::CString &name() const { return Name; }
  void enable() { Enabled = true; }
  void disable() { Enabled = false; }
  void setEnabled(bool On) { Enabled = On; }
  bool isEnabled() const { return Enabled; }

  void print(const char *Format, ...) __attribute__((format(printf, 2, 3)));
  void vprint(const char *Format, va_list Args);

private:
  qoString::CString Name;
  bool Enabled;
};

} // namespace qoOS

#endif // QOOS_DEBUGCHANNEL_H
