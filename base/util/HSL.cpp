//===- base/util/HSL.cpp - Hue, saturation, lightness colours -------------===//
//
// Computed in double and rounded to float once at the end, so that primary
// and secondary colours come out exact (hue 120, not 119.99999).
//
//===----------------------------------------------------------------------===//
#include "base/util/HSL.h"

#include <algorithm>
#include <cmath>

namespace qoUtil {
namespace {

double clamp01(double V) { return V > 0 ? (V < 1 ? V : 1) : 0; }

} // namespace

HSL HSL::fromColor(const Color &C) {
  const double R = clamp01(C.R), G = clamp01(C.G), B = clamp01(C.B);
  const double Max = std::max({R, G, B}), Min = std::min({R, G, B});
  const double Lightness = (Max + Min) / 2;
  const double Chroma = Max - Min;
  if (Chroma == 0)
    return {0, 0, float(Lightness), C.A};

  double Sextant;
  if (Max == R)
    Sextant = (G - B) / Chroma + (G < B ? 6 : 0);
  else if (Max == G)
    Sextant = (B - R) / Chroma + 2;
  else
    Sextant = (R - G) / Chroma + 4;
  const double Saturation = Chroma / (1 - std::fabs(2 * Lightness - 1));
  return {float(Sextant * 60), float(std::min(Saturation, 1.0)),
          float(Lightness), C.A};
}

// Chroma C spans the brightest and darkest channel; X is the middle one,
// rising or falling across each sixty-degree sextant.
Color HSL::toColor() const {
  double Hue = std::fmod(double(H), 360.0);
  if (Hue < 0)
    Hue += 360;
  if (!std::isfinite(Hue))
    Hue = 0;
  const double Sat = clamp01(S), Light = clamp01(L);
  const double Chroma = (1 - std::fabs(2 * Light - 1)) * Sat;
  const double Sextant = Hue / 60;
  const double X = Chroma * (1 - std::fabs(std::fmod(Sextant, 2.0) - 1));
  double R = 0, G = 0, B = 0;
  switch (std::min(int(Sextant), 5)) {
  case 0:
    R = Chroma, G = X;
    break;
  case 1:
    R = X, G = Chroma;
    break;
  case 2:
    G = Chroma, B = X;
    break;
  case 3:
    G = X, B = Chroma;
    break;
  case 4:
    R = X, B = Chroma;
    break;
  default:
    R = Chroma, B = X;
    break;
  }
  const double Base = Light - Chroma / 2;
  return {float(R + Base), float(G + Base), float(B + Base), A};
}

} // namespace qoUtil
