#include "base/string/CString.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <unordered_set>
#include <vector>

using qoString::CString;

namespace {

CString bytes(std::string_view Text) { return CString(Text); }

int sign(int Value) { return (Value > 0) - (Value < 0); }

} // namespace

namespace {

struct OrderCase {
  std::string_view Left, Right;
  int Expected;
};

void PrintTo(const OrderCase &Case, std::ostream *Out) {
  *Out << testing::PrintToString(std::string(Case.Left)) << " vs "
       << testing::PrintToString(std::string(Case.Right));
}

class CStringOrder : public testing::TestWithParam<OrderCase> {};

} // namespace

TEST_P(CStringOrder, ComparesWholeLengthAsUnsignedBytes) {
  const OrderCase &Case = GetParam();
  const CString Left = bytes(Case.Left), Right = bytes(Case.Right);
  EXPECT_EQ(sign(Left.compare(Right)), Case.Expected);
  EXPECT_EQ(sign(Right.compare(Left)), -Case.Expected);
  EXPECT_EQ(Left == Right, Case.Expected == 0);
  EXPECT_EQ(Left < Right, Case.Expected < 0);
}

using namespace std::string_view_literals;

INSTANTIATE_TEST_SUITE_P(
    Cases, CStringOrder,
    testing::Values(
        OrderCase{"", "", 0}, OrderCase{"", "a", -1},
        OrderCase{"a", "a\0"sv, -1}, OrderCase{"a\0b"sv, "a\0c"sv, -1},
        OrderCase{"a\0b"sv, "a\0b"sv, 0}, OrderCase{"a\0"sv, "a\x01", -1},
        // Bytes >= 0x80 sort after ASCII (unsigned, as strcmp).
        OrderCase{"\x7f", "\x80", -1}, OrderCase{"z", "\xC3\xA9", -1},
        OrderCase{"\xff", "\xfe\xff", 1}, OrderCase{"abc", "abd", -1},
        OrderCase{"abc", "ab", 1}));

TEST(CString, EmbeddedZeroBytesSurviveCopyAndConcatenation) {
  const CString Part("x\0y", 3);
  CString Joined = Part + Part;
  Joined += '\0';
  ASSERT_EQ(Joined.length(), 7u);
  EXPECT_EQ(Joined.view(), "x\0yx\0y\0"sv);
  const CString Copy = Joined;
  EXPECT_EQ(Copy, Joined);
  EXPECT_FALSE(CString("x\0z", 3) == Part);
  // Comparing with a C string stops at its terminator, not at ours.
  EXPECT_FALSE(Part == "x");
}

TEST(CString, HashSeesBytesAfterZero) {
  std::unordered_set<CString> Set{CString("a\0b", 3), CString("a\0c", 3),
                                  CString("a")};
  EXPECT_EQ(Set.size(), 3u);
  EXPECT_EQ(Set.count(CString("a\0c", 3)), 1u);
}

TEST(CString, FormatHandlesEveryLengthAroundItsStackBuffer) {
  for (std::size_t Length : {0u, 1u, 254u, 255u, 256u, 257u, 1000u, 70000u}) {
    const std::string Text(Length, 'q');
    const CString Formatted = CString::format("<%s>", Text.c_str());
    ASSERT_EQ(Formatted.length(), Length + 2) << Length;
    EXPECT_EQ(Formatted.view(), "<" + Text + ">");
  }
}

TEST(CString, FormatKeepsZeroBytesItWrites) {
  const std::string Long(300, 'w');
  const CString Formatted = CString::format("%c%s%c", '\0', Long.c_str(), '\0');
  ASSERT_EQ(Formatted.length(), 302u);
  EXPECT_EQ(Formatted[0], '\0');
  EXPECT_EQ(Formatted[301], '\0');
  EXPECT_EQ(CString::format("a%cb", '\0').view(), "a\0b"sv);
}

TEST(CString, SortsAsKeysInByteOrder) {
  std::vector<CString> Keys{bytes("b"), bytes("\xc3\xa9"), bytes("a\0"sv),
                            bytes("a"), bytes("B")};
  std::sort(Keys.begin(), Keys.end());
  const std::vector<CString> Expected{bytes("B"), bytes("a"), bytes("a\0"sv),
                                      bytes("b"), bytes("\xc3\xa9")};
  EXPECT_EQ(Keys, Expected);
}
