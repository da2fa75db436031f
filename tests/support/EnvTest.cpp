#include "support/Env.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iterator>
#include <optional>
#include <string>

using namespace nySupport;

namespace {

struct EnvRow {
  EnvVarCode Code;
  const char *Name;
};

const EnvRow ExpectedVariables[] = {
    {EnvVarCode(0), "NY_DEBUG"},
    {EnvVarCode(1), "NY_PLATFORM"},
    {EnvVarCode(2), "NY_MULTITOUCH"},
    {EnvVarCode(3), "NY_WANT_QT_TOOLBAR"},
    {EnvVarCode(4), "NY_PACKETFILE_DEBUG"},
    {EnvVarCode(5), "NY_NO_LOGO"},
    {EnvVarCode(6), "NY_DONT_START_MAXIMIZED"},
    {EnvVarCode(7), "NY_PERF_NUM_MESHES"},
    {EnvVarCode(8), "NY_DEFAULT_TOOL"},
    {EnvVarCode(9), "NY_MOUSE_CAMERA_TRANSITION"},
    {EnvVarCode(10), "NY_UNDO_LIMIT"},
    {EnvVarCode(11), "NY_UNDO_MEMORY_LIMIT"},
    {EnvVarCode(12), "NY_LUA_INIT"},
    {EnvVarCode(13), "NY_LUA_PATH"},
    {EnvVarCode(14), "NY_GRAPHICS"},
};

// Puts a variable back as the test found it.
class SavedVariable {
public:
  explicit SavedVariable(const char *Name) : Name(Name) {
    if (const char *Value = std::getenv(Name))
      Saved = Value;
  }
  ~SavedVariable() {
    if (Saved)
      ::setenv(Name, Saved->c_str(), 1);
    else
      ::unsetenv(Name);
  }
  SavedVariable(const SavedVariable &) = delete;
  SavedVariable &operator=(const SavedVariable &) = delete;

private:
  const char *Name;
  std::optional<std::string> Saved;
};

} // namespace

TEST(Env, EachCodeReadsItsVariable) {
  static_assert(NUM_ENV_VARS == 15 && EnvVar_LuaInit == 12);
  ASSERT_EQ(std::size(ExpectedVariables), std::size_t(NUM_ENV_VARS));
  for (const EnvRow &Row : ExpectedVariables) {
    SCOPED_TRACE(Row.Name);
    SavedVariable Guard(Row.Name);
    EXPECT_STREQ(envName(Row.Code), Row.Name);
    ::unsetenv(Row.Name);
    EXPECT_EQ(env(Row.Code), nullptr);
    const std::string Value = std::string("value of ") + Row.Name;
    ::setenv(Row.Name, Value.c_str(), 1);
    EXPECT_STREQ(env(Row.Code), Value.c_str());
  }
}

TEST(Env, ValuesAreReadAfreshEveryCall) {
  SavedVariable Guard("NY_LUA_INIT");
  ::setenv("NY_LUA_INIT", "first.lua", 1);
  const char *First = env(EnvVar_LuaInit);
  EXPECT_STREQ(First, "first.lua");
  // Reading an unchanged variable again keeps earlier pointers good.
  EXPECT_STREQ(env(EnvVar_LuaInit), "first.lua");
  EXPECT_STREQ(First, "first.lua");

  ::setenv("NY_LUA_INIT", "", 1);
  ASSERT_NE(env(EnvVar_LuaInit), nullptr);
  EXPECT_STREQ(env(EnvVar_LuaInit), "");
  ::setenv("NY_LUA_INIT", "second.lua", 1);
  EXPECT_STREQ(env(EnvVar_LuaInit), "second.lua");
  ::unsetenv("NY_LUA_INIT");
  EXPECT_EQ(env(EnvVar_LuaInit), nullptr);
}

TEST(Env, CodesOutsideTheTableGiveNull) {
  EXPECT_EQ(env(NUM_ENV_VARS), nullptr);
  EXPECT_EQ(env(EnvVarCode(99)), nullptr);
  EXPECT_EQ(envName(EnvVarCode(99)), nullptr);
}
