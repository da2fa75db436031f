#include "base/string/CString.h"

#include <gtest/gtest.h>

#include <string>
#include <unordered_set>

using qoString::CString;
using namespace std::literals;

TEST(CString, ComparesWholeLengthAsUnsignedBytes) {
  const struct {
    std::string_view Left, Right;
    int Expected;
  } Cases[] = {{"", "", 0},
               {"", "a", -1},
               {"a", "a\0"sv, -1},
               {"a\0b"sv, "a\0c"sv, -1},
               {"a\0b"sv, "a\0b"sv, 0},
               {"a\0"sv, "a\x01", -1},
               // Bytes >= 0x80 sort after ASCII (unsigned, as strcmp).
               {"\x7f", "\x80", -1},
               {"z", "\xC3\xA9", -1},
               {"\xff", "\xfe\xff", 1},
               {"abc", "ab", 1}};
  for (const auto &Case : Cases) {
    SCOPED_TRACE(testing::PrintToString(std::string(Case.Left)) + " vs " +
                 testing::PrintToString(std::string(Case.Right)));
    const CString Left(Case.Left), Right(Case.Right);
    const int Sign = (Left.compare(Right) > 0) - (Left.compare(Right) < 0);
    EXPECT_EQ(Sign, Case.Expected);
    EXPECT_EQ(Left == Right, Case.Expected == 0);
    EXPECT_EQ(Left < Right, Case.Expected < 0);
  }
}

TEST(CString, EmbeddedZeroBytesSurviveCopyConcatenationAndHashing) {
  const CString Part("x\0y", 3);
  CString Joined = Part + Part;
  Joined += '\0';
  const CString Copy = Joined;
  EXPECT_EQ(Copy.view(), "x\0yx\0y\0"sv);
  EXPECT_FALSE(CString("x\0z", 3) == Part);
  // Comparing with a C string stops at its terminator, not at ours.
  EXPECT_FALSE(Part == "x");
  const std::unordered_set<CString> Set{Part, CString("x\0z", 3), CString("x")};
  EXPECT_EQ(Set.size(), 3u);
}

TEST(CString, FormatHandlesEveryLengthAroundItsStackBuffer) {
  for (std::size_t Length : {0u, 1u, 254u, 255u, 256u, 257u, 1000u, 70000u}) {
    const std::string Text(Length, 'q');
    EXPECT_EQ(CString::format("<%s>", Text.c_str()).view(), "<" + Text + ">")
        << Length;
  }
  const std::string Long(300, 'w');
  EXPECT_EQ(CString::format("%c%s%c", '\0', Long.c_str(), '\0').view(),
            "\0"s + Long + "\0"s);
}
