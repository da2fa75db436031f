//===- base/os/MemoryIOStream.h - Byte stream held in memory blocks -------===//
//
// qoOS::MemoryIOStream keeps what is written in fixed-size blocks. A block,
// once allocated, never moves or grows, so appending costs no copy of the
// bytes already written and block(i) views stay valid while the stream lives.
// Reads and seeks work over the bytes written so far; a seek past the end
// fails. Writing after a seek overwrites in place and extends at the end.
//
// close() releases nothing: the bytes stay readable until the stream is
// destroyed, which is how a caller collects a document written through a
// routine that closes its stream.
//
// Example:
//   qoOS::MemoryIOStream Stream;
//   Stream.write("hello", 5);
//   Stream.close();
//   qoString::CString All = Stream.contents();       // "hello"
//   for (std::size_t I = 0; I < Stream.blockCount(); ++I)
//     send(Stream.block(I));                         // no copy
//
//===----------------------------------------------------------------------===//
#ifndef QOOS_MEMORYIOSTREAM_H
#define QOOS_MEMORYIOSTREAM_H

#include "base/os/IOStream.h"
#include "base/string/CString.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace qoOS {

class MemoryIOStream : public IOStream {
public:
  static constexpr std::size_t DefaultBlockSize = 4096;

  explicit MemoryIOStream(std::size_t BlockSize = DefaultBlockSize);
  MemoryIOStream(const MemoryIOStream &) = delete;
  MemoryIOStream &operator=(const MemoryIOStream &) = delete;

  std::size_t size() const { return Size; }
  std::size_t blockSize() const { return BlockSize; }
  std::size_t blockCount() const { return Blocks.size(); }
  // The used bytes of block Index: BlockSize bytes for all but the last.
  std::string_view block(std::size_t Index) const;
  qoString::CString contents() const;
  // Drops every byte and the error state.
  void clear();

  std::size_t read(void *Buffer, std::size_t Length) override;
  std::size_t write(const void *Buffer, std::size_t Length) override;
  bool seek(std::int64_t Offset, SeekOrigin Origin = SeekBegin) override;
  std::int64_t tell() const override {
    return static_cast<std::int64_t>(Position);
  }
  bool close() override { return true; }
  bool error() const override { return Error; }

private:
  std::size_t BlockSize;
  std::vector<std::unique_ptr<char[]>> Blocks;
  std::size_t Size = 0;
  std::size_t Position = 0;
  bool Error = false;
};

} // namespace qoOS

#endif // QOOS_MEMORYIOSTREAM_H
