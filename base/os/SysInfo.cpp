//===- base/os/SysInfo.cpp - Facts about the process and its environment --===//
//
// Linux reads /proc/self/statm (its second field is resident pages); macOS
// asks the Mach task for its resident size.
//
//===----------------------------------------------------------------------===//
#include "base/os/SysInfo.h"

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

#ifdef __APPLE__
#include <mach/mach.h>
#endif

namespace qoOS {

std::uint64_t SysInfo::processResidentMemory() {
#ifdef __APPLE__
  mach_task_basic_info_data_t Info;
  mach_msg_type_number_t Count = MACH_TASK_BASIC_INFO_COUNT;
  if (task_info(mach_task_self(), MACH_TASK_BASIC_INFO,
                reinterpret_cast<task_info_t>(&Info), &Count) != KERN_SUCCESS)
    return 0;
  return Info.resident_size / 1024;
#else
  std::FILE *Statm = std::fopen("/proc/self/statm", "r");
  if (!Statm)
    return 0;
  unsigned long long Size = 0, Resident = 0;
  const int Fields = std::fscanf(Statm, "%llu %llu", &Size, &Resident);
  std::fclose(Statm);
  const long PageSize = ::sysconf(_SC_PAGESIZE);
  if (Fields != 2 || PageSize <= 0)
    return 0;
  return Resident * static_cast<std::uint64_t>(PageSize) / 1024;
#endif
}

qoString::CString getenv(const char *Name) {
  const char *Value = Name ? std::getenv(Name) : nullptr;
  return qoString::CString(Value);
}

bool hasenv(const char *Name) { return Name && std::getenv(Name); }

qoString::IString getTempDirectory() {
  const qoString::CString Folder = getenv("TMPDIR");
  return qoString::IString(Folder.empty() ? qoString::CString("/tmp") : Folder);
}

} // namespace qoOS
