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

TEST(DebugPrint, NestedScopesIndentByTwo) {
  EnabledCode Cursors(Debug_Cursors);
  AppOutput::Capture Out;
  {
    DebugPrint Trace("outer", Debug_Cursors);
    Trace("outer %d", 1);
    branch("middle", "inner");
    leaf("sibling");
  }
  leaf("after");
  EXPECT_EQ(Out.text(), "outer 1\n"
                        "  middle {\n"
                        "    inner\n"
                        "    inner\n"
                        "  sibling\n"
                        "after\n");
  expectBalanced();
}

// Names are compared as strings: the same function reached through another
// pointer (another translation unit's literal) still counts as a recursion.
TEST(DebugPrint, SameFunctionNestedDoesNotIndentFurther) {
  EnabledCode Cursors(Debug_Cursors);
  AppOutput::Capture Out;
  char SameName[] = "recurse";
  {
    DebugPrint First("recurse", Debug_Cursors);
    First("first");
    EXPECT_FALSE(DebugPrint::isSameFunction());
    {
      DebugPrint Second(SameName, Debug_Cursors);
      Second("second");
      EXPECT_TRUE(DebugPrint::isSameFunction());
      leaf("callee");
    }
    leaf("back");
  }
  EXPECT_EQ(Out.text(), "first\n"
                        "  second\n"
                        "  callee\n"
                        "  back\n");
  expectBalanced();
}

TEST(DebugPrint, StateIsSampledAtConstruction) {
  AppOutput::Capture Out;
  {
    DebugPrint Trace("late", Debug_Cursors);
    EnabledCode Cursors(Debug_Cursors);
    EXPECT_FALSE(Trace.isEnabled());
    Trace("not printed");
    EXPECT_EQ(DebugPrint::depth(), 0u);
    leaf("printed");
  }
  EXPECT_EQ(Out.text(), "printed\n");
  expectBalanced();
}

TEST(DebugPrint, UnusedScopeAtTopLevelLeavesIndentAlone) {
  EnabledCode Cursors(Debug_Cursors);
  AppOutput::Capture Out;
  { DebugPrint Silent("silent", Debug_Cursors); }
  leaf("next");
  EXPECT_EQ(Out.text(), "next\n");
  expectBalanced();
}

TEST(DebugPrint, ArgumentsAreNotReformatted) {
  EnabledCode Cursors(Debug_Cursors);
  AppOutput::Capture Out;
  {
    DebugPrint Trace("format", Debug_Cursors);
    Trace("%s at %.02f", "50%s", 1.5);
  }
  EXPECT_EQ(Out.text(), "50%s at 1.50\n");
  expectBalanced();
}
