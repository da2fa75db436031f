#include "base/string/CString.h"

#include <gtest/gtest.h>

#include <string>
#include <unordered_set>

using qoString::CString;
using namespace std::literals;

// Bytes >= 0x80 sort after ASCII, as strcmp has them.
TEST(CString, ComparesWholeLengthAsUnsignedBytes) {
  const struct {
    std::string_view Left, Right;
    int Expected;
  } Cases[] = {{"a", "a\0"sv, -1},
               {"a\0b"sv, "a\0c"sv, -1},
               {"a\0b"sv, "a\0b"sv, 0},
               {"z", "\xC3\xA9", -1},
               {"\xff", "\xfe\xff", 1}};
  for (const auto &Case : Cases) {
    SCOPED_TRACE(testing::PrintToString(std::string(Case.Left)));
    const CString Left(Case.Left), Right(Case.Right);
    const int Sign = (Left.compare(Right) > 0) - (Left.compare(Right) < 0);
    EXPECT_EQ(Sign, Case.Expected);
    EXPECT_EQ(Left == Right, Case.Expected == 0);
    EXPECT_EQ(Left < Right, Case.Expected < 0);
  }
}

// Comparing with a C string stops at its terminator, not at ours.
TEST(CString, EmbeddedZeroBytesSurviveCopyConcatenationAndHashing) {
  const CString Part("x\0y", 3);
  CString Joined = Part + Part;
  Joined += '\0';
  EXPECT_EQ(Joined.view(), "x\0yx\0y\0"sv);
  EXPECT_FALSE(Part == "x");
  const std::unordered_set<CString> Set{Part, CString("x\0z", 3), CString("x")};
  EXPECT_EQ(Set.size(), 3u);
}

TEST(CString, FormatHandlesEveryLengthAroundItsStackBuffer) {
  for (std::size_t Length : {255u, 256u, 257u, 70000u}) {
    const std::string Text(Length, 'q');
    EXPECT_EQ(CString::format("%c%s", '\0', Text.c_str()).view(), "\0"s + Text)
        << Length;
  }
}
