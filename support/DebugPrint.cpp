//===- support/DebugPrint.cpp - Indented trace lines that follow scopes ---===//
//
// The name stack holds one entry per call of an enabled DebugPrint still in
// scope (less the pops of scopes that never printed). The indentation moves
// by two on a push and on a pop unless the two innermost names are equal, so
// a recursion indents once. An empty stack makes the destructor a no-op: an
// unbalanced scope must not drive the indentation below where it started.
//
//===----------------------------------------------------------------------===//
#include "support/DebugPrint.h"

#include "base/Containers.h"

#include <cstring>

namespace nySupport {

namespace {

qo::vector<const char *> &functions() {
  static qo::vector<const char *> Stack;
  return Stack;
}

} // namespace

DebugPrint::DebugPrint(const char *Function, DebugCode Code)
    : Owner(Debug::getInstance()), Function(Function), Code(Code),
      Enabled(Owner.isEnabled(Code)) {}

DebugPrint::~DebugPrint() {
  qo::vector<const char *> &Stack = functions();
  if (!Enabled || Stack.empty())
    return;
  if (!isSameFunction())
    Owner.decrementIndent();
  Stack.pop_back();
}

void DebugPrint::operator()(const char *Format, ...) {
  if (!Enabled)
    return;
  va_list Args;
  va_start(Args, Format);
  Owner.vprint(Code, true, Format, Args);
  va_end(Args);
  functions().push_back(Function);
  if (!isSameFunction())
    Owner.incrementIndent();
}

bool DebugPrint::isSameFunction() {
  const qo::vector<const char *> &Stack = functions();
  if (Stack.size() < 2)
    return false;
  return std::strcmp(Stack[Stack.size() - 1], Stack[Stack.size() - 2]) == 0;
}

std::size_t DebugPrint::depth() { return functions().size(); }

} // namespace nySupport
