//===- base/os/File.h - Files on disk as byte streams ---------------------===//
//
// qoOS::File is a file on disk opened as an IOStream, plus the static
// operations on paths that the layer needs (exists, copy, move, remove, make
// directories). Paths are IStrings passed to the system as their UTF-8 bytes;
// a path holding a zero byte names no file and every operation on it fails.
//
// Open modes combine bits. Writing without Read or Append truncates: the
// usual mode Write | Create (the value 9) creates the file or empties an
// existing one. Read alone reads an existing file; Append writes at the end
// (Write is implied); Read | Write updates in place. A directory never opens,
// whatever the mode. error() stays true from a failed open, read, write, seek
// or close until the next open.
//
// The File owns its descriptor: the destructor closes it (ignoring the result;
// call close() to learn it). Not copyable.
//
// Example:
//   qoOS::File Out(qoString::IString("/tmp/list.json"));
//   if (!Out.open(qoOS::File::Write | qoOS::File::Create))
//     return false;
//   Out.write(Text.data(), Text.size());
//   const bool Closed = Out.close();
//   return Closed && !Out.error();
//
//===----------------------------------------------------------------------===//
#ifndef QOOS_FILE_H
#define QOOS_FILE_H

#include "base/os/IOStream.h"
#include "base/string/IString.h"

#include <cstddef>
#include <cstdint>

namespace qoOS {

class File : public IOStream {
public:
  enum OpenMode : int { Write = 1, Read = 2, Append = 4, Create = 8 };

  explicit File(const qoString::IString &Path);
  File(const File &) = delete;
  File &operator=(const File &) = delete;
  ~File() override;

  // Closes a file that is already open, then opens Path in Mode.
  bool open(int Mode);
  bool isOpen() const { return Descriptor >= 0; }
  const qoString::IString &path() const { return Path; }
  // The system's error number (errno) of the latest failure, 0 when none.
  int errorNumber() const { return ErrorNumber; }

  std::size_t read(void *Buffer, std::size_t Length) override;
  std::size_t write(const void *Buffer, std::size_t Length) override;
  bool seek(std::int64_t Offset, SeekOrigin Origin = SeekBegin) override;
  std::int64_t tell() const override;
  // False when the file was not open or the system reported an error; the
  // descriptor is released either way.
  bool close() override;
  bool error() const override { return ErrorNumber != 0; }

  // Existence follows symbolic links.
  static bool exists(const qoString::IString &Path);
  static bool isDirectory(const qoString::IString &Path);
  // Removes a file or an empty directory.
  static bool remove(const qoString::IString &Path);
  // Copies a regular file's bytes, replacing To. Copying a file onto itself
  // fails and leaves it intact; a failed copy to a regular file leaves no
  // partial To behind.
  static bool copy(const qoString::IString &From, const qoString::IString &To);
  // Renames, replacing To; across file systems, copies and removes From.
  static bool move(const qoString::IString &From, const qoString::IString &To);
  // Creates Path and every missing parent; true when Path is then a
  // directory (also when it already was one).
  static bool makeDirectories(const qoString::IString &Path);

private:
  void fail(int Number);

  qoString::IString Path;
  int Descriptor = -1;
  int ErrorNumber = 0;
};

} // namespace qoOS

#endif // QOOS_FILE_H
