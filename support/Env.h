//===- support/Env.h - The environment variables the application reads ----===//
//
// nySupport::env looks a developer setting up by code in a fixed table of
// fifteen variables, "NY_DEBUG" to "NY_GRAPHICS". This layer gives the
// variables no meaning, default or format: whoever reads one decides. Nothing
// is cached, so a variable changed with setenv is seen by the next call.
//
// Lifetime: the returned text stays valid on the calling thread until the
// variable's value changes and env() reads it again; copy it to keep it.
//
// Example:
//   if (const char *Limit = nySupport::env(nySupport::EnvVar_UndoLimit))
//     Manager.setUndoLimit(std::atoi(Limit));
//   if (nySupport::env(nySupport::EnvVar_NoLogo))
//     skipLogo();
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_ENV_H
#define NYSUPPORT_ENV_H

#include <cstdint>

namespace nySupport {

// The values are fixed; each names the variable beside it.
enum EnvVarCode : std::uint32_t {
  EnvVar_Debug = 0,                 // "NY_DEBUG"
  EnvVar_Platform = 1,              // "NY_PLATFORM"
  EnvVar_Multitouch = 2,            // "NY_MULTITOUCH"
  EnvVar_WantQtToolbar = 3,         // "NY_WANT_QT_TOOLBAR"
  EnvVar_PacketFileDebug = 4,       // "NY_PACKETFILE_DEBUG"
  EnvVar_NoLogo = 5,                // "NY_NO_LOGO"
  EnvVar_DontStartMaximized = 6,    // "NY_DONT_START_MAXIMIZED"
  EnvVar_PerfNumMeshes = 7,         // "NY_PERF_NUM_MESHES"
  EnvVar_DefaultTool = 8,           // "NY_DEFAULT_TOOL"
  EnvVar_MouseCameraTransition = 9, // "NY_MOUSE_CAMERA_TRANSITION"
  EnvVar_UndoLimit = 10,            // "NY_UNDO_LIMIT"
  EnvVar_UndoMemoryLimit = 11,      // "NY_UNDO_MEMORY_LIMIT"
  EnvVar_LuaInit = 12,              // "NY_LUA_INIT"
  EnvVar_LuaPath = 13,              // "NY_LUA_PATH"
  EnvVar_Graphics = 14,             // "NY_GRAPHICS"
  NUM_ENV_VARS = 15,
};

// The variable's value, or null when it is unset or Code is not in the table.
const char *env(const EnvVarCode &Code);

// The variable's name, or null when Code is not in the table.
const char *envName(const EnvVarCode &Code);

} // namespace nySupport

#endif // NYSUPPORT_ENV_H
