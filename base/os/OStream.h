//===- base/os/OStream.h - Buffered formatted output over a stream --------===//
//
// qoOS::OStream formats and buffers text on its way to an IOStream. The
// buffer is written out when it fills, on flush() and on destruction; a
// write larger than the buffer goes straight through after the buffered
// bytes, so output order is always call order.
//
// format() follows printf, in the locale of the calling thread: numbers that
// must read the same everywhere are written inside a qoOS::CNumericLocaleScope.
// The OStream borrows the IOStream, which must outlive it; closing the
// IOStream stays the owner's job.
//
// Example:
//   qoOS::MemoryIOStream Memory;
//   {
//     qoOS::OStream Out(Memory);
//     Out.format("%d items", 3).put('\n').write("done");
//   }                                   // flushed here
//   Memory.contents();                  // "3 items\ndone"
//
//===----------------------------------------------------------------------===//
#ifndef QOOS_OSTREAM_H
#define QOOS_OSTREAM_H

#include "base/os/IOStream.h"

#include <cstdarg>
#include <cstddef>
#include <memory>
#include <string_view>

namespace qoOS {

class OStream {
public:
  static constexpr std::size_t BufferSize = 4096;

  explicit OStream(IOStream &Stream);
  OStream(const OStream &) = delete;
  OStream &operator=(const OStream &) = delete;
  ~OStream();

  OStream &format(const char *Format, ...)
      __attribute__((format(printf, 2, 3)));
  OStream &vformat(const char *Format, va_list Args);
  OStream &write(const char *Data, std::size_t Length);
  OStream &write(std::string_view Text) {
    return write(Text.data(), Text.size());
  }
  OStream &put(char C);

  // Writes the buffered bytes; true when nothing has failed so far.
  bool flush();
  // True when the stream reports an error, a write came up short or a
  // format failed.
  bool error() const { return Failed || Stream.error(); }
  IOStream &stream() const { return Stream; }

private:
  void writeThrough(const char *Data, std::size_t Length);

  IOStream &Stream;
  std::unique_ptr<char[]> Buffer;
  std::size_t Used = 0;
  bool Failed = false;
};

} // namespace qoOS

#endif // QOOS_OSTREAM_H
