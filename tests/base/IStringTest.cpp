#include "base/string/IString.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using qoString::IString;
using namespace std::string_view_literals;

namespace {

constexpr char32_t R = IString::ReplacementCharacter;

// An independent encoder, so that the round trip does not test the code
// against itself.
std::string utf8(char32_t C) {
  std::string Out;
  if (C < 0x80)
    return std::string(1, static_cast<char>(C));
  if (C < 0x800)
    return {static_cast<char>(0xC0 + C / 64), static_cast<char>(0x80 + C % 64)};
  if (C < 0x10000)
    return {static_cast<char>(0xE0 + C / 4096),
            static_cast<char>(0x80 + C / 64 % 64),
            static_cast<char>(0x80 + C % 64)};
  return {static_cast<char>(0xF0 + C / 262144),
          static_cast<char>(0x80 + C / 4096 % 64),
          static_cast<char>(0x80 + C / 64 % 64),
          static_cast<char>(0x80 + C % 64)};
}

IString decode(std::string_view Bytes) {
  return IString::fromUTF8(Bytes.data(), Bytes.size());
}

} // namespace

namespace {

struct DecodeCase {
  const char *Name;
  std::string_view Bytes;
  std::u32string_view Expected;
};

void PrintTo(const DecodeCase &Case, std::ostream *Out) { *Out << Case.Name; }

class IStringDecode : public testing::TestWithParam<DecodeCase> {};

} // namespace

TEST_P(IStringDecode, ReplacesEachIllFormedSubpart) {
  const DecodeCase &Case = GetParam();
  const IString Text = decode(Case.Bytes);
  EXPECT_EQ(Text.toUTF32(), Case.Expected);
  ASSERT_EQ(Text.length(), Case.Expected.size());
  for (std::size_t I = 0; I < Case.Expected.size(); ++I)
    EXPECT_EQ(Text[I], Case.Expected[I]) << "at " << I;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, IStringDecode,
    testing::Values(
        DecodeCase{"Empty", ""sv, U""sv},
        DecodeCase{"EmbeddedZero", "a\0b"sv, U"a\0b"sv},
        DecodeCase{"AllWidths", "A\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"sv,
                   U"A\u00E9\u20AC\U0001F600"sv},
        DecodeCase{"Limits",
                   "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF"
                   "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"sv,
                   U"\u007F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF"sv},
        DecodeCase{"StrayContinuation",
                   "a\x80"
                   "b\xBF"sv,
                   U"a\uFFFDb\uFFFD"sv},
        DecodeCase{"OverlongTwoByte", "\xC0\xAF\xC1\xBF"sv,
                   U"\uFFFD\uFFFD\uFFFD\uFFFD"sv},
        DecodeCase{"OverlongThreeByte", "\xE0\x80\xAF"sv,
                   U"\uFFFD\uFFFD\uFFFD"sv},
        DecodeCase{"OverlongFourByte", "\xF0\x8F\xBF\xBF"sv,
                   U"\uFFFD\uFFFD\uFFFD\uFFFD"sv},
        DecodeCase{"Surrogates", "\xED\xA0\x80\xED\xBF\xBF"sv,
                   U"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"sv},
        DecodeCase{"AboveMaximum", "\xF4\x90\x80\x80"sv,
                   U"\uFFFD\uFFFD\uFFFD\uFFFD"sv},
        DecodeCase{"BytesAboveF4", "\xF5\xF8\xFE\xFFz"sv,
                   U"\uFFFD\uFFFD\uFFFD\uFFFDz"sv},
        // A truncated sequence is one replacement, and the byte that
        // interrupted it starts afresh.
        DecodeCase{"TruncatedAtEnd", "ok\xF0\x9F\x98"sv, U"ok\uFFFD"sv},
        DecodeCase{"TruncatedThenAscii", "\xE2\x82z"sv, U"\uFFFDz"sv},
        DecodeCase{"TruncatedThenLead", "\xF0\x9F\xC3\xA9"sv,
                   U"\uFFFD\u00E9"sv},
        DecodeCase{"TruncatedThenZero", "\xC3\0x"sv, U"\uFFFD\0x"sv}),
    [](const testing::TestParamInfo<DecodeCase> &Info) {
      return Info.param.Name;
    });

