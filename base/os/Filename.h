//===- base/os/Filename.h - Queries on a path -----------------------------===//
//
// qoOS::Filename answers questions about a path's text: its folder, file name,
// base name and extension, whether it is absolute, and how it joins with a
// relative path. It never touches the disk (qoOS::File does). Separators are
// '/'; repeated and trailing separators are ignored, as POSIX does. A leading
// dot starts a hidden name rather than an extension (".profile" has none).
//
// Example:
//   qoOS::Filename Name("/data/scenes/city.tar.gz");
//   Name.directory();   // "/data/scenes"
//   Name.fileName();    // "city.tar.gz"
//   Name.baseName();    // "city.tar"
//   Name.extension();   // "gz"
//   Name.join("x").path();  // "/data/scenes/city.tar.gz/x"
//
//===----------------------------------------------------------------------===//
#ifndef QOOS_FILENAME_H
#define QOOS_FILENAME_H

#include "base/string/IString.h"

#include <vector>

namespace qoOS {

class Filename {
public:
  static constexpr char Separator = '/';

  Filename() = default;
  Filename(const qoString::IString &Path) : Path(Path) {}
  Filename(const char *Path) : Path(Path) {}

  const qoString::IString &path() const { return Path; }
  // Everything before the last component: "" for a bare name, "/" for a
  // component of the root.
  qoString::IString directory() const;
  // The last component.
  qoString::IString fileName() const;
  // The file name without its extension and the dot before it.
  qoString::IString baseName() const;
  // The text after the file name's last dot, without the dot.
  qoString::IString extension() const;
  bool isAbsolute() const;
  // The non-empty components in order; the root is not one.
  std::vector<qoString::IString> components() const;
  // Other appended after a separator; an absolute Other replaces this path.
  Filename join(const qoString::IString &Other) const;

  friend bool operator==(const Filename &A, const Filename &B) {
    return A.Path == B.Path;
  }

private:
  qoString::IString Path;
};

} // namespace qoOS

#endif // QOOS_FILENAME_H
