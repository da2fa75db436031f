//===- plst/internal/NumberFormat.h - Doubles as text -----------*- C++ -*-===//
//
// The two number forms the JSON writers need, produced without printf so that
// the process's locale (a German desktop writes "1,5") never reaches a file,
// and fast enough that formatting does not dominate writing.
//
// Both write into a caller's buffer of at least MaxDoubleText bytes and return
// the length written; nothing is zero-terminated.
//
// Example:
//   char Text[nyPLST::internal::MaxDoubleText];
//   std::size_t Length = nyPLST::internal::formatShortDouble(0.1, Text);
//   Stream.write(Text, Length);   // "0.1"
//
//===----------------------------------------------------------------------===//
#ifndef NYPLST_INTERNAL_NUMBERFORMAT_H
#define NYPLST_INTERNAL_NUMBERFORMAT_H

#include <cstddef>

namespace nyPLST::internal {

// Room for the longest text of either form: sign, 20 digits, point and a
// three-digit exponent, with margin.
inline constexpr std::size_t MaxDoubleText = 40;

// printf's "%g" in the "C" locale: six significant digits, exponent form for
// very large and small magnitudes, "nan", "-nan", "inf", "-inf".
std::size_t formatShortDouble(double Value, char *Buffer);

// printf's "%.20g" in the "C" locale, with ".0" appended when the text has
// only digits and a minus sign, so that it reads back as a double. Value must
// be finite: JSON has no spelling for NaN or infinity.
std::size_t formatExactDouble(double Value, char *Buffer);

} // namespace nyPLST::internal

#endif // NYPLST_INTERNAL_NUMBERFORMAT_H
