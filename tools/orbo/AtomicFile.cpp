#include "tools/orbo/AtomicFile.h"

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <random>
#include <utility>

// State: before open() nothing exists on disk. Once open() succeeds, File is
// the open stream and either Temporary names the file it writes (atomic mode)
// or Temporary is empty and File writes Target itself (in-place mode). Failed
// latches the first error so that commit() refuses to publish a temporary
// that missed some bytes.

namespace orbo {

namespace fs = std::filesystem;

namespace {

constexpr int TemporaryNameAttempts = 32;

std::string randomSuffix() {
  static std::mt19937_64 Generator{std::random_device{}()};
  static const char Digits[] = "0123456789abcdef";
  std::string Suffix;
  std::uint64_t Bits = Generator();
  for (int I = 0; I < 12; ++I, Bits >>= 4)
    Suffix += Digits[Bits & 15];
  return Suffix;
}

} // namespace

AtomicFile::AtomicFile(fs::path Target) : Target(std::move(Target)) {}

AtomicFile::~AtomicFile() {
  if (!Committed)
    discard();
}

bool AtomicFile::fail(int Error) {
  Failed = true;
  Reason = std::strerror(Error ? Error : EIO);
  return false;
}

void AtomicFile::discard() {
  if (File)
    std::fclose(File);
  File = nullptr;
  if (!Temporary.empty()) {
    std::error_code Ignored;
    fs::remove(Temporary, Ignored);
    Temporary.clear();
  }
}

bool AtomicFile::open() {
  std::error_code Error;
  const fs::file_status Status = fs::status(Target, Error);
  if (fs::is_directory(Status))
    return fail(EISDIR);
  if (fs::exists(Status) && !fs::is_regular_file(Status)) {
    File = std::fopen(Target.c_str(), "wb");
    return File ? true : fail(errno);
  }
  Destination = Target;
  if (fs::is_regular_file(Status) && fs::is_symlink(fs::symlink_status(Target)))
    Destination = fs::canonical(Target, Error);
  if (Error)
    Destination = Target;
  if (!openTemporary(Destination))
    return false;
  if (fs::exists(Status))
    fs::permissions(Temporary, Status.permissions(), Error);
  return true;
}

bool AtomicFile::openTemporary(const fs::path &Destination) {
  fs::path Folder = Destination.parent_path();
  if (Folder.empty())
    Folder = ".";
  const std::string Stem = "." + Destination.filename().string() + ".orbo-";
  for (int Attempt = 0; Attempt < TemporaryNameAttempts; ++Attempt) {
    const fs::path Candidate = Folder / (Stem + randomSuffix());
    // "x": fail rather than reuse a file that someone else created.
    errno = 0;
    File = std::fopen(Candidate.c_str(), "wbx");
    if (File) {
      Temporary = Candidate;
      return true;
    }
    if (errno != EEXIST)
      return fail(errno);
  }
  return fail(EEXIST);
}

bool AtomicFile::write(std::string_view Bytes) {
  if (!File || Failed)
    return false;
  errno = 0;
  if (std::fwrite(Bytes.data(), 1, Bytes.size(), File) != Bytes.size())
    return fail(errno);
  return true;
}

bool AtomicFile::commit() {
  if (!File || Failed) {
    discard();
    return false;
  }
  errno = 0;
  const bool Flushed = std::fflush(File) == 0 && !std::ferror(File);
  const int FlushError = errno;
  std::FILE *Closing = std::exchange(File, nullptr);
  errno = 0;
  const bool Closed = std::fclose(Closing) == 0;
  const int CloseError = errno;
  if (!Flushed || !Closed) {
    fail(!Flushed ? FlushError : CloseError);
    discard();
    return false;
  }
  if (!Temporary.empty()) {
    std::error_code Error;
    fs::rename(Temporary, Destination, Error);
    if (Error) {
      Failed = true;
      Reason = Error.message();
      discard();
      return false;
    }
    Temporary.clear();
  }
  Committed = true;
  return true;
}

bool AtomicFile::writeWhole(const fs::path &Target, std::string_view Bytes,
                            std::string &Reason) {
  AtomicFile Out(Target);
  const bool Written = Out.open() && Out.write(Bytes) && Out.commit();
  if (!Written)
    Reason = Out.reason();
  return Written;
}

} // namespace orbo
