#include "base/util/Color.h"

#include "base/util/HSL.h"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

using qoUtil::Color;
using qoUtil::Color8;
using qoUtil::HSL;

static_assert(sizeof(Color) == 16 && sizeof(Color8) == 4 &&
              std::is_trivially_copyable_v<Color> &&
              std::is_trivially_copyable_v<Color8>);

TEST(Color, Color8PacksRedInTheLowByteRoundsAndClamps) {
  EXPECT_EQ(0x2C0080FFu, Color8(255, 128, 0, 44).packed());
  EXPECT_EQ(Color8(0x44, 0x33, 0x22, 0x11), Color8::fromPacked(0x11223344u));
  for (int Level = 0; Level < 256; ++Level) {
    const auto L = static_cast<std::uint8_t>(Level);
    const Color8 C(L, static_cast<std::uint8_t>(255 - L), L, L);
    EXPECT_EQ(C, Color8(C.toColor())) << Level;
  }
  const float NaN = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(Color8(127, 0, 255, 0), Color8(Color(0.499f, -3, 7, NaN)));
  // 0.5/255 above and below a level's centre.
  EXPECT_EQ(1, Color8(Color(1.49f / 255, 0, 0)).r());
  EXPECT_EQ(2, Color8(Color(1.51f / 255, 0, 0)).r());
  EXPECT_EQ(Color(1, 0, 0.5f, 0), Color(2, -1, 0.5f, NaN).clamped());
}

TEST(Color, HSLKnownValuesBothWaysAndWrappedHue) {
  const struct {
    const char *Name;
    Color RGB;
    HSL Expected;
  } Cases[] = {
      {"red", {1, 0, 0}, {0, 1, 0.5f}},
      {"yellow", {1, 1, 0}, {60, 1, 0.5f}},
      {"green", {0, 1, 0}, {120, 1, 0.5f}},
      {"cyan", {0, 1, 1}, {180, 1, 0.5f}},
      {"blue", {0, 0, 1}, {240, 1, 0.5f}},
      {"magenta", {1, 0, 1}, {300, 1, 0.5f}},
      {"grey", {0.5f, 0.5f, 0.5f}, {0, 0, 0.5f}},
      {"teal", {0, 0.5f, 0.5f}, {180, 1, 0.25f}},
      {"orange", {1, 0.5f, 0, 0.25f}, {30, 1, 0.5f, 0.25f}},
  };
  for (const auto &Case : Cases) {
    SCOPED_TRACE(Case.Name);
    const HSL Got = HSL::fromColor(Case.RGB);
    EXPECT_NEAR(Case.Expected.H, Got.H, 1e-4);
    EXPECT_NEAR(Case.Expected.S, Got.S, 1e-6);
    EXPECT_NEAR(Case.Expected.L, Got.L, 1e-6);
    EXPECT_EQ(Case.Expected.A, Got.A);
    const Color Back = Case.Expected.toColor();
    for (int I = 0; I < 4; ++I)
      EXPECT_NEAR(Case.RGB[I], Back[I], 1e-6) << "channel " << I;
  }
  for (int Ch = 0; Ch < 3; ++Ch)
    EXPECT_NEAR(HSL(240, 1, 0.5f).toColor()[Ch],
                HSL(-120 - 720, 1, 0.5f).toColor()[Ch], 1e-5)
        << "hue wraps";
}
