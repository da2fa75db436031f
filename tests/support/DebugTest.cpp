#include "support/Debug.h"

#include "tests/support/EnabledCode.h"

#include "base/os/AppOutput.h"
#include "krcache/DebugChannel.h"
#include "transaction/Manager.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

using namespace nySupport;
using orbotest::EnabledCode;
using qoOS::AppOutput;

// Names (less their "Debug_" prefix) and labels by number, written out
// independently of the implementation's table: menus and saved settings
// depend on every one.
TEST(Debug, EveryCodeHasItsNameAndLabel) {
  std::istringstream Names(
      "Fab SymmetricBrushing AltDiagonalAlg DisplaySculptMeshEdges "
      "DisplayMeshVertexNormals DisplaySculptXsection DisplaySculptYsection "
      "DisplaySculptZsection DisplayChartColoring DisplaySkeletonAffinity "
      "DisplayFabSliceContours DrawBaseMesh DrawEdges DisplayCNetEntity "
      "Skeleton Tools Undo Resources Manips HUD HUD_Draw HUD_HitTest "
      "Selection Snapping HSTUpdate History HistoryNewPrune HistoryDebugFile "
      "DMA Tessellate Symmetry DMD HitTest DrawSelection Materials ANM "
      "AsyncTask CallStack1 CallStack2 Events Cursors GraphicsDraw RenCache "
      "RenDraw RenVBO Geometry GLWidget GL QTouch Silk");
  std::istringstream Labels(
      "Fabrication|SymmetricBrushing|Alt Diagonal Alg|Draw Sculpt Mesh Edges|"
      "Draw Mesh Vertex Normals|Draw X section Box center|"
      "Draw Y section Box center|Draw Z section Box center|"
      "Draw Sculpt Chart Coloring|Draw Skeleton Affinity|"
      "Draw Fab Slice Contours|Draw subdiv|Draw TopoMesh edges|"
      "Draw debug cnet info|Skeleton|Tools|Undo|Resources|Manips|HUD|"
      "HUD Draw|HUD HitTest|Selection|Snapping|HistoryUpdate|History|"
      "History New Prune Algorithm|History Debug File|DataModelAlg|"
      "Tessellation|Symmetry|DataModelDefn|HitTest|DrawSelection|Materials|"
      "Animation|AsyncTask|CallStack1|CallStack2|Events|Cursors|"
      "Graphics Draw|RenCache|RenDraw|RenVBO|Geometry|GLWidget|GL|QTouch|Silk");
  static_assert(Debug_Resources == 17 && Debug_Silk == 49);
  Debug &D = Debug::getInstance();
  std::uint32_t Count = 0;
  std::string Suffix, Label;
  for (; Names >> Suffix && std::getline(Labels, Label, '|'); ++Count) {
    const DebugCode Code = DebugCode(Count);
    const std::string Name = "Debug_" + Suffix;
    SCOPED_TRACE(Name);
    EXPECT_EQ(Debug::getCodeName(Code).view(), Name);
    EXPECT_EQ(Debug::describe(Code).view(), Label);
    EXPECT_EQ(D.findCodeByName(Name.c_str()), Code);
    EXPECT_EQ(D.channel(Code).name().view(), Name);
  }
  EXPECT_EQ(Count, NUM_CODES);
  EXPECT_TRUE(Labels.eof());
  EXPECT_EQ(Debug::describe(NUM_CODES).view(), "");
  EXPECT_EQ(Debug::describe(DebugCode(99)).view(), "~ unknown ~");
  EXPECT_EQ(Debug::getCodeName(NUM_CODES).view(), "NUM_CODES");
  EXPECT_EQ(Debug::getActionDescription(DebugAction(1)).view(),
            "Copy From iTunes");
  EXPECT_EQ(Debug::getActionDescription(DebugAction(2)).view(), "~ unknown ~");
}

// Debug_Resources also drives the cache's channel, already on when listeners
// hear of the change.
TEST(Debug, SwitchingSignalsEvenWithoutChangeAndMirrorsLowerChannels) {
  Debug &D = Debug::getInstance();
  const qoOS::DebugChannel &Cache = qoKRCache::debugChannel();
  std::vector<std::string> Heard;
  auto Connection = D.getSigChannelChanged().addCallback([&](DebugCode C) {
    Heard.push_back(std::string(Debug::getCodeName(C).view()) +
                    (D.isEnabled(C) ? " on" : " off") +
                    (Cache.isEnabled() ? ", cache on" : "") +
                    (nyTXN::undoChannel().isEnabled() ? ", txn on" : ""));
  });
  D.enable(Debug_Undo);
  D.enable(Debug_Undo);
  D.toggle(Debug_Undo);
  D.toggle(Debug_Resources);
  D.disable(Debug_Resources);
  D.toggle(Debug_Resources);
  D.toggle(Debug_Resources);
  Connection->disconnect();
  EXPECT_EQ(Heard, (std::vector<std::string>{
                       "Debug_Undo on, txn on", "Debug_Undo on, txn on",
                       "Debug_Undo off", "Debug_Resources on, cache on",
                       "Debug_Resources off", "Debug_Resources on, cache on",
                       "Debug_Resources off"}));
  EXPECT_FALSE(D.isEnabled(Debug_Tools));
}

// Text that arrives through the arguments is printed as it is; below zero
// the indentation is none.
TEST(Debug, PrintsIndentedThroughAnEnabledChannelOnly) {
  Debug &D = Debug::getInstance();
  AppOutput::Capture Out;
  D.print(Debug_Tools, "off %d", 1);
  EnabledCode Tools(Debug_Tools);
  D.incrementIndent();
  D.incrementIndent();
  D.print(Debug_Tools, "|%s|", "100%d");
  D.decrementIndent();
  D.print(Debug_Tools, "b\n");
  D.print(Debug_Undo, "other code");
  D.decrementIndent();
  D.decrementIndent();
  D.print(Debug_Tools, "c");
  D.incrementIndent();
  EXPECT_EQ(D.indent(), 0);
  EXPECT_EQ(Out.text(), "    |100%d|  b\nc");
}

TEST(Debug, ProvidedChannelTakesOverTheCode) {
  Debug &D = Debug::getInstance();
  qoOS::DebugChannel Mine("mine", true);
  AppOutput::Capture Out;
  D.provideChannel(Debug_HUD, Mine);
  EXPECT_TRUE(D.isEnabled(Debug_HUD)); // its own channel is off
  D.print(Debug_HUD, "x");
  D.disable(Debug_HUD);
  EXPECT_FALSE(Mine.isEnabled());
  D.print(Debug_HUD, "y");
  D.resetChannel(Debug_HUD);
  EXPECT_EQ(D.channel(Debug_HUD).name().view(), "Debug_HUD");
  EXPECT_EQ(Out.text(), "x");
}
