//===- support/Units.h - Lengths with a unit and their equivalence --------===//
//
// nySupport::Units is a namespace of length units: the enumeration
// LengthUnits, the table of metres per unit, the plain struct Length (a value
// and its unit) and two equivalence tests.
//
// A Length converted to another unit is value * metres(from) / metres(to);
// converting to its own unit copies the value exactly, so no rounding creeps
// in. The relative test is strict (with a tolerance of 0 not even two equal
// non-zero lengths match) and the absolute test inclusive (a difference equal
// to the tolerance matches); callers rely on both edges.
//
// Example:
//   using namespace nySupport;
//   Units::Length inch(Units::Length(25.4, Units::Millimetre), Units::Inch);
//   inch.value;                                                  // 1
//   Units::equivalent(Units::Length(1, Units::Metre),
//                     Units::Length(1001, Units::Millimetre),
//                     Units::Length(1, Units::Millimetre));       // true
//   Units::equivalent(Units::Length(1, Units::Metre),
//                     Units::Length(1000, Units::Millimetre), 0); // false
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_UNITS_H
#define NYSUPPORT_UNITS_H

#include <cstdint>

namespace nySupport::Units {

// The values are stored in documents; do not renumber.
enum LengthUnits : std::int32_t {
  Millimetre = 0,
  Centimetre = 1,
  Metre = 2,
  Kilometre = 3,
  Inch = 4,
  Foot = 5,
  Yard = 6,
  Mile = 7,
  Point = 8,
};

inline constexpr int LengthUnitCount = 9;

namespace impl {
// Metres per unit, indexed by LengthUnits. The imperial entries are the exact
// international definitions; a point is 1/72 inch.
inline constexpr double s_conversions[LengthUnitCount] = {
    0.001, 0.01, 1.0, 1000.0, 0.0254, 0.3048, 0.9144, 1609.344, 0.0254 / 72};
} // namespace impl

struct Length {
  double value = 0;
  LengthUnits unit = Millimetre;

  Length() = default;
  Length(double V, LengthUnits U) : value(V), unit(U) {}
  // Other expressed in Unit.
  Length(const Length &Other, LengthUnits Unit);
};

// True when both values are 0, whatever their units; otherwise when
// RelTolerance > |a - b| / max(|a|, |b|), with b expressed in a's unit.
bool equivalent(const Length &A, const Length &B, double RelTolerance);
// True when |a - b| <= AbsTolerance, all three compared in millimetres.
bool equivalent(const Length &A, const Length &B, const Length &AbsTolerance);

} // namespace nySupport::Units

#endif // NYSUPPORT_UNITS_H
