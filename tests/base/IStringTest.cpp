#include "base/string/IString.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

using qoString::IString;
using namespace std::literals;

namespace {
constexpr char32_t R = IString::ReplacementCharacter;
} // namespace

// A truncated sequence is one replacement, and the byte that interrupted it
// starts afresh.
TEST(IString, ReplacesEachIllFormedSubpart) {
  const struct {
    const char *Name;
    std::string_view Bytes;
    std::u32string Expected;
  } Cases[] = {{"embedded zero", "a\0b"sv, U"a\0b"s},
               {"limits",
                "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80"
                "\xF4\x8F\xBF\xBF"sv,
                U"\u007F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF"s},
               {"stray continuation and bytes above F4", "a\x80\xF5\xFFz"sv,
                U"a\uFFFD\uFFFD\uFFFDz"s},
               {"overlong", "\xC0\xAF\xE0\x80\xAF\xF0\x8F\xBF\xBF"sv,
                std::u32string(9, R)},
               {"surrogate and above maximum", "\xED\xA0\x80\xF4\x90\x80\x80"sv,
                std::u32string(7, R)},
               {"truncated at end", "ok\xF0\x9F\x98"sv, U"ok\uFFFD"s},
               {"truncated then more", "\xE2\x82z\xF0\x9F\xC3\xA9\xC3\0x"sv,
                U"\uFFFDz\uFFFD\u00E9\uFFFD\0x"s}};
  for (const auto &Case : Cases) {
    SCOPED_TRACE(Case.Name);
    const IString Text =
        IString::fromUTF8(Case.Bytes.data(), Case.Bytes.size());
    EXPECT_EQ(Text.toUTF32(), Case.Expected);
    ASSERT_EQ(Text.length(), Case.Expected.size());
    for (std::size_t I = 0; I < Case.Expected.size(); ++I)
      EXPECT_EQ(Text[I], Case.Expected[I]) << "at " << I;
  }
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
  const std::u32string NonScalar{U'a', 0xD800, 0x110000, U'\0'};
  EXPECT_EQ(IString::fromUTF32(NonScalar).toUTF32(),
            (std::u32string{U'a', R, R, U'\0'}));
}

// U+FFFF sorts before U+10000, unlike in UTF-16 order.
TEST(IString, OrdersByCodePoint) {
  EXPECT_LT(IString("\xEF\xBF\xBF"), IString("\xF0\x90\x80\x80"));
  EXPECT_LT(IString("a"), IString("a\0"sv));
  EXPECT_LT(IString("a\0a"sv), IString("a\0b"sv));
}

// Only the C string form ends at the first zero byte.
TEST(IString, ConstructorsAndAppendsKeepLengthInStep) {
  IString Text(std::string("x\0\xC3\xA9", 4));
  EXPECT_EQ(Text.length(), 3u);
  EXPECT_EQ(IString("x\0\xC3\xA9").length(), 1u);
  Text.append(U'\U0001F600').append(0xDC00);
  EXPECT_EQ(Text.length(), 5u);
  EXPECT_EQ(Text[3], U'\U0001F600');
  EXPECT_EQ(Text.toUTF8().view(), "x\0\xC3\xA9\xF0\x9F\x98\x80\xEF\xBF\xBD"sv);
}
