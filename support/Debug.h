//===- support/Debug.h - Numbered debug codes and their channels ----------===//
//
// nySupport::DebugCode numbers the application's fifty diagnostic subjects;
// each code has a name (the enumerator's spelling, for lookup by name), a
// label (for menus and logs) and its own qoOS::DebugChannel that is switched
// on and off at run time. nySupport::Debug is the process-wide table of those
// channels plus the indentation that nySupport::DebugPrint maintains.
//
// Lifetime: Debug::getInstance() creates the singleton on first use (guarded
// static initialisation) and it lives until exit. It owns one channel per
// code; provideChannel() substitutes a channel the caller owns and must keep
// alive until resetChannel() or exit. Everything but creation is meant for
// the main thread.
//
// Debug_Resources is tied to the resource cache: enable, disable and toggle
// of that code put qoKRCache::debugChannel() in the same state.
//
// Example:
//   nySupport::Debug &D = nySupport::Debug::getInstance();
//   D.getSigChannelChanged().addCallback(
//       [](nySupport::DebugCode C) { refreshMenu(C); });
//   D.enable(D.findCodeByName("Debug_Undo"));
//   D.print(nySupport::Debug_Undo, "undo depth %d\n", Depth);
//   D.describe(nySupport::Debug_Undo);   // "Undo"
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_DEBUG_H
#define NYSUPPORT_DEBUG_H

#include "base/Containers.h"
#include "base/os/DebugChannel.h"
#include "base/rtb/Signal.h"
#include "base/string/CString.h"

#include <cstdarg>
#include <cstdint>

namespace nySupport {

// The values are fixed: menus, settings and scripts refer to them by number.
enum DebugCode : std::uint32_t {
  Debug_Fab = 0,
  Debug_SymmetricBrushing = 1,
  Debug_AltDiagonalAlg = 2,
  Debug_DisplaySculptMeshEdges = 3,
  Debug_DisplayMeshVertexNormals = 4,
  Debug_DisplaySculptXsection = 5,
  Debug_DisplaySculptYsection = 6,
  Debug_DisplaySculptZsection = 7,
  Debug_DisplayChartColoring = 8,
  Debug_DisplaySkeletonAffinity = 9,
  Debug_DisplayFabSliceContours = 10,
  Debug_DrawBaseMesh = 11,
  Debug_DrawEdges = 12,
  Debug_DisplayCNetEntity = 13,
  Debug_Skeleton = 14,
  Debug_Tools = 15,
  Debug_Undo = 16,
  Debug_Resources = 17,
  Debug_Manips = 18,
  Debug_HUD = 19,
  Debug_HUD_Draw = 20,
  Debug_HUD_HitTest = 21,
  Debug_Selection = 22,
  Debug_Snapping = 23,
  Debug_HSTUpdate = 24,
  Debug_History = 25,
  Debug_HistoryNewPrune = 26,
  Debug_HistoryDebugFile = 27,
  Debug_DMA = 28,
  Debug_Tessellate = 29,
  Debug_Symmetry = 30,
  Debug_DMD = 31,
  Debug_HitTest = 32,
  Debug_DrawSelection = 33,
  Debug_Materials = 34,
  Debug_ANM = 35,
  Debug_AsyncTask = 36,
  Debug_CallStack1 = 37,
  Debug_CallStack2 = 38,
  Debug_Events = 39,
  Debug_Cursors = 40,
  Debug_GraphicsDraw = 41,
  Debug_RenCache = 42,
  Debug_RenDraw = 43,
  Debug_RenVBO = 44,
  Debug_Geometry = 45,
  Debug_GLWidget = 46,
  Debug_GL = 47,
  Debug_QTouch = 48,
  Debug_Silk = 49,
  NUM_CODES = 50,
};

// Developer actions offered beside the channels.
enum DebugAction : std::uint32_t {
  DebugAction_CopyToITunes = 0,
  DebugAction_CopyFromITunes = 1,
  NUM_DEBUG_ACTIONS = 2,
};

class Debug {
public:
  static Debug &getInstance();

  Debug(const Debug &) = delete;
  Debug &operator=(const Debug &) = delete;

  // Routes Code through Channel, which the caller keeps alive; the channel's
  // own on/off state is what isEnabled() reports from then on.
  void provideChannel(DebugCode Code, qoOS::DebugChannel &Channel);
  // Routes Code through its own channel again.
  void resetChannel(DebugCode Code);
  qoOS::DebugChannel &channel(DebugCode Code) const;

  bool isEnabled(DebugCode Code) const;
  // Each changes the channel, mirrors Debug_Resources onto the cache's
  // channel, then emits getSigChannelChanged() with Code (also when the
  // state did not change).
  void enable(DebugCode Code);
  void disable(DebugCode Code);
  void toggle(DebugCode Code);

  // The table's name by index: Code must be at most NUM_CODES.
  static qoString::CString getCodeName(DebugCode Code);
  // Name must be one of the fifty code names.
  DebugCode findCodeByName(const qoString::CString &Name) const;
  // The label, "" for NUM_CODES, "~ unknown ~" for anything outside the table.
  static qoString::CString describe(DebugCode Code);
  static qoString::CString getActionDescription(DebugAction Action);

  // Prints, when Code's channel is on, the formatted text after the current
  // indentation; print() adds no line end, vprint() one when Newline is set.
  void print(DebugCode Code, const char *Format, ...)
      __attribute__((format(printf, 3, 4)));
  void vprint(DebugCode Code, bool Newline, const char *Format, va_list Args)
      __attribute__((format(printf, 4, 0)));

  // Indentation in spaces, moved by two; DebugPrint drives it.
  void incrementIndent() { Indent += 2; }
  void decrementIndent() { Indent -= 2; }
  std::int32_t indent() const { return Indent; }

  qoRTB::SignalArg<DebugCode> &getSigChannelChanged() { return SigChanged; }
  // Emitted by the application, never by this layer.
  qoRTB::Signal &getSigCustom() { return SigCustom; }

private:
  Debug();
  ~Debug();

  void setEnabled(DebugCode Code, bool On);

  qoRTB::SignalArg<DebugCode> SigChanged;
  qoRTB::Signal SigCustom;
  qo::vector<qoOS::DebugChannel *> Channels;
  qo::vector<qoOS::DebugChannel> OwnChannels;
  qo::rbtree<qoString::CString, DebugCode> CodesByName;
  std::int32_t Indent = 0;
};

} // namespace nySupport

#endif // NYSUPPORT_DEBUG_H
