#include "tools/orbo/Input.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace orbo {

namespace {

struct FileCloser {
  void operator()(std::FILE *File) const { std::fclose(File); }
};
using FilePtr = std::unique_ptr<std::FILE, FileCloser>;

// Reads until end of file. A directory opens fine on Linux and fails only
// here, with EISDIR, which is the reason a user should see.
bool readAll(std::FILE *File, std::string &Bytes, std::string &Reason) {
  constexpr std::size_t ChunkSize = 1 << 16;
  std::string Result;
  for (;;) {
    const std::size_t Used = Result.size();
    Result.resize(Used + ChunkSize);
    errno = 0;
    const std::size_t Got =
        std::fread(Result.data() + Used, 1, ChunkSize, File);
    Result.resize(Used + Got);
    if (Got == ChunkSize)
      continue;
    if (std::ferror(File)) {
      Reason = std::strerror(errno ? errno : EIO);
      return false;
    }
    Bytes = std::move(Result);
    return true;
  }
}

} // namespace

bool isStandardStream(const std::string &Path) { return Path == "-"; }

std::string displayName(const std::string &Path) {
  return isStandardStream(Path) ? "<stdin>" : Path;
}

bool readInput(const std::string &Path, std::string &Bytes,
               std::string &Reason) {
  if (isStandardStream(Path))
    return readAll(stdin, Bytes, Reason);
  FilePtr File(std::fopen(Path.c_str(), "rb"));
  if (!File) {
    Reason = std::strerror(errno);
    return false;
  }
  return readAll(File.get(), Bytes, Reason);
}

} // namespace orbo
