//===- base/string/IString.h - Unicode text held as valid UTF-8 -----------===//
//
// qoString::IString is Unicode text: a sequence of code points, stored as
// UTF-8 that is valid by construction. Text from outside the process enters
// through the UTF-8 constructors or fromUTF8(); every ill-formed sequence in it
// (stray continuation bytes, overlong forms, encoded surrogates, truncated
// sequences, bytes above 0xF4) becomes one U+FFFD per maximal ill-formed
// subpart, the replacement Unicode recommends. Valid UTF-8 round-trips
// byte for byte; U+0000 is an ordinary code point and survives.
//
// Comparison is by code point, which for valid UTF-8 is the byte order, so an
// IString sorts as its toUTF8() does. An IString is a value: copies are
// independent.
//
// Example:
//   qoString::IString name("Stra\xC3\x9F" "e");  // "Straße"
//   name.length();                                 // 6 code points
//   name[4];                                       // U'ß'
//   qoString::IString bad = qoString::IString::fromUTF8("a\xFF", 2);
//   bad[1];                                        // U'\uFFFD'
//   qoString::CString bytes = name.toUTF8();       // 7 bytes
//
//===----------------------------------------------------------------------===//
#ifndef QOSTRING_ISTRING_H
#define QOSTRING_ISTRING_H

#include "base/string/CString.h"

#include <compare>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace qoString {

class IString {
public:
  static constexpr char32_t ReplacementCharacter = U'\uFFFD';

  IString() = default;
  IString(const char *UTF8);
  IString(const CString &UTF8);
  IString(const std::string &UTF8);
  IString(std::string_view UTF8);

  static IString fromUTF8(const char *Data, std::size_t Length);
  // Surrogates and values above U+10FFFF become U+FFFD.
  static IString fromUTF32(std::u32string_view CodePoints);

  CString toUTF8() const { return CString(Bytes); }
  std::u32string toUTF32() const;
  // The UTF-8 bytes without a copy; valid while the string is unchanged.
  std::string_view view() const noexcept { return Bytes; }

  // Counts in code points.
  std::size_t length() const noexcept { return Length; }
  bool empty() const noexcept { return Bytes.empty(); }
  // Constant time for ASCII text, a walk from the start otherwise.
  char32_t operator[](std::size_t Index) const;

  // <0, 0 or >0 in code point order.
  int compare(const IString &Other) const noexcept;

  IString &operator+=(const IString &Other);
  IString &append(char32_t CodePoint);
  void clear() noexcept {
    Bytes.clear();
    Length = 0;
  }

  friend bool operator==(const IString &A, const IString &B) noexcept {
    return A.Bytes == B.Bytes;
  }
  friend std::strong_ordering operator<=>(const IString &A,
                                          const IString &B) noexcept {
    return A.compare(B) <=> 0;
  }
  friend IString operator+(IString A, const IString &B) {
    A += B;
    return A;
  }

private:
  // Bytes is always valid UTF-8 and Length its number of code points.
  std::string Bytes;
  std::size_t Length = 0;
};

} // namespace qoString

template <> struct std::hash<qoString::IString> {
  std::size_t operator()(const qoString::IString &S) const noexcept {
    return std::hash<std::string_view>()(S.view());
  }
};

#endif // QOSTRING_ISTRING_H
