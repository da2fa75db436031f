#include "support/Printf.h"

#include "base/os/AppOutput.h"
#include "support/Debug.h"

#include <gtest/gtest.h>

// No debug code is on, and the indentation does not apply.
TEST(Printf, PrintsWhateverTheDebugCodes) {
  nySupport::Debug &D = nySupport::Debug::getInstance();
  qoOS::AppOutput::Capture Out;
  D.incrementIndent();
  ny_printf("%d items, %s\n", 3, "100%");
  D.decrementIndent();
  EXPECT_EQ(Out.text(), "3 items, 100%\n");
}
