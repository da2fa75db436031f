//===- transaction/internal/ByteBuffer.h - Growable byte arena ------------===//
//
// The arena an undo step keeps its snapshots in: one contiguous block that
// grows geometrically, appended to by Writer and read back by Reader. The
// bytes are trivially copyable, so growing is a realloc. Internal to the
// transaction folder.
//
//===----------------------------------------------------------------------===//
#ifndef NYTXN_INTERNAL_BYTEBUFFER_H
#define NYTXN_INTERNAL_BYTEBUFFER_H

#include <cstddef>
#include <cstring>
#include <utility>

namespace nyTXN::internal {

class ByteBuffer {
public:
  ByteBuffer() = default;
  ByteBuffer(const ByteBuffer &) = delete;
  ByteBuffer &operator=(const ByteBuffer &) = delete;
  ~ByteBuffer() { release(); }

  // End moves before the bytes are copied: the copy may alias it, and
  // would force it to be read back.
  void append(const void *Data, std::size_t Size) {
    unsigned char *At = End;
    if (static_cast<std::size_t>(Limit - At) < Size)
      At = grow(Size);
    End = At + Size;
    if (Size)
      std::memcpy(At, Data, Size);
  }

  const unsigned char *data() const { return Begin; }
  std::size_t size() const { return static_cast<std::size_t>(End - Begin); }
  std::size_t capacity() const {
    return static_cast<std::size_t>(Limit - Begin);
  }
  void clear() { End = Begin; }
  // Frees the block; the buffer is empty with no capacity afterwards.
  void release();
  void swap(ByteBuffer &Other) {
    std::swap(Begin, Other.Begin);
    std::swap(End, Other.End);
    std::swap(Limit, Other.Limit);
  }

private:
  // Makes room for Needed more bytes; returns the end.
  unsigned char *grow(std::size_t Needed);

  unsigned char *Begin = nullptr;
  unsigned char *End = nullptr;
  unsigned char *Limit = nullptr;
};

} // namespace nyTXN::internal

#endif // NYTXN_INTERNAL_BYTEBUFFER_H
