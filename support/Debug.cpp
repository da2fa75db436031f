//===- support/Debug.cpp - Numbered debug codes and their channels --------===//
//
// Channels[i] always points at a live channel for code i: OwnChannels[i]
// unless a caller provided another. OwnChannels is filled once in the
// constructor and never resized, so those pointers stay valid. The code table
// has one row per code plus the NUM_CODES row; describe() scans it by code
// value, getCodeName() indexes it.
//
//===----------------------------------------------------------------------===//
#include "support/Debug.h"

#include "krcache/DebugChannel.h"
#include "transaction/Manager.h"

#include <cassert>
#include <iterator>
#include <string>

namespace nySupport {

namespace {

struct CodeRow {
  DebugCode Code;
  const char *Name;
  const char *Label;
};

constexpr CodeRow CodeTable[] = {
    {Debug_Fab, "Debug_Fab", "Fabrication"},
    {Debug_SymmetricBrushing, "Debug_SymmetricBrushing", "SymmetricBrushing"},
    {Debug_AltDiagonalAlg, "Debug_AltDiagonalAlg", "Alt Diagonal Alg"},
    {Debug_DisplaySculptMeshEdges, "Debug_DisplaySculptMeshEdges",
     "Draw Sculpt Mesh Edges"},
    {Debug_DisplayMeshVertexNormals, "Debug_DisplayMeshVertexNormals",
     "Draw Mesh Vertex Normals"},
    {Debug_DisplaySculptXsection, "Debug_DisplaySculptXsection",
     "Draw X section Box center"},
    {Debug_DisplaySculptYsection, "Debug_DisplaySculptYsection",
     "Draw Y section Box center"},
    {Debug_DisplaySculptZsection, "Debug_DisplaySculptZsection",
     "Draw Z section Box center"},
    {Debug_DisplayChartColoring, "Debug_DisplayChartColoring",
     "Draw Sculpt Chart Coloring"},
    {Debug_DisplaySkeletonAffinity, "Debug_DisplaySkeletonAffinity",
     "Draw Skeleton Affinity"},
    {Debug_DisplayFabSliceContours, "Debug_DisplayFabSliceContours",
     "Draw Fab Slice Contours"},
    {Debug_DrawBaseMesh, "Debug_DrawBaseMesh", "Draw subdiv"},
    {Debug_DrawEdges, "Debug_DrawEdges", "Draw TopoMesh edges"},
    {Debug_DisplayCNetEntity, "Debug_DisplayCNetEntity",
     "Draw debug cnet info"},
    {Debug_Skeleton, "Debug_Skeleton", "Skeleton"},
    {Debug_Tools, "Debug_Tools", "Tools"},
    {Debug_Undo, "Debug_Undo", "Undo"},
    {Debug_Resources, "Debug_Resources", "Resources"},
    {Debug_Manips, "Debug_Manips", "Manips"},
    {Debug_HUD, "Debug_HUD", "HUD"},
    {Debug_HUD_Draw, "Debug_HUD_Draw", "HUD Draw"},
    {Debug_HUD_HitTest, "Debug_HUD_HitTest", "HUD HitTest"},
    {Debug_Selection, "Debug_Selection", "Selection"},
    {Debug_Snapping, "Debug_Snapping", "Snapping"},
    {Debug_HSTUpdate, "Debug_HSTUpdate", "HistoryUpdate"},
    {Debug_History, "Debug_History", "History"},
    {Debug_HistoryNewPrune, "Debug_HistoryNewPrune",
     "History New Prune Algorithm"},
    {Debug_HistoryDebugFile, "Debug_HistoryDebugFile", "History Debug File"},
    {Debug_DMA, "Debug_DMA", "DataModelAlg"},
    {Debug_Tessellate, "Debug_Tessellate", "Tessellation"},
    {Debug_Symmetry, "Debug_Symmetry", "Symmetry"},
    {Debug_DMD, "Debug_DMD", "DataModelDefn"},
    {Debug_HitTest, "Debug_HitTest", "HitTest"},
    {Debug_DrawSelection, "Debug_DrawSelection", "DrawSelection"},
    {Debug_Materials, "Debug_Materials", "Materials"},
    {Debug_ANM, "Debug_ANM", "Animation"},
    {Debug_AsyncTask, "Debug_AsyncTask", "AsyncTask"},
    {Debug_CallStack1, "Debug_CallStack1", "CallStack1"},
    {Debug_CallStack2, "Debug_CallStack2", "CallStack2"},
    {Debug_Events, "Debug_Events", "Events"},
    {Debug_Cursors, "Debug_Cursors", "Cursors"},
    {Debug_GraphicsDraw, "Debug_GraphicsDraw", "Graphics Draw"},
    {Debug_RenCache, "Debug_RenCache", "RenCache"},
    {Debug_RenDraw, "Debug_RenDraw", "RenDraw"},
    {Debug_RenVBO, "Debug_RenVBO", "RenVBO"},
    {Debug_Geometry, "Debug_Geometry", "Geometry"},
    {Debug_GLWidget, "Debug_GLWidget", "GLWidget"},
    {Debug_GL, "Debug_GL", "GL"},
    {Debug_QTouch, "Debug_QTouch", "QTouch"},
    {Debug_Silk, "Debug_Silk", "Silk"},
    {NUM_CODES, "NUM_CODES", ""},
};
static_assert(std::size(CodeTable) == NUM_CODES + 1,
              "one row per code plus the NUM_CODES row");

struct ActionRow {
  DebugAction Action;
  const char *Description;
};

constexpr ActionRow ActionTable[] = {
    {DebugAction_CopyToITunes, "Copy To iTunes"},
    {DebugAction_CopyFromITunes, "Copy From iTunes"},
};

constexpr const char *Unknown = "~ unknown ~";

} // namespace

Debug &Debug::getInstance() {
  static Debug Instance;
  return Instance;
}

Debug::Debug() {
  // Standard output is where AppOutput starts; nothing to open here.
  OwnChannels.reserve(NUM_CODES);
  Channels.reserve(NUM_CODES);
  for (std::uint32_t I = 0; I != NUM_CODES; ++I) {
    const CodeRow &Row = CodeTable[I];
    OwnChannels.emplace_back(Row.Name);
    CodesByName.emplace(Row.Name, Row.Code);
  }
  for (qoOS::DebugChannel &Own : OwnChannels)
    Channels.push_back(&Own);
}

Debug::~Debug() = default;

void Debug::provideChannel(DebugCode Code, qoOS::DebugChannel &Channel) {
  assert(Code < NUM_CODES && "debug code out of range");
  Channels[Code] = &Channel;
}

void Debug::resetChannel(DebugCode Code) {
  assert(Code < NUM_CODES && "debug code out of range");
  Channels[Code] = &OwnChannels[Code];
}

qoOS::DebugChannel &Debug::channel(DebugCode Code) const {
  assert(Code < NUM_CODES && "debug code out of range");
  return *Channels[Code];
}

bool Debug::isEnabled(DebugCode Code) const {
  return channel(Code).isEnabled();
}

void Debug::enable(DebugCode Code) { setEnabled(Code, true); }

void Debug::disable(DebugCode Code) { setEnabled(Code, false); }

void Debug::toggle(DebugCode Code) { setEnabled(Code, !isEnabled(Code)); }

void Debug::setEnabled(DebugCode Code, bool On) {
  qoOS::DebugChannel &Target = channel(Code);
  On ? Target.enable() : Target.disable();
  // The cache and the transaction library print on channels of their own,
  // below this layer; their codes switch them too.
  if (Code == Debug_Resources) {
    qoOS::DebugChannel &Cache = qoKRCache::debugChannel();
    On ? Cache.enable() : Cache.disable();
  }
  if (Code == Debug_Undo) {
    qoOS::DebugChannel &Undo = nyTXN::undoChannel();
    On ? Undo.enable() : Undo.disable();
  }
  SigChanged.emit(Code);
}

qoString::CString Debug::getCodeName(DebugCode Code) {
  assert(Code <= NUM_CODES && "debug code out of range");
  return CodeTable[Code].Name;
}

DebugCode Debug::findCodeByName(const qoString::CString &Name) const {
  auto Found = CodesByName.find(Name);
  assert(Found != CodesByName.end() && "no debug code of that name");
  return Found == CodesByName.end() ? NUM_CODES : Found->second;
}

qoString::CString Debug::describe(DebugCode Code) {
  for (const CodeRow &Row : CodeTable)
    if (Row.Code == Code)
      return Row.Label;
  return Unknown;
}

qoString::CString Debug::getActionDescription(DebugAction Action) {
  for (const ActionRow &Row : ActionTable)
    if (Row.Action == Action)
      return Row.Description;
  return Unknown;
}

void Debug::print(DebugCode Code, const char *Format, ...) {
  va_list Args;
  va_start(Args, Format);
  vprint(Code, false, Format, Args);
  va_end(Args);
}

void Debug::vprint(DebugCode Code, bool Newline, const char *Format,
                   va_list Args) {
  qoOS::DebugChannel &Target = channel(Code);
  if (!Target.isEnabled())
    return;
  // A stray extra decrement must not turn into a huge unsigned count.
  std::string Line(Indent > 0 ? static_cast<std::size_t>(Indent) : 0, ' ');
  Line += qoString::CString::vformat(Format, Args).str();
  if (Newline)
    Line += '\n';
  Target.print("%s", Line.c_str());
}

} // namespace nySupport
