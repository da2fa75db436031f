//===- tools/orbo/TextPosition.h - Line and column of a byte offset -------===//
//
// The parser reports errors as an absolute byte offset; people want a line
// and a column. Both are 1-based. A line ends after each "\n" (so "\r\n" ends
// one too, and a lone "\r" is an ordinary byte); the column counts bytes, not
// characters, which is what an editor's byte-column shows for any encoding.
// An offset past the end of the text is taken as the end of the text.
//
// Example:
//   TextPosition P = TextPosition::of("[1,\n  x]", 6);
//   // P.Line == 2, P.Column == 3
//
//===----------------------------------------------------------------------===//
#ifndef ORBO_TOOLS_ORBO_TEXTPOSITION_H
#define ORBO_TOOLS_ORBO_TEXTPOSITION_H

#include <cstddef>
#include <string_view>

namespace orbo {

struct TextPosition {
  std::size_t Line = 1;
  std::size_t Column = 1;

  static TextPosition of(std::string_view Text, std::size_t Offset);
};

} // namespace orbo

#endif // ORBO_TOOLS_ORBO_TEXTPOSITION_H
