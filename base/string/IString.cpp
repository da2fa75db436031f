//===- base/string/IString.cpp - Unicode text held as valid UTF-8 ---------===//
//
// Invariant: Bytes is well-formed UTF-8 (Unicode table 3-7) and Length counts
// its lead bytes. Only the decoder below lets outside bytes in; everything else
// appends code points it has encoded itself or bytes of another IString.
//
//===----------------------------------------------------------------------===//
#include "base/string/IString.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace qoString {

namespace {

bool isContinuation(unsigned char Byte) { return (Byte & 0xC0) == 0x80; }

void encode(char32_t C, std::string &Out) {
  if (C < 0x80) {
    Out += static_cast<char>(C);
  } else if (C < 0x800) {
    Out += static_cast<char>(0xC0 | (C >> 6));
    Out += static_cast<char>(0x80 | (C & 0x3F));
  } else if (C < 0x10000) {
    Out += static_cast<char>(0xE0 | (C >> 12));
    Out += static_cast<char>(0x80 | ((C >> 6) & 0x3F));
    Out += static_cast<char>(0x80 | (C & 0x3F));
  } else {
    Out += static_cast<char>(0xF0 | (C >> 18));
    Out += static_cast<char>(0x80 | ((C >> 12) & 0x3F));
    Out += static_cast<char>(0x80 | ((C >> 6) & 0x3F));
    Out += static_cast<char>(0x80 | (C & 0x3F));
  }
}

bool isScalarValue(char32_t C) {
  return C < 0xD800 || (C > 0xDFFF && C <= 0x10FFFF);
}

// The well-formed sequence a lead byte starts: how many continuation bytes
// follow and the range allowed for the first of them (the narrower ranges
// exclude overlong forms, surrogates and values above U+10FFFF).
struct LeadInfo {
  int Continuations; // -1: the byte cannot start a sequence
  unsigned char Low = 0x80;
  unsigned char High = 0xBF;
};

LeadInfo leadInfo(unsigned char Lead) {
  if (Lead < 0x80)
    return {0};
  if (Lead >= 0xC2 && Lead <= 0xDF)
    return {1};
  if (Lead == 0xE0)
    return {2, 0xA0, 0xBF};
  if (Lead == 0xED)
    return {2, 0x80, 0x9F};
  if (Lead >= 0xE1 && Lead <= 0xEF)
    return {2};
  if (Lead == 0xF0)
    return {3, 0x90, 0xBF};
  if (Lead >= 0xF1 && Lead <= 0xF3)
    return {3};
  if (Lead == 0xF4)
    return {3, 0x80, 0x8F};
  return {-1};
}

// Length of the well-formed sequence at Data[0], or of its maximal
// ill-formed subpart as a negative number (at least -1).
long sequenceLength(const unsigned char *Data, std::size_t Available) {
  const LeadInfo Info = leadInfo(Data[0]);
  if (Info.Continuations < 0)
    return -1;
  unsigned char Low = Info.Low, High = Info.High;
  long Taken = 1;
  for (int I = 0; I < Info.Continuations; ++I, ++Taken) {
    if (static_cast<std::size_t>(Taken) >= Available)
      return -Taken;
    const unsigned char Byte = Data[Taken];
    if (Byte < Low || Byte > High)
      return -Taken;
    Low = 0x80;
    High = 0xBF;
  }
  return Taken;
}

// Decodes the well-formed sequence at Data[I] and moves I past it.
char32_t decodeAt(const unsigned char *Data, std::size_t &I) {
  const unsigned char Lead = Data[I++];
  if (Lead < 0x80)
    return Lead;
  const int Continuations = Lead >= 0xF0 ? 3 : Lead >= 0xE0 ? 2 : 1;
  char32_t C = Lead & (0x3F >> Continuations);
  for (int K = 0; K < Continuations; ++K)
    C = (C << 6) | (Data[I++] & 0x3F);
  return C;
}

} // namespace

IString::IString(const char *UTF8)
    : IString(fromUTF8(UTF8, UTF8 ? std::strlen(UTF8) : 0)) {}

IString::IString(const CString &UTF8)
    : IString(fromUTF8(UTF8.data(), UTF8.length())) {}

IString::IString(const std::string &UTF8)
    : IString(fromUTF8(UTF8.data(), UTF8.size())) {}

IString::IString(std::string_view UTF8)
    : IString(fromUTF8(UTF8.data(), UTF8.size())) {}

IString IString::fromUTF8(const char *Data, std::size_t Length) {
  IString Result;
  if (!Data || Length == 0)
    return Result;
  const auto *Bytes = reinterpret_cast<const unsigned char *>(Data);
  Result.Bytes.reserve(Length);
  std::size_t I = 0;
  while (I < Length) {
    const long N = sequenceLength(Bytes + I, Length - I);
    if (N > 0) {
      Result.Bytes.append(Data + I, static_cast<std::size_t>(N));
      I += static_cast<std::size_t>(N);
    } else {
      encode(ReplacementCharacter, Result.Bytes);
      I += static_cast<std::size_t>(-N);
    }
    ++Result.Length;
  }
  return Result;
}

IString IString::fromUTF32(std::u32string_view CodePoints) {
  IString Result;
  Result.Bytes.reserve(CodePoints.size());
  for (const char32_t C : CodePoints)
    Result.append(C);
  return Result;
}

std::u32string IString::toUTF32() const {
  std::u32string Result;
  Result.reserve(Length);
  const auto *Data = reinterpret_cast<const unsigned char *>(Bytes.data());
  const std::size_t Size = Bytes.size();
  for (std::size_t I = 0; I < Size;)
    Result += decodeAt(Data, I);
  return Result;
}

char32_t IString::operator[](std::size_t Index) const {
  assert(Index < Length && "IString index out of range");
  if (Length == Bytes.size())
    return static_cast<unsigned char>(Bytes[Index]);
  const auto *Data = reinterpret_cast<const unsigned char *>(Bytes.data());
  std::size_t I = 0;
  for (std::size_t Seen = 0; Seen < Index; ++Seen) {
    ++I;
    while (isContinuation(Data[I]))
      ++I;
  }
  return decodeAt(Data, I);
}

int IString::compare(const IString &Other) const noexcept {
  // Byte order of well-formed UTF-8 is code point order.
  const std::size_t Common = std::min(Bytes.size(), Other.Bytes.size());
  if (const int R =
          Common ? std::memcmp(Bytes.data(), Other.Bytes.data(), Common) : 0)
    return R;
  if (Bytes.size() == Other.Bytes.size())
    return 0;
  return Bytes.size() < Other.Bytes.size() ? -1 : 1;
}

IString &IString::operator+=(const IString &Other) {
  Bytes += Other.Bytes;
  Length += Other.Length;
  return *this;
}

IString &IString::append(char32_t CodePoint) {
  encode(isScalarValue(CodePoint) ? CodePoint : ReplacementCharacter, Bytes);
  ++Length;
  return *this;
}

} // namespace qoString
