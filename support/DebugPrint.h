//===- support/DebugPrint.h - Indented trace lines that follow scopes -----===//
//
// nySupport::DebugPrint is a scope object: a function makes one, named after
// itself, and calls it to print a trace line on a debug code's channel. The
// first line of a scope is printed at the current indentation and indents
// what follows by two spaces until the scope ends, so nested calls show as a
// tree. A function nested directly in itself (recursion, or two scopes of
// the same name) does not indent further.
//
// Whether the scope traces at all is decided once, at construction, from the
// code's channel. A process-wide stack of function names tracks the nesting;
// each call of the object pushes its name and the destructor pops one, so a
// scope that prints more than one line leaves its level behind and a scope
// that never prints pops its caller's: call it exactly once per scope for
// balanced output. Main thread only.
//
// Example:
//   using namespace nySupport;
//   void clearResources() {
//     DebugPrint Trace("clearResources", Debug_Resources);
//     Trace("Clearing %d bytes of cached resources.", Bytes);
//     evictAll();   // its traces come out two spaces further in
//   }
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_DEBUGPRINT_H
#define NYSUPPORT_DEBUGPRINT_H

#include "support/Debug.h"

#include <cstddef>

namespace nySupport {

class DebugPrint {
public:
  // Function must outlive the object (a literal, typically __func__).
  DebugPrint(const char *Function, DebugCode Code);
  ~DebugPrint();

  DebugPrint(const DebugPrint &) = delete;
  DebugPrint &operator=(const DebugPrint &) = delete;

  // Prints one line (a line end is added) and opens the scope's level.
  void operator()(const char *Format, ...)
      __attribute__((format(printf, 2, 3)));

  bool isEnabled() const { return Enabled; }

  // Whether the two innermost names on the stack are equal strings.
  static bool isSameFunction();
  // Names on the stack: 0 whenever every scope has closed.
  static std::size_t depth();

private:
  Debug &Owner;
  const char *Function;
  DebugCode Code;
  bool Enabled;
};

} // namespace nySupport

#endif // NYSUPPORT_DEBUGPRINT_H
