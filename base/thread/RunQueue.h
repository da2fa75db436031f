//===- base/thread/RunQueue.h - Tasks handed to one thread ----------------===//
//
// qoThread::RunQueue carries tasks from any thread to the thread that owns
// the queue (usually the main thread). add() may be called from any thread;
// the owner drains the queue with process() or waitAndProcess(), and every
// task runs there, outside the queue's lock, in order of addition. A task
// added while the queue is being processed (by a task, or by another thread)
// waits for the next call. Tasks still queued when the queue is destroyed are
// destroyed without running.
//
// Example:
//   qoThread::RunQueue mainQueue;
//   qoThread::Thread worker([&] {
//     Result r = compute();
//     mainQueue.add([r] { show(r); });   // show() runs on the main thread
//   });
//   worker.start();
//   while (mainQueue.waitAndProcess(std::chrono::milliseconds(100)) == 0) {}
//
//===----------------------------------------------------------------------===//
#ifndef QOTHREAD_RUNQUEUE_H
#define QOTHREAD_RUNQUEUE_H

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>

namespace qoThread {

class RunQueue {
public:
  using Task = std::function<void()>;

  RunQueue() = default;
  RunQueue(const RunQueue &) = delete;
  RunQueue &operator=(const RunQueue &) = delete;

  void add(Task T);
  // Runs the tasks queued at the time of the call and returns how many ran.
  // When a task throws, the tasks after it go back to the front of the queue
  // and the exception propagates.
  std::size_t process();
  // As process(), after waiting up to Timeout for a task to arrive; 0 when
  // none came.
  std::size_t waitAndProcess(std::chrono::milliseconds Timeout);
  std::size_t size() const;

private:
  mutable std::mutex M;
  std::condition_variable Arrived;
  std::deque<Task> Tasks;
};

} // namespace qoThread

#endif // QOTHREAD_RUNQUEUE_H
