#include "support/Debug.h"

#include "tests/support/EnabledCode.h"

#include "base/os/AppOutput.h"
#include "krcache/DebugChannel.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <vector>

using namespace nySupport;
using orbotest::EnabledCode;
using qoOS::AppOutput;

namespace {

struct CodeRow {
  DebugCode Code;
  const char *Name;
  const char *Label;
};

// Written out independently of the implementation's table: menus and saved
// settings depend on every number, name and label.
const CodeRow ExpectedCodes[] = {
    {DebugCode(0), "Debug_Fab", "Fabrication"},
    {DebugCode(1), "Debug_SymmetricBrushing", "SymmetricBrushing"},
    {DebugCode(2), "Debug_AltDiagonalAlg", "Alt Diagonal Alg"},
    {DebugCode(3), "Debug_DisplaySculptMeshEdges", "Draw Sculpt Mesh Edges"},
    {DebugCode(4), "Debug_DisplayMeshVertexNormals",
     "Draw Mesh Vertex Normals"},
    {DebugCode(5), "Debug_DisplaySculptXsection", "Draw X section Box center"},
    {DebugCode(6), "Debug_DisplaySculptYsection", "Draw Y section Box center"},
    {DebugCode(7), "Debug_DisplaySculptZsection", "Draw Z section Box center"},
    {DebugCode(8), "Debug_DisplayChartColoring", "Draw Sculpt Chart Coloring"},
    {DebugCode(9), "Debug_DisplaySkeletonAffinity", "Draw Skeleton Affinity"},
    {DebugCode(10), "Debug_DisplayFabSliceContours", "Draw Fab Slice Contours"},
    {DebugCode(11), "Debug_DrawBaseMesh", "Draw subdiv"},
    {DebugCode(12), "Debug_DrawEdges", "Draw TopoMesh edges"},
    {DebugCode(13), "Debug_DisplayCNetEntity", "Draw debug cnet info"},
    {DebugCode(14), "Debug_Skeleton", "Skeleton"},
    {DebugCode(15), "Debug_Tools", "Tools"},
    {DebugCode(16), "Debug_Undo", "Undo"},
    {DebugCode(17), "Debug_Resources", "Resources"},
    {DebugCode(18), "Debug_Manips", "Manips"},
    {DebugCode(19), "Debug_HUD", "HUD"},
    {DebugCode(20), "Debug_HUD_Draw", "HUD Draw"},
    {DebugCode(21), "Debug_HUD_HitTest", "HUD HitTest"},
    {DebugCode(22), "Debug_Selection", "Selection"},
    {DebugCode(23), "Debug_Snapping", "Snapping"},
    {DebugCode(24), "Debug_HSTUpdate", "HistoryUpdate"},
    {DebugCode(25), "Debug_History", "History"},
    {DebugCode(26), "Debug_HistoryNewPrune", "History New Prune Algorithm"},
    {DebugCode(27), "Debug_HistoryDebugFile", "History Debug File"},
    {DebugCode(28), "Debug_DMA", "DataModelAlg"},
    {DebugCode(29), "Debug_Tessellate", "Tessellation"},
    {DebugCode(30), "Debug_Symmetry", "Symmetry"},
    {DebugCode(31), "Debug_DMD", "DataModelDefn"},
    {DebugCode(32), "Debug_HitTest", "HitTest"},
    {DebugCode(33), "Debug_DrawSelection", "DrawSelection"},
    {DebugCode(34), "Debug_Materials", "Materials"},
    {DebugCode(35), "Debug_ANM", "Animation"},
    {DebugCode(36), "Debug_AsyncTask", "AsyncTask"},
    {DebugCode(37), "Debug_CallStack1", "CallStack1"},
    {DebugCode(38), "Debug_CallStack2", "CallStack2"},
    {DebugCode(39), "Debug_Events", "Events"},
    {DebugCode(40), "Debug_Cursors", "Cursors"},
    {DebugCode(41), "Debug_GraphicsDraw", "Graphics Draw"},
    {DebugCode(42), "Debug_RenCache", "RenCache"},
    {DebugCode(43), "Debug_RenDraw", "RenDraw"},
    {DebugCode(44), "Debug_RenVBO", "RenVBO"},
    {DebugCode(45), "Debug_Geometry", "Geometry"},
    {DebugCode(46), "Debug_GLWidget", "GLWidget"},
    {DebugCode(47), "Debug_GL", "GL"},
    {DebugCode(48), "Debug_QTouch", "QTouch"},
    {DebugCode(49), "Debug_Silk", "Silk"},
};

} // namespace

TEST(Debug, EveryCodeHasItsNameAndLabel) {
  static_assert(NUM_CODES == 50 && Debug_Silk == 49 && Debug_Resources == 17);
  ASSERT_EQ(std::size(ExpectedCodes), std::size_t(NUM_CODES));
  Debug &D = Debug::getInstance();
  for (const CodeRow &Row : ExpectedCodes) {
    SCOPED_TRACE(Row.Name);
    EXPECT_EQ(Debug::getCodeName(Row.Code).view(), Row.Name);
    EXPECT_EQ(Debug::describe(Row.Code).view(), Row.Label);
    EXPECT_EQ(D.findCodeByName(Row.Name), Row.Code);
    EXPECT_EQ(D.channel(Row.Code).name().view(), Row.Name);
  }
}

