#include "base/os/StopWatch.h"

namespace qoOS {

void StopWatch::start() {
  if (Running)
    return;
  Started = Clock::now();
  Running = true;
}

void StopWatch::stop() {
  if (!Running)
    return;
  Total += Clock::now() - Started;
  Running = false;
}

void StopWatch::reset() {
  Total = Clock::duration::zero();
  Running = false;
}

void StopWatch::restart() {
  reset();
  start();
}

double StopWatch::elapsed() const {
  Clock::duration Sum = Total;
  if (Running)
    Sum += Clock::now() - Started;
  return std::chrono::duration<double>(Sum).count();
}

} // namespace qoOS
