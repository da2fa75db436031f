//===- base/os/StopWatch.h - Measures elapsed time ------------------------===//
//
// qoOS::StopWatch adds up the time between start() and stop() calls on the
// steady clock, so it never runs backwards when the wall clock is set.
// elapsed() may be read while the watch runs. Starting a running watch or
// stopping a stopped one changes nothing.
//
// Example:
//   qoOS::StopWatch Drawing;
//   Drawing.start();
//   drawFrame();
//   Drawing.stop();
//   double Seconds = Drawing.elapsed();
//
//===----------------------------------------------------------------------===//
#ifndef QOOS_STOPWATCH_H
#define QOOS_STOPWATCH_H

#include <chrono>

namespace qoOS {

class StopWatch {
public:
  using Clock = std::chrono::steady_clock;

  void start();
  void stop();
  // Stops the watch and forgets the time measured.
  void reset();
  // reset() and start() in one step.
  void restart();
  bool isRunning() const { return Running; }
  // Seconds measured so far, including the current run.
  double elapsed() const;

private:
  Clock::duration Total{};
  Clock::time_point Started;
  bool Running = false;
};

} // namespace qoOS

#endif // QOOS_STOPWATCH_H
