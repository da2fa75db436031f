#include "base/thread/Mutex.h"

#include <cassert>

namespace qoThread {

void Mutex::lock() {
  if (Recursive && heldHere()) {
    ++Depth;
    return;
  }
  M.lock();
  acquired();
}

bool Mutex::tryLock() {
  if (Recursive && heldHere()) {
    ++Depth;
    return true;
  }
  if (!M.try_lock())
    return false;
  acquired();
  return true;
}

void Mutex::unlock() {
  if (!Recursive) {
    M.unlock();
    return;
  }
  assert(heldHere() && "unlock of a mutex this thread does not hold");
  if (--Depth > 0)
    return;
  Owner.store(std::thread::id(), std::memory_order_relaxed);
  M.unlock();
}

void Mutex::acquired() {
  if (!Recursive)
    return;
  Owner.store(std::this_thread::get_id(), std::memory_order_relaxed);
  Depth = 1;
}

} // namespace qoThread
