#include "tools/orbo/TextPosition.h"

#include <algorithm>

namespace orbo {

TextPosition TextPosition::of(std::string_view Text, std::size_t Offset) {
  const std::string_view Before = Text.substr(0, std::min(Offset, Text.size()));
  TextPosition Position;
  Position.Line += std::count(Before.begin(), Before.end(), '\n');
  const std::size_t LastNewline = Before.rfind('\n');
  const std::size_t LineStart =
      LastNewline == std::string_view::npos ? 0 : LastNewline + 1;
  Position.Column = Before.size() - LineStart + 1;
  return Position;
}

} // namespace orbo
