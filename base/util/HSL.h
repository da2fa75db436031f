//===- base/util/HSL.h - Hue, saturation, lightness colours ---------------===//
//
// qoUtil::HSL is a colour as hue H in degrees [0, 360), saturation S and
// lightness L in [0, 1], plus the alpha A carried through unchanged. The
// conversions are the standard hexcone formulas: a grey (R = G = B) has
// saturation 0 and, by convention, hue 0. toColor() wraps any hue into
// [0, 360) and clamps S and L; fromColor() clamps the RGB channels first.
//
// Example:
//   qoUtil::HSL red = qoUtil::HSL::fromColor(qoUtil::Color(1, 0, 0));
//   // H 0, S 1, L 0.5
//   qoUtil::HSL teal{180, 1, 0.25f};
//   qoUtil::Color c = teal.toColor();       // (0, 0.5, 0.5, 1)
//
//===----------------------------------------------------------------------===//
#ifndef QOUTIL_HSL_H
#define QOUTIL_HSL_H

#include "base/util/Color.h"

namespace qoUtil {

struct HSL {
  float H = 0;
  float S = 0;
  float L = 0;
  float A = 1;

  constexpr HSL() = default;
  constexpr HSL(float H, float S, float L, float A = 1)
      : H(H), S(S), L(L), A(A) {}

  static HSL fromColor(const Color &C);
  Color toColor() const;

  friend constexpr bool operator==(const HSL &X, const HSL &Y) {
    return X.H == Y.H && X.S == Y.S && X.L == Y.L && X.A == Y.A;
  }
};

} // namespace qoUtil

#endif // QOUTIL_HSL_H
