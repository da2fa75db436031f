//===- base/image/Image.cpp - A block of 8-bit pixels ---------------------===//

#include "base/image/Image.h"

#include <algorithm>
#include <cassert>

namespace qoImage {

Image::Image(int Width, int Height, int Channels)
    : Width(std::max(Width, 0)), Height(std::max(Height, 0)),
      Channels(std::clamp(Channels, 1, 4)),
      Pixels(static_cast<std::size_t>(this->Width) * this->Height *
             this->Channels) {}

std::uint8_t *Image::pixel(int X, int Y) {
  assert(X >= 0 && Y >= 0 && X < Width && Y < Height &&
         "pixel outside the image");
  return Pixels.data() + (static_cast<std::size_t>(Y) * Width + X) * Channels;
}

const std::uint8_t *Image::pixel(int X, int Y) const {
  return const_cast<Image *>(this)->pixel(X, Y);
}

} // namespace qoImage
