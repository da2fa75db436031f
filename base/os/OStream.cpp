//===- base/os/OStream.cpp - Buffered formatted output over a stream ------===//
//
// Invariant: Buffer[0, Used) holds bytes accepted but not yet handed to the
// stream, and Used < BufferSize between calls (a full buffer is written out
// at once).
//
//===----------------------------------------------------------------------===//
#include "base/os/OStream.h"

#include "base/string/CString.h"

#include <cstdio>
#include <cstring>

namespace qoOS {

OStream::OStream(IOStream &Stream)
    : Stream(Stream),
      Buffer(std::make_unique_for_overwrite<char[]>(BufferSize)) {}

OStream::~OStream() { flush(); }

void OStream::writeThrough(const char *Data, std::size_t Length) {
  if (Length && Stream.write(Data, Length) != Length)
    Failed = true;
}

bool OStream::flush() {
  writeThrough(Buffer.get(), Used);
  Used = 0;
  return !error();
}

OStream &OStream::write(const char *Data, std::size_t Length) {
  if (Length == 0)
    return *this;
  if (Used + Length < BufferSize) {
    std::memcpy(Buffer.get() + Used, Data, Length);
    Used += Length;
    return *this;
  }
  // Top the buffer up and write it, then either pass a large remainder
  // straight through or keep a small one.
  const std::size_t Fill = BufferSize - Used;
  std::memcpy(Buffer.get() + Used, Data, Fill);
  Used = BufferSize;
  flush();
  const std::size_t Rest = Length - Fill;
  if (Rest >= BufferSize) {
    writeThrough(Data + Fill, Rest);
    return *this;
  }
  std::memcpy(Buffer.get(), Data + Fill, Rest);
  Used = Rest;
  return *this;
}

OStream &OStream::put(char C) { return write(&C, 1); }

OStream &OStream::format(const char *Format, ...) {
  va_list Args;
  va_start(Args, Format);
  vformat(Format, Args);
  va_end(Args);
  return *this;
}

OStream &OStream::vformat(const char *Format, va_list Args) {
  // Format straight into the free part of the buffer when the text fits
  // there; vsnprintf needs room for its terminating zero, which is not kept.
  va_list Copy;
  va_copy(Copy, Args);
  const std::size_t Free = BufferSize - Used;
  const int N = std::vsnprintf(Buffer.get() + Used, Free, Format, Copy);
  va_end(Copy);
  if (N < 0) {
    Failed = true; // an encoding error: the text is lost
    return *this;
  }
  if (static_cast<std::size_t>(N) < Free) {
    Used += static_cast<std::size_t>(N);
    return *this;
  }
  const qoString::CString Text = qoString::CString::vformat(Format, Args);
  return write(Text.data(), Text.length());
}

} // namespace qoOS
