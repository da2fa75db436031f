#include "tests/common/TestSupport.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace orbotest {

TempDir::TempDir() {
  std::string Pattern =
      (std::filesystem::temp_directory_path() / "orbo-test-XXXXXX").string();
  if (!mkdtemp(Pattern.data()))
    throw std::runtime_error("mkdtemp failed");
  Path = Pattern;
}

TempDir::~TempDir() {
  std::error_code Ignored;
  std::filesystem::permissions(Path, std::filesystem::perms::owner_all,
                               std::filesystem::perm_options::add, Ignored);
  std::filesystem::remove_all(Path, Ignored);
}

std::filesystem::path sharedPath(const std::string &Relative) {
  return std::filesystem::path(ORBO_SHARED_DIR) / Relative;
}

std::filesystem::path sourcePath(const std::string &Relative) {
  return std::filesystem::path(ORBO_SOURCE_DIR) / Relative;
}

std::string readFile(const std::filesystem::path &Path) {
  std::ifstream In(Path, std::ios::binary);
  if (!In)
    throw std::runtime_error("cannot read " + Path.string());
  std::ostringstream Bytes;
  Bytes << In.rdbuf();
  return Bytes.str();
}

void writeFile(const std::filesystem::path &Path, const std::string &Bytes) {
  std::ofstream Out(Path, std::ios::binary | std::ios::trunc);
  Out.write(Bytes.data(), static_cast<std::streamsize>(Bytes.size()));
  if (!Out)
    throw std::runtime_error("cannot write " + Path.string());
}

ToolResult runTool(const std::vector<std::string> &Args,
                   const std::string &Input) {
  TempDir Dir;
  writeFile(Dir / "in", Input);
  std::string Command = "'" ORBO_TOOL_PATH "'";
  for (const auto &Arg : Args) {
    std::string Quoted;
    for (char C : Arg)
      Quoted += C == '\'' ? std::string("'\\''") : std::string(1, C);
    Command += " '" + Quoted + "'";
  }
  Command += " <'" + (Dir / "in").string() + "' >'" + (Dir / "out").string() +
             "' 2>'" + (Dir / "err").string() + "'";
  const int Raw = std::system(Command.c_str());
  ToolResult Result;
  Result.Status = (Raw != -1 && WIFEXITED(Raw)) ? WEXITSTATUS(Raw) : -1;
  Result.Out = readFile(Dir / "out");
  Result.Err = readFile(Dir / "err");
  return Result;
}

} // namespace orbotest
