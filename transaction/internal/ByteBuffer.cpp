//===- transaction/internal/ByteBuffer.cpp - Growable byte arena ----------===//

#include "transaction/internal/ByteBuffer.h"

#include "transaction/Config.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace nyTXN::internal {

void ByteBuffer::release() {
  std::free(Begin);
  Begin = End = Limit = nullptr;
}

unsigned char *ByteBuffer::grow(std::size_t Needed) {
  const std::size_t Size = size();
  const std::size_t Wanted =
      std::max({capacity() * 2, Size + Needed, config::InitialArenaBytes});
  auto *Block = static_cast<unsigned char *>(std::realloc(Begin, Wanted));
  if (!Block)
    throw std::bad_alloc();
  Begin = Block;
  End = Block + Size;
  Limit = Block + Wanted;
  return End;
}

} // namespace nyTXN::internal
