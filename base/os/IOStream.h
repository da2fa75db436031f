//===- base/os/IOStream.h - Byte stream interface -------------------------===//
//
// qoOS::IOStream is the byte stream that files, memory streams, the cache's
// page file and the packet streams read and write. A stream remembers failure:
// once an operation has failed, error() stays true, so a caller may write a
// whole document and check once at the end.
//
// Whoever creates a stream owns it; wrappers such as qoOS::OStream only borrow
// it and must not outlive it.
//
// Example:
//   void save(qoOS::IOStream &Out, std::string_view Text) {
//     Out.write(Text.data(), Text.size());
//     if (!Out.close() || Out.error())
//       report("cannot save");
//   }
//
//===----------------------------------------------------------------------===//
#ifndef QOOS_IOSTREAM_H
#define QOOS_IOSTREAM_H

#include <cstddef>
#include <cstdint>

namespace qoOS {

class IOStream {
public:
  enum SeekOrigin { SeekBegin, SeekCurrent, SeekEnd };

  virtual ~IOStream();

  // Bytes read; fewer than Length only at the end or on error.
  virtual std::size_t read(void *Buffer, std::size_t Length) = 0;
  // Bytes written; fewer than Length only on error.
  virtual std::size_t write(const void *Buffer, std::size_t Length) = 0;
  virtual bool seek(std::int64_t Offset, SeekOrigin Origin = SeekBegin) = 0;
  // The position, or -1 when the stream has none.
  virtual std::int64_t tell() const = 0;
  // True on success.
  virtual bool close() = 0;
  // True once any operation has failed.
  virtual bool error() const = 0;
};

} // namespace qoOS

#endif // QOOS_IOSTREAM_H
