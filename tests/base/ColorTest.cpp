#include "base/util/Color.h"

#include "base/util/HSL.h"

#include <gtest/gtest.h>

#include <limits>

using qoUtil::Color;
using qoUtil::Color8;
using qoUtil::HSL;

static_assert(sizeof(Color) == 16 && sizeof(Color8) == 4);

// 0.5/255 above and below a level's centre decide the rounding.
TEST(Color, Color8PacksRedInTheLowByteRoundsAndClamps) {
  EXPECT_EQ(0x2C0080FFu, Color8(255, 128, 0, 44).packed());
  EXPECT_EQ(Color8(0x44, 0x33, 0x22, 0x11), Color8::fromPacked(0x11223344u));
  EXPECT_EQ(Color(1, 0, 0, 1), Color8(255, 0, 0, 255).toColor());
  const float NaN = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(Color8(127, 0, 255, 0), Color8(Color(0.499f, -3, 7, NaN)));
  EXPECT_EQ(1, Color8(Color(1.49f / 255, 0, 0)).r());
  EXPECT_EQ(2, Color8(Color(1.51f / 255, 0, 0)).r());
}

TEST(Color, HSLKnownValuesBothWaysAndWrappedHue) {
  const struct {
    const char *Name;
    Color RGB;
    HSL Expected;
  } Cases[] = {
      {"red", {1, 0, 0}, {0, 1, 0.5f}},
      {"yellow", {1, 1, 0}, {60, 1, 0.5f}},
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
  EXPECT_EQ(Color8(HSL(240, 1, 0.5f).toColor()),
            Color8(HSL(-840, 1, 0.5f).toColor()))
      << "hue wraps";
}
