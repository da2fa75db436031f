//===- base/thread/ReferenceCount.h - Atomic intrusive reference count ----===//
//
// qoThread::ReferenceCount is qo::ReferenceCount with an atomic count, for
// objects whose references are taken and dropped on several threads (buffers,
// tasks handed to a worker and back). It works with qo::Reference like the
// plain one. The count starts at 0 and the release that takes it back to 0
// deletes the object, on whichever thread that release happens. Only the
// count is thread-safe: the object's own state needs its own guard.
//
// Example:
//   class Job : public qoThread::ReferenceCount { ... };
//   qo::Reference<Job> job(new Job);
//   queue.add([job] { job->finish(); });   // the copy keeps it alive
//
//===----------------------------------------------------------------------===//
#ifndef QOTHREAD_REFERENCECOUNT_H
#define QOTHREAD_REFERENCECOUNT_H

#include <atomic>
#include <cassert>
#include <cstdint>

namespace qoThread {

class ReferenceCount {
public:
  ReferenceCount() = default;
  // A copy is a new object: it starts with no references of its own.
  ReferenceCount(const ReferenceCount &) {}
  ReferenceCount &operator=(const ReferenceCount &) { return *this; }
  virtual ~ReferenceCount() = default;

  // Taking a reference needs no ordering: the caller already holds one.
  void ref() const { Count.fetch_add(1, std::memory_order_relaxed); }
  // The last release must see every other thread's writes to the object
  // before it deletes it, hence acquire-release.
  void unref() const {
    const std::uint32_t Before = Count.fetch_sub(1, std::memory_order_acq_rel);
    assert(Before > 0 && "unref of an object with no references");
    if (Before == 1)
      delete this;
  }
  std::uint32_t refCount() const {
    return Count.load(std::memory_order_relaxed);
  }

private:
  mutable std::atomic<std::uint32_t> Count{0};
};

} // namespace qoThread

#endif // QOTHREAD_REFERENCECOUNT_H
