#include "base/thread/Buffer.h"

#include <cassert>

namespace qoThread {

Buffer::Buffer(const void *Data, std::size_t Size) { append(Data, Size); }

void Buffer::append(const void *Data, std::size_t Size) {
  assert((Data || Size == 0) && "appending bytes from a null pointer");
  if (Size == 0)
    return;
  const char *From = static_cast<const char *>(Data);
  Bytes.insert(Bytes.end(), From, From + Size);
}

qo::Reference<Buffer> mergeBuffers(const qo::Reference<Buffer> &A,
                                   const qo::Reference<Buffer> &B) {
  const qo::Reference<Buffer> Pair[] = {A, B};
  return mergeBuffers(Pair);
}

qo::Reference<Buffer>
mergeBuffers(std::span<const qo::Reference<Buffer>> Pieces) {
  std::size_t Total = 0;
  for (const auto &Piece : Pieces)
    if (Piece)
      Total += Piece->size();
  qo::Reference<Buffer> Merged(new Buffer);
  Merged->reserve(Total);
  for (const auto &Piece : Pieces)
    if (Piece)
      Merged->append(Piece->data(), Piece->size());
  return Merged;
}

} // namespace qoThread
