#include "support/DebugPrint.h"

#include "tests/support/EnabledCode.h"

#include "base/os/AppOutput.h"

#include <gtest/gtest.h>

#include <string>

using namespace nySupport;
using orbotest::EnabledCode;
using qoOS::AppOutput;

namespace {

// Each trace helper prints once on entry, like the layer's own functions.
void leaf(const char *Name) {
  DebugPrint Trace(Name, Debug_Cursors);
  Trace("%s", Name);
}

void branch(const char *Name, const char *Child) {
  DebugPrint Trace(Name, Debug_Cursors);
  Trace("%s {", Name);
  leaf(Child);
  leaf(Child);
}

void expectBalanced() {
  EXPECT_EQ(DebugPrint::depth(), 0u);
  EXPECT_EQ(Debug::getInstance().indent(), 0);
}

} // namespace

// A scope that never prints, at top level, leaves the indentation alone; text
// that arrives through the arguments is not formatted again. Names are
// compared as strings: the same function reached through another pointer
// (another translation unit's literal) still counts as a recursion.
TEST(DebugPrint, NestedScopesIndentByTwoExceptRecursion) {
  EnabledCode Cursors(Debug_Cursors);
  AppOutput::Capture Out;
  char SameName[] = "outer";
  { DebugPrint Silent("silent", Debug_Cursors); }
  {
    DebugPrint Trace("outer", Debug_Cursors);
    Trace("outer %s %.02f", "50%s", 1.5);
    EXPECT_FALSE(DebugPrint::isSameFunction());
    branch("middle", "inner");
    {
      DebugPrint Again(SameName, Debug_Cursors);
      Again("again");
      EXPECT_TRUE(DebugPrint::isSameFunction());
      leaf("callee");
    }
    leaf("sibling");
  }
  leaf("after");
  EXPECT_EQ(Out.text(), "outer 50%s 1.50\n"
                        "  middle {\n"
                        "    inner\n"
                        "    inner\n"
                        "  again\n"
                        "  callee\n"
                        "  sibling\n"
                        "after\n");
  expectBalanced();
}

TEST(DebugPrint, StateIsSampledAtConstruction) {
  AppOutput::Capture Out;
  {
    DebugPrint Trace("late", Debug_Cursors);
    EnabledCode Cursors(Debug_Cursors);
    EXPECT_FALSE(Trace.isEnabled());
    Trace("not printed");
    leaf("printed");
  }
  EXPECT_EQ(Out.text(), "printed\n");
  expectBalanced();
}
