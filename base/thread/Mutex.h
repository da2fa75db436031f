//===- base/thread/Mutex.h - Mutual exclusion with a scoped guard ---------===//
//
// qoThread::Mutex serialises threads over shared state; Mutex::Lock holds it
// for a scope. A mutex constructed as recursive may be locked again by the
// thread that holds it (each lock then needs its own unlock); a plain one must
// not be. A mutex must be unlocked by the thread that locked it, and must not
// be destroyed while locked.
//
// Example:
//   qoThread::Mutex guard;
//   {
//     qoThread::Mutex::Lock hold(guard);
//     shared.push_back(item);
//   }
//   if (guard.tryLock()) { ...; guard.unlock(); }
//
//===----------------------------------------------------------------------===//
#ifndef QOTHREAD_MUTEX_H
#define QOTHREAD_MUTEX_H

#include <atomic>
#include <mutex>
#include <thread>

namespace qoThread {

class Mutex {
public:
  explicit Mutex(bool Recursive = false) : Recursive(Recursive) {}
  Mutex(const Mutex &) = delete;
  Mutex &operator=(const Mutex &) = delete;

  void lock();
  void unlock();
  // False at once when another thread holds the mutex.
  bool tryLock();
  bool isRecursive() const { return Recursive; }

  class Lock {
  public:
    explicit Lock(Mutex &M) : M(M) { M.lock(); }
    ~Lock() { M.unlock(); }
    Lock(const Lock &) = delete;
    Lock &operator=(const Lock &) = delete;

  private:
    Mutex &M;
  };

  // The standard names, so that std::scoped_lock and std::unique_lock work.
  bool try_lock() { return tryLock(); }

private:
  bool heldHere() const {
    return Owner.load(std::memory_order_relaxed) == std::this_thread::get_id();
  }
  void acquired();

  std::mutex M;
  // Only a recursive mutex tracks its holder. Only the holder writes Owner, and
  // only the holder can find its own id there.
  std::atomic<std::thread::id> Owner{};
  unsigned Depth = 0;
  const bool Recursive;
};

} // namespace qoThread

#endif // QOTHREAD_MUTEX_H