TEST(Debug, DescribeOutsideTheCodes) {
  EXPECT_EQ(Debug::describe(NUM_CODES).view(), "");
  EXPECT_EQ(Debug::describe(DebugCode(99)).view(), "~ unknown ~");
  EXPECT_EQ(Debug::getCodeName(NUM_CODES).view(), "NUM_CODES");
}

TEST(Debug, ActionDescriptions) {
  EXPECT_EQ(Debug::getActionDescription(DebugAction(0)).view(),
            "Copy To iTunes");
  EXPECT_EQ(Debug::getActionDescription(DebugAction(1)).view(),
            "Copy From iTunes");
  EXPECT_EQ(Debug::getActionDescription(DebugAction(2)).view(), "~ unknown ~");
}

TEST(Debug, SwitchingEmitsTheCodeEvenWithoutChange) {
  Debug &D = Debug::getInstance();
  std::vector<DebugCode> Changed;
  auto Connection = D.getSigChannelChanged().addCallback(
      [&](DebugCode C) { Changed.push_back(C); });
  {
    EnabledCode Undo(Debug_Undo);
    EXPECT_TRUE(D.isEnabled(Debug_Undo));
    D.enable(Debug_Undo);
    D.toggle(Debug_Undo);
    EXPECT_FALSE(D.isEnabled(Debug_Undo));
    D.toggle(Debug_Undo);
    EXPECT_TRUE(D.isEnabled(Debug_Undo));
    EXPECT_FALSE(D.isEnabled(Debug_Tools));
  }
  EXPECT_FALSE(D.isEnabled(Debug_Undo));
  Connection->disconnect();
  // enable, enable, toggle, toggle, and the guard's disable.
  EXPECT_EQ(Changed, std::vector<DebugCode>(5, Debug_Undo));
}

TEST(Debug, ResourcesCodeDrivesTheCacheChannel) {
  Debug &D = Debug::getInstance();
  qoOS::DebugChannel &Cache = qoKRCache::debugChannel();
  ASSERT_FALSE(Cache.isEnabled());
  bool CacheOnWhenSignalled = false;
  auto Connection = D.getSigChannelChanged().addCallback(
      [&](DebugCode) { CacheOnWhenSignalled = Cache.isEnabled(); });

  D.enable(Debug_Resources);
  EXPECT_TRUE(D.isEnabled(Debug_Resources));
  EXPECT_TRUE(Cache.isEnabled());
  EXPECT_TRUE(CacheOnWhenSignalled);
  D.disable(Debug_Resources);
  EXPECT_FALSE(D.isEnabled(Debug_Resources));
  EXPECT_FALSE(Cache.isEnabled());
  D.toggle(Debug_Resources);
  EXPECT_TRUE(Cache.isEnabled());
  D.toggle(Debug_Resources);
  EXPECT_FALSE(Cache.isEnabled());

  D.enable(Debug_Undo);
  EXPECT_FALSE(Cache.isEnabled());
  D.disable(Debug_Undo);
  Connection->disconnect();
}

TEST(Debug, PrintsOnlyThroughAnEnabledChannel) {
  Debug &D = Debug::getInstance();
  AppOutput::Capture Out;
  D.print(Debug_Tools, "off %d", 1);
  EXPECT_EQ(Out.text(), "");

  EnabledCode Tools(Debug_Tools);
  D.print(Debug_Tools, "on %d", 2);
  // Text that arrives through the arguments is printed as it is.
  D.print(Debug_Tools, "|%s|", "100%d");
  D.print(Debug_Undo, "other code");
  EXPECT_EQ(Out.text(), "on 2|100%d|");
}

TEST(Debug, PrintIndentsAndVprintEndsTheLine) {
  Debug &D = Debug::getInstance();
  EnabledCode Tools(Debug_Tools);
  AppOutput::Capture Out;
  ASSERT_EQ(D.indent(), 0);
  D.incrementIndent();
  D.incrementIndent();
  D.print(Debug_Tools, "a");
  D.decrementIndent();
  D.print(Debug_Tools, "b\n");
  D.decrementIndent();
  D.decrementIndent();
  // Below zero the text simply starts at the margin.
  D.print(Debug_Tools, "c");
  D.incrementIndent();
  EXPECT_EQ(D.indent(), 0);
  EXPECT_EQ(Out.text(), "    a  b\nc");
}

TEST(Debug, ProvidedChannelTakesOverTheCode) {
  Debug &D = Debug::getInstance();
  qoOS::DebugChannel Mine("mine", true);
  AppOutput::Capture Out;
  {
    EnabledCode Guard(Debug_HUD);
    D.disable(Debug_HUD);
    D.provideChannel(Debug_HUD, Mine);
    EXPECT_TRUE(D.isEnabled(Debug_HUD));
    EXPECT_EQ(&D.channel(Debug_HUD), &Mine);
    D.print(Debug_HUD, "x");
    D.disable(Debug_HUD);
    EXPECT_FALSE(Mine.isEnabled());
    D.print(Debug_HUD, "y");
    D.enable(Debug_HUD);
    EXPECT_TRUE(Mine.isEnabled());
  }
  // The guard reset the code to its own channel, which is off.
  EXPECT_FALSE(D.isEnabled(Debug_HUD));
  EXPECT_EQ(D.channel(Debug_HUD).name().view(), "Debug_HUD");
  EXPECT_EQ(Out.text(), "x");
}
