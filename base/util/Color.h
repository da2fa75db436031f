//===- base/util/Color.h - Floating-point and packed 8-bit colours --------===//
//
// qoUtil::Color holds four floats in the storage order R, G, B, A, nominally
// in [0, 1] (values outside are kept: intermediate results may overshoot).
// The default is opaque black.
//
// qoUtil::Color8 packs four 8-bit channels into one 32-bit value: R in bits
// 0..7, G in 8..15, B in 16..23 and A in 24..31. On a little-endian machine
// the bytes in memory are therefore R, G, B, A, the usual 8-bit RGBA texel
// order. Converting from Color clamps each channel to [0, 1] (NaN counts as
// 0) and rounds to the nearest of the 256 levels; converting back divides by
// 255, so Color8 -> Color -> Color8 is exact.
//
// Example:
//   qoUtil::Color orange(1.0f, 0.5f, 0.0f);
//   qoUtil::Color8 packed(orange);        // R 255, G 128, B 0, A 255
//   packed.packed();                      // 0xFF0080FF
//   qoUtil::Color again = packed.toColor();
//
//===----------------------------------------------------------------------===//
#ifndef QOUTIL_COLOR_H
#define QOUTIL_COLOR_H

#include <cassert>
#include <cstdint>

namespace qoUtil {

struct Color {
  float R = 0;
  float G = 0;
  float B = 0;
  float A = 1;

  constexpr Color() = default;
  constexpr Color(float R, float G, float B, float A = 1)
      : R(R), G(G), B(B), A(A) {}

  // In storage order: R, G, B, A.
  constexpr float operator[](int I) const {
    assert(I >= 0 && I < 4 && "colour channel out of range");
    return I == 0 ? R : (I == 1 ? G : (I == 2 ? B : A));
  }
  constexpr float &operator[](int I) {
    assert(I >= 0 && I < 4 && "colour channel out of range");
    return I == 0 ? R : (I == 1 ? G : (I == 2 ? B : A));
  }

  // Every channel in [0, 1]; NaN becomes 0.
  constexpr Color clamped() const {
    return {clamp01(R), clamp01(G), clamp01(B), clamp01(A)};
  }

  friend constexpr bool operator==(const Color &X, const Color &Y) {
    return X.R == Y.R && X.G == Y.G && X.B == Y.B && X.A == Y.A;
  }

  static constexpr float clamp01(float V) {
    return V > 0 ? (V < 1 ? V : 1) : 0;
  }
};

// Channel-wise linear interpolation: T = 0 gives X, T = 1 gives Y.
constexpr Color lerp(const Color &X, const Color &Y, float T) {
  return {X.R + (Y.R - X.R) * T, X.G + (Y.G - X.G) * T, X.B + (Y.B - X.B) * T,
          X.A + (Y.A - X.A) * T};
}

class Color8 {
public:
  // Opaque black, as Color.
  constexpr Color8() = default;
  constexpr Color8(std::uint8_t R, std::uint8_t G, std::uint8_t B,
                   std::uint8_t A = 255)
      : Value(std::uint32_t(R) | std::uint32_t(G) << 8 |
              std::uint32_t(B) << 16 | std::uint32_t(A) << 24) {}
  explicit constexpr Color8(const Color &C)
      : Color8(level(C.R), level(C.G), level(C.B), level(C.A)) {}
  static constexpr Color8 fromPacked(std::uint32_t Packed) {
    Color8 Out;
    Out.Value = Packed;
    return Out;
  }

  constexpr std::uint32_t packed() const { return Value; }
  // Channel I in storage order (0 = R ... 3 = A).
  constexpr std::uint8_t operator[](int I) const {
    assert(I >= 0 && I < 4 && "colour channel out of range");
    return std::uint8_t(Value >> (8 * I));
  }
  constexpr std::uint8_t r() const { return (*this)[0]; }
  constexpr std::uint8_t g() const { return (*this)[1]; }
  constexpr std::uint8_t b() const { return (*this)[2]; }
  constexpr std::uint8_t a() const { return (*this)[3]; }
  constexpr void set(int I, std::uint8_t V) {
    assert(I >= 0 && I < 4 && "colour channel out of range");
    Value = (Value & ~(std::uint32_t(0xFF) << (8 * I))) | std::uint32_t(V)
                                                              << (8 * I);
  }

  constexpr Color toColor() const {
    return {r() / 255.0f, g() / 255.0f, b() / 255.0f, a() / 255.0f};
  }

  friend constexpr bool operator==(const Color8 &X, const Color8 &Y) {
    return X.Value == Y.Value;
  }

private:
  // Round half up; the +0.5 cannot reach 256 because the channel is clamped.
  static constexpr std::uint8_t level(float V) {
    return std::uint8_t(Color::clamp01(V) * 255.0f + 0.5f);
  }

  std::uint32_t Value = 0xFF000000u;
};

} // namespace qoUtil

#endif // QOUTIL_COLOR_H
