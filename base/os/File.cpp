//===- base/os/File.cpp - Files on disk as byte streams -------------------===//
//
// POSIX descriptors throughout: they report every failure of read, write and
// close directly, where stdio would hide some behind its own buffer. Reads
// and writes loop over short transfers and EINTR so that a short count always
// means end of file or an error.
//
//===----------------------------------------------------------------------===//
#include "base/os/File.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>
#include <vector>

namespace qoOS {

namespace {

constexpr int AllModes = File::Write | File::Read | File::Append | File::Create;
constexpr std::size_t CopyChunk = 64 * 1024;

// The bytes handed to the system, or false when the path cannot name a file.
bool nativePath(const qoString::IString &Path, std::string &Out) {
  const std::string_view Bytes = Path.view();
  if (Bytes.empty() || Bytes.find('\0') != std::string_view::npos)
    return false;
  Out.assign(Bytes);
  return true;
}

bool statPath(const qoString::IString &Path, struct stat &Info) {
  std::string Native;
  return nativePath(Path, Native) && ::stat(Native.c_str(), &Info) == 0;
}

int openFlags(int Mode) {
  const bool Reading = Mode & File::Read;
  const bool Writing = Mode & (File::Write | File::Append);
  int Flags = O_CLOEXEC;
  if (Reading && Writing)
    Flags |= O_RDWR;
  else if (Writing)
    Flags |= O_WRONLY;
  else
    Flags |= O_RDONLY;
  if (Mode & File::Append)
    Flags |= O_APPEND;
  else if (Writing && !Reading)
    Flags |= O_TRUNC;
  if (Mode & File::Create)
    Flags |= O_CREAT;
  return Flags;
}

} // namespace

File::File(const qoString::IString &Path) : Path(Path) {}

File::~File() {
  if (isOpen())
    ::close(Descriptor);
}

void File::fail(int Number) { ErrorNumber = Number ? Number : EIO; }

bool File::open(int Mode) {
  if (isOpen())
    close();
  ErrorNumber = 0;
  std::string Native;
  if (!nativePath(Path, Native)) {
    fail(ENOENT);
    return false;
  }
  if ((Mode & ~AllModes) || !(Mode & (Read | Write | Append))) {
    fail(EINVAL);
    return false;
  }
  int Fd;
  do
    Fd = ::open(Native.c_str(), openFlags(Mode), 0666);
  while (Fd < 0 && errno == EINTR);
  if (Fd < 0) {
    fail(errno);
    return false;
  }
  // A directory opens for reading under POSIX; refuse it here so that the
  // caller learns at open, not at the first read.
  struct stat Info;
  if (::fstat(Fd, &Info) != 0)
    fail(errno);
  else if (S_ISDIR(Info.st_mode))
    fail(EISDIR);
  if (error()) {
    ::close(Fd);
    return false;
  }
  Descriptor = Fd;
  return true;
}

std::size_t File::read(void *Buffer, std::size_t Length) {
  if (!isOpen()) {
    fail(EBADF);
    return 0;
  }
  auto *Out = static_cast<char *>(Buffer);
  std::size_t Done = 0;
  while (Done < Length) {
    const ssize_t N = ::read(Descriptor, Out + Done, Length - Done);
    if (N == 0)
      break;
    if (N < 0) {
      if (errno == EINTR)
        continue;
      fail(errno);
      break;
    }
    Done += static_cast<std::size_t>(N);
  }
  return Done;
}

std::size_t File::write(const void *Buffer, std::size_t Length) {
  if (!isOpen()) {
    fail(EBADF);
    return 0;
  }
  const auto *In = static_cast<const char *>(Buffer);
  std::size_t Done = 0;
  while (Done < Length) {
    const ssize_t N = ::write(Descriptor, In + Done, Length - Done);
    if (N < 0 && errno == EINTR)
      continue;
    if (N <= 0) {
      fail(N < 0 ? errno : EIO);
      break;
    }
    Done += static_cast<std::size_t>(N);
  }
  return Done;
}

bool File::seek(std::int64_t Offset, SeekOrigin Origin) {
  if (!isOpen()) {
    fail(EBADF);
    return false;
  }
  const int Whence = Origin == SeekBegin     ? SEEK_SET
                     : Origin == SeekCurrent ? SEEK_CUR
                                             : SEEK_END;
  if (::lseek(Descriptor, static_cast<off_t>(Offset), Whence) < 0) {
    fail(errno);
    return false;
  }
  return true;
}

std::int64_t File::tell() const {
  if (!isOpen())
    return -1;
  return static_cast<std::int64_t>(::lseek(Descriptor, 0, SEEK_CUR));
}

bool File::close() {
  if (!isOpen())
    return false;
  const int Fd = Descriptor;
  Descriptor = -1;
  // The descriptor is gone even when close reports an error (EINTR
  // included, on Linux), so it is never retried.
  if (::close(Fd) != 0) {
    fail(errno);
    return false;
  }
  return true;
}

bool File::exists(const qoString::IString &Path) {
  struct stat Info;
  return statPath(Path, Info);
}

bool File::isDirectory(const qoString::IString &Path) {
  struct stat Info;
  return statPath(Path, Info) && S_ISDIR(Info.st_mode);
}

bool File::remove(const qoString::IString &Path) {
  std::string Native;
  return nativePath(Path, Native) && std::remove(Native.c_str()) == 0;
}

bool File::copy(const qoString::IString &From, const qoString::IString &To) {
  struct stat Source, Target;
  if (!statPath(From, Source) || !S_ISREG(Source.st_mode))
    return false;
  if (statPath(To, Target) && Target.st_dev == Source.st_dev &&
      Target.st_ino == Source.st_ino)
    return false;
  File In(From), Out(To);
  if (!In.open(Read) || !Out.open(Write | Create))
    return false;
  // Only a regular file is ours to delete after a failure: To may be a
  // device such as /dev/full.
  const bool Regular = statPath(To, Target) && S_ISREG(Target.st_mode);
  std::vector<char> Buffer(CopyChunk);
  for (;;) {
    const std::size_t N = In.read(Buffer.data(), Buffer.size());
    if (N == 0 || Out.write(Buffer.data(), N) != N)
      break;
  }
  const bool Copied = !In.error() && Out.close() && !Out.error();
  if (!Copied && Regular)
    remove(To);
  return Copied;
}

bool File::move(const qoString::IString &From, const qoString::IString &To) {
  std::string NativeFrom, NativeTo;
  if (!nativePath(From, NativeFrom) || !nativePath(To, NativeTo))
    return false;
  if (std::rename(NativeFrom.c_str(), NativeTo.c_str()) == 0)
    return true;
  if (errno != EXDEV)
    return false;
  return copy(From, To) && remove(From);
}

bool File::makeDirectories(const qoString::IString &Path) {
  std::string Native;
  if (!nativePath(Path, Native))
    return false;
  // Create each prefix that ends before a separator, then the whole path;
  // existing ones fail with EEXIST, which the final test sorts out.
  for (std::size_t Slash = Native.find('/', 1); Slash != std::string::npos;
       Slash = Native.find('/', Slash + 1))
    ::mkdir(Native.substr(0, Slash).c_str(), 0777);
  ::mkdir(Native.c_str(), 0777);
  return isDirectory(Path);
}

} // namespace qoOS
