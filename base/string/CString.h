//===- base/string/CString.h - 8-bit text with a length -------------------===//
//
// qoString::CString holds bytes with an explicit length, so embedded zero
// bytes survive copies, comparisons and concatenation. It makes no claim about
// the encoding (UTF-8 by convention); qoString::IString is the Unicode form.
// Comparison is byte-wise over the whole length, as unsigned bytes: the strcmp
// order, extended so that "a\0b" and "a\0c" differ. Dictionary keys and every
// written output are ordered by it.
//
// Example:
//   qoString::CString key("colour");
//   qoString::CString line =
//       qoString::CString::format("%s=%d", key.c_str(), 3);
//   line.compare("colour=3");   // 0
//
//===----------------------------------------------------------------------===//
#ifndef QOSTRING_CSTRING_H
#define QOSTRING_CSTRING_H

#include <compare>
#include <cstdarg>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace qoString {

class CString {
public:
  CString() = default;
  CString(const char *Text) : Bytes(Text ? Text : "") {}
  CString(const char *Data, std::size_t Length) : Bytes(Data, Length) {}
  CString(std::string_view Text) : Bytes(Text) {}
  CString(const std::string &Text) : Bytes(Text) {}
  CString(std::string &&Text) : Bytes(std::move(Text)) {}

  // printf-style formatting; the result holds exactly what vsnprintf wrote.
  static CString format(const char *Format, ...)
      __attribute__((format(printf, 1, 2)));
  static CString vformat(const char *Format, va_list Args);

  const char *c_str() const noexcept { return Bytes.c_str(); }
  const char *data() const noexcept { return Bytes.data(); }
  std::size_t length() const noexcept { return Bytes.size(); }
  std::size_t size() const noexcept { return Bytes.size(); }
  bool empty() const noexcept { return Bytes.empty(); }
  char operator[](std::size_t I) const { return Bytes[I]; }

  // <0, 0 or >0 as strcmp, over the whole length (unsigned bytes).
  int compare(const CString &Other) const noexcept {
    return compare(std::string_view(Other.Bytes));
  }
  int compare(std::string_view Other) const noexcept;

  CString &append(const char *Data, std::size_t Length) {
    Bytes.append(Data, Length);
    return *this;
  }
  CString &operator+=(const CString &Other) {
    Bytes += Other.Bytes;
    return *this;
  }
  CString &operator+=(std::string_view Other) {
    Bytes += Other;
    return *this;
  }
  CString &operator+=(char C) {
    Bytes += C;
    return *this;
  }
  void clear() noexcept { Bytes.clear(); }
  void reserve(std::size_t N) { Bytes.reserve(N); }
  void resize(std::size_t N, char Fill = '\0') { Bytes.resize(N, Fill); }

  std::string_view view() const noexcept { return Bytes; }
  operator std::string_view() const noexcept { return Bytes; }
  const std::string &str() const noexcept { return Bytes; }
  std::string &str() noexcept { return Bytes; }

  friend bool operator==(const CString &A, const CString &B) noexcept {
    return A.Bytes == B.Bytes;
  }
  friend bool operator==(const CString &A, const char *B) noexcept {
    return A.Bytes == (B ? B : "");
  }
  friend std::strong_ordering operator<=>(const CString &A,
                                          const CString &B) noexcept {
    return A.compare(B) <=> 0;
  }
  friend CString operator+(CString A, const CString &B) {
    A += B;
    return A;
  }

private:
  std::string Bytes;
};

} // namespace qoString

template <> struct std::hash<qoString::CString> {
  std::size_t operator()(const qoString::CString &S) const noexcept {
    return std::hash<std::string_view>()(S.view());
  }
};

#endif // QOSTRING_CSTRING_H
