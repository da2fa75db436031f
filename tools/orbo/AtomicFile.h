//===- tools/orbo/AtomicFile.h - Output that appears whole or not at all --===//
//
// AtomicFile writes to a fresh temporary file beside the target (same folder,
// hence the same file system) and renames it over the target on commit(). A
// reader of the target sees either the old content or the complete new one;
// if anything fails, or commit() is never called, the temporary is removed
// and the target is left exactly as it was. An existing target keeps its
// permissions, and a symbolic link to a regular file is followed, so the
// file it names is replaced and the link stays.
//
// Targets that cannot be replaced by renaming (a device such as /dev/null or
// /dev/stdout, a FIFO) are written in place: there is nothing to protect
// there, and replacing /dev/null with a regular file would be a disaster.
//
// Not thread-safe; one object per output. Reasons read like strerror.
//
// Example:
//   AtomicFile Out("settings.json");
//   if (!Out.open() || !Out.write(Text) || !Out.commit())
//     std::fprintf(stderr, "orbo: settings.json: %s\n", Out.reason().c_str());
//
//===----------------------------------------------------------------------===//
#ifndef ORBO_TOOLS_ORBO_ATOMICFILE_H
#define ORBO_TOOLS_ORBO_ATOMICFILE_H

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace orbo {

class AtomicFile {
public:
  explicit AtomicFile(std::filesystem::path Target);
  // Discards the temporary unless commit() succeeded.
  ~AtomicFile();
  AtomicFile(const AtomicFile &) = delete;
  AtomicFile &operator=(const AtomicFile &) = delete;

  bool open();
  bool write(std::string_view Bytes);
  // Closes and renames the temporary over the target. After a failure here
  // the target is untouched and the temporary is gone.
  bool commit();

  // Why the last call failed.
  const std::string &reason() const { return Reason; }

  // open(), write() and commit() in one call.
  static bool writeWhole(const std::filesystem::path &Target,
                         std::string_view Bytes, std::string &Reason);

private:
  bool openTemporary(const std::filesystem::path &Destination);
  bool fail(int Error);
  void discard();

  std::filesystem::path Target;
  std::filesystem::path Destination; // the file that the rename replaces
  std::filesystem::path Temporary;   // empty when writing in place
  std::FILE *File = nullptr;
  bool Failed = false;
  bool Committed = false;
  std::string Reason;
};

} // namespace orbo

#endif // ORBO_TOOLS_ORBO_ATOMICFILE_H
