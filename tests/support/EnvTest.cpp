#include "support/Env.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <optional>
#include <sstream>
#include <string>

using namespace nySupport;

// Values are read afresh on every call, so a changed variable shows at once.
TEST(Env, EachCodeReadsItsVariable) {
  std::istringstream Suffixes(
      "DEBUG PLATFORM MULTITOUCH WANT_QT_TOOLBAR PACKETFILE_DEBUG NO_LOGO "
      "DONT_START_MAXIMIZED PERF_NUM_MESHES DEFAULT_TOOL "
      "MOUSE_CAMERA_TRANSITION UNDO_LIMIT UNDO_MEMORY_LIMIT LUA_INIT LUA_PATH "
      "GRAPHICS");
  std::uint32_t Count = 0;
  for (std::string Suffix; Suffixes >> Suffix; ++Count) {
    const std::string Name = "NY_" + Suffix;
    const EnvVarCode Code = EnvVarCode(Count);
    SCOPED_TRACE(Name);
    const char *Found = std::getenv(Name.c_str());
    const std::optional<std::string> Saved =
        Found ? std::optional<std::string>(Found) : std::nullopt;
    EXPECT_STREQ(envName(Code), Name.c_str());
    ::unsetenv(Name.c_str());
    EXPECT_EQ(env(Code), nullptr);
    ::setenv(Name.c_str(), "", 1);
    EXPECT_STREQ(env(Code), "");
    const std::string Value = "value of " + Name;
    ::setenv(Name.c_str(), Value.c_str(), 1);
    const char *First = env(Code);
    EXPECT_STREQ(env(Code), Value.c_str());
    EXPECT_STREQ(First, Value.c_str()); // an earlier result stays good
    if (Saved)
      ::setenv(Name.c_str(), Saved->c_str(), 1);
    else
      ::unsetenv(Name.c_str());
  }
  EXPECT_EQ(Count, NUM_ENV_VARS);
  static_assert(EnvVar_LuaInit == 12);
  EXPECT_EQ(env(NUM_ENV_VARS), nullptr);
  EXPECT_EQ(env(EnvVarCode(99)), nullptr);
  EXPECT_EQ(envName(EnvVarCode(99)), nullptr);
}
