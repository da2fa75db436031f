#include "base/thread/RunQueue.h"

#include <cassert>
#include <utility>

namespace qoThread {

void RunQueue::add(Task T) {
  assert(T && "queueing an empty task");
  {
    std::lock_guard<std::mutex> Hold(M);
    Tasks.push_back(std::move(T));
  }
  Arrived.notify_one();
}

std::size_t RunQueue::process() {
  std::deque<Task> Batch;
  {
    std::lock_guard<std::mutex> Hold(M);
    Batch.swap(Tasks);
  }
  std::size_t Ran = 0;
  try {
    for (; !Batch.empty(); Batch.pop_front(), ++Ran)
      Batch.front()();
  } catch (...) {
    // The throwing task is done; the rest keep their place ahead of anything
    // queued since.
    Batch.pop_front();
    std::lock_guard<std::mutex> Hold(M);
    Tasks.insert(Tasks.begin(), std::make_move_iterator(Batch.begin()),
                 std::make_move_iterator(Batch.end()));
    throw;
  }
  return Ran;
}

std::size_t RunQueue::waitAndProcess(std::chrono::milliseconds Timeout) {
  {
    std::unique_lock<std::mutex> Hold(M);
    if (!Arrived.wait_for(Hold, Timeout, [this] { return !Tasks.empty(); }))
      return 0;
  }
  return process();
}

std::size_t RunQueue::size() const {
  std::lock_guard<std::mutex> Hold(M);
  return Tasks.size();
}

} // namespace qoThread
