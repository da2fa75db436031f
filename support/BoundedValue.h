//===- support/BoundedValue.h - Numbers that carry their own range --------===//
//
// nySupport::BoundedDouble and nySupport::BoundedInt hold a value together
// with the range it is meant to lie in, as a slider or a spin box shows it.
// They never clamp: setValue() and the range setters store what they are
// given, and nothing checks that min is below max. Both default to the empty
// range min 1, max 0 (not [0, 1]), so a value built without a range says so.
// Plain values; in items they travel as [value, min, max] (plst/Convert.h).
//
// Example:
//   nySupport::BoundedDouble opacity(0.25, 0.0, 0.5);
//   opacity.fractionalValue();            // 0.5
//   opacity.setValue(2.0);                // kept as given: 2.0
//   qoLinear::Range1d r = opacity.range(); // [0, 0.5]
//   nySupport::BoundedInt steps(3, 1, 10);
//   int n = steps;                        // 3
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_BOUNDEDVALUE_H
#define NYSUPPORT_BOUNDEDVALUE_H

#include "base/linear/Range.h"

#include <cstdint>

namespace nySupport {

class BoundedDouble {
public:
  BoundedDouble() = default;
  // Implicit, as the number it wraps: a plain double stands in for a bounded
  // one, with the empty range.
  BoundedDouble(double Value) : Value(Value) {}
  BoundedDouble(double Value, double Min, double Max)
      : Value(Value), Min(Min), Max(Max) {}
  BoundedDouble(double Value, const qoLinear::Range1d &Range)
      : Value(Value), Min(Range.Min), Max(Range.Max) {}

  double value() const { return Value; }
  double minValue() const { return Min; }
  double maxValue() const { return Max; }
  operator double() const { return Value; }
  qoLinear::Range1d range() const { return {Min, Max}; }

  void setValue(double V) { Value = V; }
  void setRange(double NewMin, double NewMax) {
    Min = NewMin;
    Max = NewMax;
  }
  void setRange(const qoLinear::Range1d &Range) {
    setRange(Range.Min, Range.Max);
  }

  // Where the value (or V) lies in the range: 0 at min, 1 at max. An empty
  // or zero-width range is not guarded: the division follows IEEE rules.
  double fractionalValue() const { return fractionalValue(Value); }
  double fractionalValue(double V) const;

private:
  double Value = 0;
  double Min = 1;
  double Max = 0;
};

class BoundedInt {
public:
  BoundedInt() = default;
  // Implicit for the same reason as BoundedDouble's.
  BoundedInt(std::int32_t Value) : Value(Value) {}
  BoundedInt(std::int32_t Value, std::int32_t Min, std::int32_t Max)
      : Value(Value), Min(Min), Max(Max) {}

  std::int32_t value() const { return Value; }
  std::int32_t minValue() const { return Min; }
  std::int32_t maxValue() const { return Max; }
  operator std::int32_t() const { return Value; }

  void setValue(std::int32_t V) { Value = V; }
  void setMinMax(std::int32_t NewMin, std::int32_t NewMax) {
    Min = NewMin;
    Max = NewMax;
  }

private:
  std::int32_t Value = 0;
  std::int32_t Min = 1;
  std::int32_t Max = 0;
};

} // namespace nySupport

#endif // NYSUPPORT_BOUNDEDVALUE_H
