#include "support/Printf.h"

#include "base/os/AppOutput.h"
#include "support/Debug.h"

#include <gtest/gtest.h>

#include <cstdint>

TEST(Printf, PrintsWhateverTheDebugCodes) {
  nySupport::Debug &D = nySupport::Debug::getInstance();
  for (std::uint32_t C = 0; C != nySupport::NUM_CODES; ++C)
    ASSERT_FALSE(D.isEnabled(nySupport::DebugCode(C)));
  qoOS::AppOutput::Capture Out;
  D.incrementIndent();
  ny_printf("%d items, %s\n", 3, "100%");
  D.decrementIndent();
  EXPECT_EQ(Out.text(), "3 items, 100%\n");
}
