//===- base/os/SysInfo.h - Facts about the process and its environment ----===//
//
// The few system facts the layer reads: the process's resident memory (the
// cache's budget is measured against it), environment variables and the
// temporary folder. Every call reads the system afresh; nothing is cached.
//
// Example:
//   std::uint64_t KiB = qoOS::SysInfo::processResidentMemory();
//   qoString::CString Limit = qoOS::getenv("NY_UNDO_LIMIT");  // "" if unset
//   qoOS::Filename Page =
//       qoOS::Filename(qoOS::getTempDirectory()).join("page.dat");
//
//===----------------------------------------------------------------------===//
#ifndef QOOS_SYSINFO_H
#define QOOS_SYSINFO_H

#include "base/string/CString.h"
#include "base/string/IString.h"

#include <cstdint>

namespace qoOS {

class SysInfo {
public:
  // Resident memory in KiB; 0 when the system does not tell.
  static std::uint64_t processResidentMemory();
};

// The variable's value; empty when it is unset (or set to "").
qoString::CString getenv(const char *Name);
// Whether the variable is set at all, even to "".
bool hasenv(const char *Name);
// $TMPDIR when set and not empty, else "/tmp".
qoString::IString getTempDirectory();

} // namespace qoOS

#endif // QOOS_SYSINFO_H