TEST(IString, ValidUTF8RoundTripsExactlyForEveryCodePoint) {
  std::string Bytes;
  std::u32string Expected;
  for (char32_t C = 0; C <= 0x10FFFF; ++C) {
    if (C >= 0xD800 && C <= 0xDFFF)
      continue;
    Bytes += utf8(C);
    Expected += C;
  }
  const IString Text(Bytes);
  EXPECT_EQ(Text.length(), Expected.size());
  EXPECT_TRUE(Text.toUTF8().view() == Bytes);
  EXPECT_TRUE(Text.toUTF32() == Expected);
  EXPECT_TRUE(IString::fromUTF32(Expected) == Text);
}

// Whatever the bytes, the result is well formed: decoding its UTF-8 again
// changes nothing.
TEST(IString, ArbitraryBytesDecodeToAFixedPoint) {
  std::mt19937 Random(20240501);
  std::uniform_int_distribution<int> Byte(0, 255), Size(0, 40);
  for (int Round = 0; Round < 5000; ++Round) {
    std::string Bytes(static_cast<std::size_t>(Size(Random)), '\0');
    for (char &B : Bytes)
      B = static_cast<char>(Byte(Random) < 128 ? Byte(Random) | 0x80
                                               : Byte(Random));
    const IString Text(Bytes);
    const IString Again(Text.toUTF8());
    ASSERT_EQ(Again, Text) << testing::PrintToString(Bytes);
    ASSERT_EQ(Again.length(), Text.toUTF32().size());
  }
}

TEST(IString, FromUTF32ReplacesNonScalarValues) {
  const std::u32string In{U'a', 0xD800, 0xDFFF, 0x110000, U'\0', U'b'};
  EXPECT_EQ(IString::fromUTF32(In).toUTF32(),
            (std::u32string{U'a', R, R, R, U'\0', U'b'}));
}

TEST(IString, ConstructorsAgreeAndKeepZeroBytes) {
  const std::string WithZero("x\0\xC3\xA9", 4);
  EXPECT_EQ(IString(WithZero).length(), 3u);
  EXPECT_EQ(IString(std::string_view(WithZero)), IString(WithZero));
  EXPECT_EQ(IString(qoString::CString(WithZero)), IString(WithZero));
  EXPECT_EQ(IString(WithZero).toUTF8().view(), WithZero);
  // The C string form ends at the first zero.
  EXPECT_EQ(IString(WithZero.c_str()).length(), 1u);
  EXPECT_TRUE(IString(static_cast<const char *>(nullptr)).empty());
  EXPECT_TRUE(IString::fromUTF8(nullptr, 0).empty());
}

TEST(IString, OrdersByCodePoint) {
  // U+FFFF before U+10000; in UTF-16 order it would be the other way round.
  EXPECT_LT(IString("\xEF\xBF\xBF"), IString("\xF0\x90\x80\x80"));
  EXPECT_LT(IString("z"), IString("\xC3\xA9"));
  EXPECT_LT(IString("a"), IString("a\0"sv));
  EXPECT_LT(IString("a\0a"sv), IString("a\0b"sv));
  EXPECT_EQ(IString("abc").compare(IString("abc")), 0);
  EXPECT_GT(IString("abd").compare(IString("abc")), 0);
}

TEST(IString, AppendingKeepsLengthInStep) {
  IString Text("\xC3\xA9");
  Text += IString("t\xC3\xA9");
  Text.append(U'\U0001F600').append(0xDC00);
  EXPECT_EQ(Text.length(), 5u);
  EXPECT_EQ(Text[3], U'\U0001F600');
  EXPECT_EQ(Text[4], R);
  EXPECT_EQ(Text + IString("!"), IString("\xC3\xA9t\xC3\xA9\xF0\x9F\x98\x80"
                                         "\xEF\xBF\xBD!"));
  Text.clear();
  EXPECT_TRUE(Text.empty());
  EXPECT_EQ(Text.length(), 0u);
}
