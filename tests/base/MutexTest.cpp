#include "base/thread/Mutex.h"

#include <gtest/gtest.h>

#include <future>

using qoThread::Mutex;

namespace {

bool lockableElsewhere(Mutex &Guard) {
  return std::async(std::launch::async,
                    [&] {
                      const bool Locked = Guard.tryLock();
                      if (Locked)
                        Guard.unlock();
                      return Locked;
                    })
      .get();
}

} // namespace

TEST(Mutex, RecursiveLockHoldsOtherThreadsUntilEveryLockIsUndone) {
  Mutex Guard(true);
  Guard.lock();
  EXPECT_TRUE(Guard.tryLock());
  Guard.unlock();
  EXPECT_FALSE(lockableElsewhere(Guard));
  Guard.unlock();
  EXPECT_TRUE(lockableElsewhere(Guard));
}
