//===- support/Units.cpp - Lengths with a unit ----------------------------===//
//
// Every conversion multiplies by the source unit's metres first and divides
// by the target's second, and is skipped when the units agree: tolerances
// are compared against these exact results (25.4 mm is exactly 1 in, 1 m
// exactly 1000 mm), so the order of the operations is part of the behaviour.
//
//===----------------------------------------------------------------------===//
#include "support/Units.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <limits>

namespace nySupport::Units {

namespace {

// An unknown unit (a number cast from a damaged document) converts to NaN,
// which no tolerance accepts.
double metresPer(LengthUnits U) {
  const bool Known = U >= 0 && U < LengthUnitCount;
  assert(Known && "length unit out of range");
  return Known ? impl::s_conversions[U]
               : std::numeric_limits<double>::quiet_NaN();
}

double valueIn(const Length &L, LengthUnits U) {
  if (L.unit == U)
    return L.value;
  return L.value * metresPer(L.unit) / metresPer(U);
}

} // namespace

Length::Length(const Length &Other, LengthUnits Unit)
    : value(valueIn(Other, Unit)), unit(Unit) {}

bool equivalent(const Length &A, const Length &B, double RelTolerance) {
  if (A.value == 0 && B.value == 0)
    return true;
  const double BValue = valueIn(B, A.unit);
  const double Largest = std::max(std::fabs(A.value), std::fabs(BValue));
  return RelTolerance > std::fabs(A.value - BValue) / Largest;
}

bool equivalent(const Length &A, const Length &B, const Length &AbsTolerance) {
  const double Difference =
      std::fabs(valueIn(A, Millimetre) - valueIn(B, Millimetre));
  return valueIn(AbsTolerance, Millimetre) >= Difference;
}

} // namespace nySupport::Units
