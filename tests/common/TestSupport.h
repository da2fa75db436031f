//===- tests/common/TestSupport.h - Helpers shared by the tests ----------===//
//
// Temporary folders that clean up after themselves, whole-file reads and
// writes, the path of the shared conformance and benchmark data (read in
// place), and a runner for the orbo program that captures its output.
//
//===----------------------------------------------------------------------===//
#ifndef ORBO_TESTS_TESTSUPPORT_H
#define ORBO_TESTS_TESTSUPPORT_H

#include <filesystem>
#include <string>
#include <vector>

namespace orbotest {

// A fresh folder under the system temporary folder, removed with everything
// in it when the object goes away.
class TempDir {
public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir &) = delete;
  TempDir &operator=(const TempDir &) = delete;

  const std::filesystem::path &path() const { return Path; }
  std::filesystem::path operator/(const std::string &Name) const {
    return Path / Name;
  }

private:
  std::filesystem::path Path;
};

std::filesystem::path sharedPath(const std::string &Relative);
std::filesystem::path sourcePath(const std::string &Relative);
std::string readFile(const std::filesystem::path &Path);
void writeFile(const std::filesystem::path &Path, const std::string &Bytes);

struct ToolResult {
  int Status = -1; // exit status, or -1 when the program did not exit normally
  std::string Out;
  std::string Err;
};

// Runs the orbo program with Args, feeding Input on its standard input.
ToolResult runTool(const std::vector<std::string> &Args,
                   const std::string &Input = "");

} // namespace orbotest

#endif // ORBO_TESTS_TESTSUPPORT_H
