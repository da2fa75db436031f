//===- base/thread/Thread.h - A thread that emits its run signal ----------===//
//
// qoThread::Thread runs its run signal on a new thread of its own: start()
// launches the thread, which emits the signal once and ends; wait() blocks
// until it has ended. The constructor taking a function connects it to the
// run signal. Connect callbacks before start() and leave the signal alone
// while the thread runs: the signal then belongs to the worker. A thread may
// be started again once it has been waited for. The destructor waits, so the
// object must outlive nothing that the running callbacks use. An exception
// escaping a callback ends the process, as with std::thread.
//
// Example:
//   qoThread::Thread worker([&] { result = compute(); });
//   worker.start();
//   ...                     // other work meanwhile
//   worker.wait();          // result is ready
//
//===----------------------------------------------------------------------===//
#ifndef QOTHREAD_THREAD_H
#define QOTHREAD_THREAD_H

#include "base/rtb/Signal.h"

#include <atomic>
#include <functional>
#include <thread>

namespace qoThread {

class Thread {
public:
  Thread() = default;
  explicit Thread(std::function<void()> Run);
  ~Thread();
  Thread(const Thread &) = delete;
  Thread &operator=(const Thread &) = delete;

  qoRTB::Signal &getSigRun() { return SigRun; }
  // The same signal, under the name the support layer uses.
  qoRTB::Signal &getSignal() { return SigRun; }

  // False, doing nothing, when the thread was started and not yet waited for.
  bool start();
  // Returns at once when the thread was never started or was already waited
  // for. Must not be called from the thread itself.
  void wait();
  // True from start() until the run signal's emission has returned.
  bool isRunning() const { return Running.load(std::memory_order_acquire); }

private:
  qoRTB::Signal SigRun;
  std::thread Worker;
  std::atomic<bool> Running{false};
};

} // namespace qoThread

#endif // QOTHREAD_THREAD_H
