#include "base/thread/Thread.h"

#include <cassert>
#include <utility>

namespace qoThread {

Thread::Thread(std::function<void()> Run) {
  SigRun.addCallback(std::move(Run));
}

Thread::~Thread() { wait(); }

bool Thread::start() {
  if (Worker.joinable())
    return false;
  Running.store(true, std::memory_order_release);
  try {
    Worker = std::thread([this] {
      SigRun.emit();
      Running.store(false, std::memory_order_release);
    });
  } catch (...) {
    Running.store(false, std::memory_order_release);
    throw;
  }
  return true;
}

void Thread::wait() {
  if (!Worker.joinable())
    return;
  assert(Worker.get_id() != std::this_thread::get_id() &&
         "a thread waiting for itself");
  Worker.join();
}

} // namespace qoThread
