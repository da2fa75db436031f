//===- tests/support/EnabledCode.h - A debug code switched on for a test --===//
//
// The Debug singleton outlives every test in the program, so a test that
// switches a code on must leave it off and on its own channel again, whatever
// the test's outcome.
//
//===----------------------------------------------------------------------===//
#ifndef ORBO_TESTS_SUPPORT_ENABLEDCODE_H
#define ORBO_TESTS_SUPPORT_ENABLEDCODE_H

#include "support/Debug.h"

namespace orbotest {

class EnabledCode {
public:
  explicit EnabledCode(nySupport::DebugCode Code) : Code(Code) {
    nySupport::Debug::getInstance().enable(Code);
  }
  ~EnabledCode() {
    nySupport::Debug &D = nySupport::Debug::getInstance();
    D.resetChannel(Code);
    D.disable(Code);
  }
  EnabledCode(const EnabledCode &) = delete;
  EnabledCode &operator=(const EnabledCode &) = delete;

private:
  nySupport::DebugCode Code;
};

} // namespace orbotest

#endif // ORBO_TESTS_SUPPORT_ENABLEDCODE_H
