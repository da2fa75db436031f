//===- base/image/Image.h - A block of 8-bit pixels -----------------------===//
//
// qoImage::Image is a width by height raster of 8-bit channels (1 to 4 per
// pixel), rows stored top to bottom without padding. It is a value: copies
// are deep. memorySize() is what it reports to memory accounting.
//
// Example:
//   qoImage::Image Thumb(64, 64, 4);       // RGBA, all zero
//   Thumb.pixel(3, 5)[0] = 255;            // red channel of (3, 5)
//   Thumb.memorySize();                    // at least 64 * 64 * 4
//
//===----------------------------------------------------------------------===//
#ifndef QOIMAGE_IMAGE_H
#define QOIMAGE_IMAGE_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qoImage {

class Image {
public:
  Image() = default;
  // Channels is clamped to 1..4; the pixels start at zero.
  Image(int Width, int Height, int Channels);

  int width() const { return Width; }
  int height() const { return Height; }
  int channels() const { return Channels; }
  bool empty() const { return Pixels.empty(); }
  // The channels of pixel (X, Y); both must be inside the image.
  std::uint8_t *pixel(int X, int Y);
  const std::uint8_t *pixel(int X, int Y) const;
  const std::vector<std::uint8_t> &bytes() const { return Pixels; }

  std::size_t memorySize() const { return sizeof(*this) + Pixels.capacity(); }

  friend bool operator==(const Image &, const Image &) = default;

private:
  int Width = 0;
  int Height = 0;
  int Channels = 0;
  std::vector<std::uint8_t> Pixels;
};

} // namespace qoImage

#endif // QOIMAGE_IMAGE_H
