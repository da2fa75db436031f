//===- base/os/Filename.cpp - Queries on a path ---------------------------===//
//
// The queries work on the UTF-8 bytes: '/' and '.' are ASCII and never occur
// inside a multi-byte sequence, so byte positions split only between code
// points.
//
//===----------------------------------------------------------------------===//
#include "base/os/Filename.h"

#include <string_view>

namespace qoOS {

namespace {

using qoString::IString;

// The path without trailing separators, keeping a lone root.
std::string_view trimmed(std::string_view Path) {
  while (Path.size() > 1 && Path.back() == Filename::Separator)
    Path.remove_suffix(1);
  return Path;
}

// Position of the dot that starts the extension of Name, or npos.
std::size_t extensionDot(std::string_view Name) {
  if (Name.find_first_not_of('.') == Name.npos)
    return Name.npos; // "", "." and ".."
  const std::size_t Dot = Name.rfind('.');
  return Dot == 0 ? Name.npos : Dot;
}

} // namespace

IString Filename::directory() const {
  const std::string_view Path = trimmed(this->Path.view());
  std::size_t Slash = Path.rfind(Separator);
  if (Slash == Path.npos)
    return IString();
  if (Path.size() == 1)
    return IString("/");
  while (Slash > 0 && Path[Slash - 1] == Separator)
    --Slash;
  return IString(Path.substr(0, Slash ? Slash : 1));
}

IString Filename::fileName() const {
  const std::string_view Path = trimmed(this->Path.view());
  if (Path == "/")
    return IString();
  const std::size_t Slash = Path.rfind(Separator);
  return IString(Slash == Path.npos ? Path : Path.substr(Slash + 1));
}

IString Filename::baseName() const {
  const IString Name = fileName();
  const std::string_view View = Name.view();
  return IString(View.substr(0, extensionDot(View)));
}

IString Filename::extension() const {
  const IString Name = fileName();
  const std::string_view View = Name.view();
  const std::size_t Dot = extensionDot(View);
  return Dot == View.npos ? IString() : IString(View.substr(Dot + 1));
}

bool Filename::isAbsolute() const {
  return !Path.empty() && Path.view().front() == Separator;
}

std::vector<IString> Filename::components() const {
  std::vector<IString> Result;
  std::string_view Rest = Path.view();
  while (!Rest.empty()) {
    const std::size_t Slash = Rest.find(Separator);
    const std::string_view Part = Rest.substr(0, Slash);
    if (!Part.empty())
      Result.emplace_back(Part);
    Rest = Slash == Rest.npos ? std::string_view() : Rest.substr(Slash + 1);
  }
  return Result;
}

Filename Filename::join(const IString &Other) const {
  if (Path.empty() || Filename(Other).isAbsolute())
    return Other;
  if (Other.empty())
    return *this;
  if (Path.view().back() == Separator)
    return Path + Other;
  return Path + IString("/") + Other;
}

} // namespace qoOS
