//===- plst/internal/NumberFormat.cpp - Doubles as text, locale-free ------===//
//
// std::to_chars with a precision is defined as printf in the "C" locale, so it
// gives the same bytes as "%g" and "%.20g" without consulting LC_NUMERIC and
// without printf's multi-precision arithmetic.
//
//===----------------------------------------------------------------------===//
#include "plst/internal/NumberFormat.h"

#include "plst/Config.h"

#include <cassert>
#include <charconv>
#include <cmath>

namespace nyPLST::internal {

std::size_t formatShortDouble(double Value, char *Buffer) {
  const auto Result =
      std::to_chars(Buffer, Buffer + MaxDoubleText, Value,
                    std::chars_format::general, config::PrettyDoublePrecision);
  return static_cast<std::size_t>(Result.ptr - Buffer);
}

std::size_t formatExactDouble(double Value, char *Buffer) {
  assert(std::isfinite(Value) && "JSON cannot spell NaN or infinity");
  const auto Result =
      std::to_chars(Buffer, Buffer + MaxDoubleText - 2, Value,
                    std::chars_format::general, config::ExactDoublePrecision);
  char *End = Result.ptr;
  for (const char *P = Buffer; P != End; ++P)
    if ((*P < '0' || *P > '9') && *P != '-')
      return static_cast<std::size_t>(End - Buffer);
  *End++ = '.';
  *End++ = '0';
  return static_cast<std::size_t>(End - Buffer);
}

} // namespace nyPLST::internal
