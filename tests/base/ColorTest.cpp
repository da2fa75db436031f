#include "base/util/Color.h"

#include "base/util/HSL.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <type_traits>

using qoUtil::Color;
using qoUtil::Color8;
using qoUtil::HSL;

static_assert(sizeof(Color) == 16 && sizeof(Color8) == 4 &&
              std::is_trivially_copyable_v<Color> &&
              std::is_trivially_copyable_v<Color8>);

TEST(Color, Color8PacksRedInTheLowByte) {
  const Color8 C(255, 128, 0, 44);
  EXPECT_EQ(0x2C0080FFu, C.packed());
  EXPECT_EQ(128, C.g());
  EXPECT_EQ(44, C[3]);
  Color8 D = Color8::fromPacked(0x11223344u);
  EXPECT_EQ(0x44, D.r());
  EXPECT_EQ(0x11, D.a());
  D.set(1, 0xAB);
  EXPECT_EQ(0x1122AB44u, D.packed());
  EXPECT_EQ(Color8(0, 0, 0, 255), Color8());
}

TEST(Color, Color8RoundTripsThroughColorExactly) {
  for (int Level = 0; Level < 256; ++Level) {
    const auto L = static_cast<std::uint8_t>(Level);
    const Color8 C(L, static_cast<std::uint8_t>(255 - L), L, L);
    EXPECT_EQ(C, Color8(C.toColor())) << Level;
  }
}

TEST(Color, ConversionToColor8RoundsAndClamps) {
  const float NaN = std::numeric_limits<float>::quiet_NaN();
  EXPECT_EQ(Color8(255, 128, 0, 255), Color8(Color(1, 0.5f, 0)));
  EXPECT_EQ(Color8(127, 0, 255, 0), Color8(Color(0.499f, -3, 7, NaN)));
  // 0.5/255 above and below a level's centre.
  EXPECT_EQ(1, Color8(Color(1.49f / 255, 0, 0)).r());
  EXPECT_EQ(2, Color8(Color(1.51f / 255, 0, 0)).r());
  EXPECT_EQ(Color(1, 0, 0.5f, 0), Color(2, -1, 0.5f, NaN).clamped());
}

namespace {

struct HSLCase {
  const char *Name;
  Color RGB;
  HSL Expected;
};

const HSLCase HSLCases[] = {
    {"red", {1, 0, 0}, {0, 1, 0.5f}},
    {"yellow", {1, 1, 0}, {60, 1, 0.5f}},
    {"green", {0, 1, 0}, {120, 1, 0.5f}},
    {"cyan", {0, 1, 1}, {180, 1, 0.5f}},
    {"blue", {0, 0, 1}, {240, 1, 0.5f}},
    {"magenta", {1, 0, 1}, {300, 1, 0.5f}},
    {"black", {0, 0, 0}, {0, 0, 0}},
    {"white", {1, 1, 1}, {0, 0, 1}},
    {"grey", {0.5f, 0.5f, 0.5f}, {0, 0, 0.5f}},
    {"teal", {0, 0.5f, 0.5f}, {180, 1, 0.25f}},
    {"pale red", {0.75f, 0.25f, 0.25f}, {0, 0.5f, 0.5f}},
    {"orange", {1, 0.5f, 0, 0.25f}, {30, 1, 0.5f, 0.25f}},
};

} // namespace

TEST(Color, HSLKnownValuesBothWays) {
  for (const HSLCase &Case : HSLCases) {
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
}

TEST(Color, HSLWrapsHueAndRoundTrips) {
  const Color Blue = HSL(240, 1, 0.5f).toColor();
  const Color Wrapped = HSL(-120, 1, 0.5f).toColor();
  const Color Around = HSL(600, 1, 0.5f).toColor();
  for (int I = 0; I < 3; ++I) {
    EXPECT_NEAR(Blue[I], Wrapped[I], 1e-6);
    EXPECT_NEAR(Blue[I], Around[I], 1e-6);
  }

  std::mt19937 Rng(5);
  std::uniform_real_distribution<float> Channel(0, 1);
  for (int I = 0; I < 500; ++I) {
    const Color C(Channel(Rng), Channel(Rng), Channel(Rng));
    const Color Back = HSL::fromColor(C).toColor();
    EXPECT_NEAR(C.R, Back.R, 1e-5);
    EXPECT_NEAR(C.G, Back.G, 1e-5);
    EXPECT_NEAR(C.B, Back.B, 1e-5);
  }
}
