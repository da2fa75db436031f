//===- base/thread/Buffer.h - Reference-counted bytes ---------------------===//
//
// qoThread::Buffer is a block of bytes held through qo::Reference with an
// atomic count, so that a producer thread can fill one and hand it to another
// thread (a piece of a response body, a rendered image) without copying. The
// count is thread-safe; the bytes are not: whoever changes them must be the
// only one using the buffer at the time. mergeBuffers joins buffers into a new
// one and leaves its inputs alone.
//
// Example:
//   qo::Reference<qoThread::Buffer> head(new qoThread::Buffer("GET "));
//   qo::Reference<qoThread::Buffer> rest(new qoThread::Buffer(path));
//   qo::Reference<qoThread::Buffer> line = qoThread::mergeBuffers(head, rest);
//   line->view();   // "GET /index.html"
//
//===----------------------------------------------------------------------===//
#ifndef QOTHREAD_BUFFER_H
#define QOTHREAD_BUFFER_H

#include "base/Reference.h"
#include "base/thread/ReferenceCount.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace qoThread {

class Buffer : public ReferenceCount {
public:
  Buffer() = default;
  // Size zero bytes.
  explicit Buffer(std::size_t Size) : Bytes(Size) {}
  Buffer(const void *Data, std::size_t Size);
  explicit Buffer(std::string_view Text) : Buffer(Text.data(), Text.size()) {}

  const char *data() const { return Bytes.data(); }
  char *data() { return Bytes.data(); }
  std::size_t size() const { return Bytes.size(); }
  bool empty() const { return Bytes.empty(); }
  std::string_view view() const { return {Bytes.data(), Bytes.size()}; }

  void append(const void *Data, std::size_t Size);
  void append(std::string_view Text) { append(Text.data(), Text.size()); }
  // New bytes are zero.
  void resize(std::size_t Size) { Bytes.resize(Size); }
  void reserve(std::size_t Size) { Bytes.reserve(Size); }
  void clear() { Bytes.clear(); }

private:
  std::vector<char> Bytes;
};

// A new buffer with A's bytes followed by B's; a null input counts as empty.
qo::Reference<Buffer> mergeBuffers(const qo::Reference<Buffer> &A,
                                   const qo::Reference<Buffer> &B);
// A new buffer with the bytes of every piece in order, sized once.
qo::Reference<Buffer>
mergeBuffers(std::span<const qo::Reference<Buffer>> Pieces);

} // namespace qoThread

#endif // QOTHREAD_BUFFER_H
