//===- support/Env.cpp - The environment variables the application reads --===//
//
// qoOS hands out copies of environment values, while env() promises a
// pointer. Each thread keeps the last value it read of every variable and
// replaces it only when the variable's value has changed, so a pointer stays
// good as long as the variable does, as it would from the C library.
//
//===----------------------------------------------------------------------===//
#include "support/Env.h"

#include "base/os/SysInfo.h"
#include "base/string/CString.h"

#include <array>
#include <iterator>

namespace nySupport {

namespace {

struct EnvRow {
  EnvVarCode Code;
  const char *Name;
};

constexpr EnvRow EnvTable[] = {
    {EnvVar_Debug, "NY_DEBUG"},
    {EnvVar_Platform, "NY_PLATFORM"},
    {EnvVar_Multitouch, "NY_MULTITOUCH"},
    {EnvVar_WantQtToolbar, "NY_WANT_QT_TOOLBAR"},
    {EnvVar_PacketFileDebug, "NY_PACKETFILE_DEBUG"},
    {EnvVar_NoLogo, "NY_NO_LOGO"},
    {EnvVar_DontStartMaximized, "NY_DONT_START_MAXIMIZED"},
    {EnvVar_PerfNumMeshes, "NY_PERF_NUM_MESHES"},
    {EnvVar_DefaultTool, "NY_DEFAULT_TOOL"},
    {EnvVar_MouseCameraTransition, "NY_MOUSE_CAMERA_TRANSITION"},
    {EnvVar_UndoLimit, "NY_UNDO_LIMIT"},
    {EnvVar_UndoMemoryLimit, "NY_UNDO_MEMORY_LIMIT"},
    {EnvVar_LuaInit, "NY_LUA_INIT"},
    {EnvVar_LuaPath, "NY_LUA_PATH"},
    {EnvVar_Graphics, "NY_GRAPHICS"},
};
static_assert(std::size(EnvTable) == NUM_ENV_VARS, "one row per variable");

} // namespace

const char *envName(const EnvVarCode &Code) {
  for (const EnvRow &Row : EnvTable)
    if (Row.Code == Code)
      return Row.Name;
  return nullptr;
}

const char *env(const EnvVarCode &Code) {
  const char *Name = envName(Code);
  if (!Name || !qoOS::hasenv(Name))
    return nullptr;
  thread_local std::array<qoString::CString, NUM_ENV_VARS> LastRead;
  qoString::CString &Kept = LastRead[Code];
  qoString::CString Value = qoOS::getenv(Name);
  if (Value.compare(Kept) != 0)
    Kept = std::move(Value);
  return Kept.c_str();
}

} // namespace nySupport
