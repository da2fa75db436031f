//===- base/os/MemoryIOStream.cpp - Byte stream held in memory blocks -----===//
//
// Invariant: Blocks holds exactly ceil(Size / BlockSize) blocks; byte N lives
// at Blocks[N / BlockSize][N % BlockSize]; Position <= Size. Because a seek
// cannot pass Size, writes extend the stream without gaps, so every allocated
// block holds at least one written byte.
//
//===----------------------------------------------------------------------===//
#include "base/os/MemoryIOStream.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace qoOS {

MemoryIOStream::MemoryIOStream(std::size_t BlockSize)
    : BlockSize(BlockSize ? BlockSize : DefaultBlockSize) {
  assert(BlockSize > 0 && "memory stream block size must not be 0");
}

std::string_view MemoryIOStream::block(std::size_t Index) const {
  assert(Index < Blocks.size() && "memory stream block index out of range");
  if (Index >= Blocks.size())
    return {};
  const std::size_t Start = Index * BlockSize;
  return {Blocks[Index].get(), std::min(BlockSize, Size - Start)};
}

qoString::CString MemoryIOStream::contents() const {
  qoString::CString Result;
  Result.reserve(Size);
  for (std::size_t I = 0; I < Blocks.size(); ++I)
    Result += block(I);
  return Result;
}

void MemoryIOStream::clear() {
  Blocks.clear();
  Size = 0;
  Position = 0;
  Error = false;
}

std::size_t MemoryIOStream::read(void *Buffer, std::size_t Length) {
  auto *Out = static_cast<char *>(Buffer);
  const std::size_t Total = std::min(Length, Size - Position);
  std::size_t Done = 0;
  while (Done < Total) {
    const std::size_t Offset = Position % BlockSize;
    const std::size_t Chunk = std::min(Total - Done, BlockSize - Offset);
    std::memcpy(Out + Done, Blocks[Position / BlockSize].get() + Offset, Chunk);
    Done += Chunk;
    Position += Chunk;
  }
  return Done;
}

std::size_t MemoryIOStream::write(const void *Buffer, std::size_t Length) {
  const auto *In = static_cast<const char *>(Buffer);
  std::size_t Done = 0;
  while (Done < Length) {
    const std::size_t Index = Position / BlockSize;
    if (Index == Blocks.size())
      Blocks.push_back(std::make_unique_for_overwrite<char[]>(BlockSize));
    const std::size_t Offset = Position % BlockSize;
    const std::size_t Chunk = std::min(Length - Done, BlockSize - Offset);
    std::memcpy(Blocks[Index].get() + Offset, In + Done, Chunk);
    Done += Chunk;
    Position += Chunk;
  }
  Size = std::max(Size, Position);
  return Done;
}

bool MemoryIOStream::seek(std::int64_t Offset, SeekOrigin Origin) {
  std::int64_t Base = 0;
  if (Origin == SeekCurrent)
    Base = static_cast<std::int64_t>(Position);
  else if (Origin == SeekEnd)
    Base = static_cast<std::int64_t>(Size);
  // Written so that no offset, however large, overflows.
  const auto Limit = static_cast<std::int64_t>(Size);
  if (Offset < -Base || Offset > Limit - Base) {
    Error = true;
    return false;
  }
  Position = static_cast<std::size_t>(Base + Offset);
  return true;
}

} // namespace qoOS
