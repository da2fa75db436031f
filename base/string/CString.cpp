#include "base/string/CString.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace qoString {

int CString::compare(std::string_view Other) const noexcept {
  const std::size_t Common = std::min(Bytes.size(), Other.size());
  // memcmp compares as unsigned char, which is the strcmp order.
  if (const int R =
          Common ? std::memcmp(Bytes.data(), Other.data(), Common) : 0)
    return R;
  if (Bytes.size() == Other.size())
    return 0;
  return Bytes.size() < Other.size() ? -1 : 1;
}

CString CString::format(const char *Format, ...) {
  va_list Args;
  va_start(Args, Format);
  CString Result = vformat(Format, Args);
  va_end(Args);
  return Result;
}

CString CString::vformat(const char *Format, va_list Args) {
  char Small[256];
  va_list Copy;
  va_copy(Copy, Args);
  const int N = std::vsnprintf(Small, sizeof Small, Format, Copy);
  va_end(Copy);
  if (N < 0)
    return CString();
  if (static_cast<std::size_t>(N) < sizeof Small)
    return CString(Small, static_cast<std::size_t>(N));
  std::string Big(static_cast<std::size_t>(N) + 1, '\0');
  std::vsnprintf(Big.data(), Big.size(), Format, Args);
  Big.resize(static_cast<std::size_t>(N));
  return CString(std::move(Big));
}

} // namespace qoString
