#include "base/thread/Mutex.h"

#include <gtest/gtest.h>

#include <future>
#include <mutex>
#include <thread>
#include <vector>

using qoThread::Mutex;

TEST(Mutex, SerialisesThreads) {
  Mutex Guard;
  long Total = 0;
  std::vector<std::thread> Threads;
  for (int T = 0; T < 4; ++T)
    Threads.emplace_back([&] {
      for (int I = 0; I < 20000; ++I) {
        Mutex::Lock Hold(Guard);
        ++Total;
      }
    });
  for (auto &T : Threads)
    T.join();
  EXPECT_EQ(Total, 80000);
}

TEST(Mutex, TryLockFailsWhileAnotherThreadHoldsIt) {
  for (const bool Recursive : {false, true}) {
    Mutex Guard(Recursive);
    Guard.lock();
    std::async(std::launch::async, [&] {
      EXPECT_FALSE(Guard.tryLock());
    }).get();
    Guard.unlock();
    std::async(std::launch::async, [&] {
      EXPECT_TRUE(Guard.tryLock());
      Guard.unlock();
    }).get();
  }
}

TEST(Mutex, RecursiveMutexNeedsOneUnlockPerLock) {
  Mutex Guard(true);
  EXPECT_TRUE(Guard.isRecursive());
  {
    Mutex::Lock Outer(Guard);
    std::scoped_lock Inner(Guard);
    EXPECT_TRUE(Guard.tryLock());
    Guard.unlock();
  }
  std::async(std::launch::async, [&] {
    EXPECT_TRUE(Guard.tryLock());
    Guard.unlock();
  }).get();

  Guard.lock();
  Guard.lock();
  Guard.unlock();
  std::async(std::launch::async, [&] { EXPECT_FALSE(Guard.tryLock()); }).get();
  Guard.unlock();
}
