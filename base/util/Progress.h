//===- base/util/Progress.h - Progress of a long task, with listeners -----===//
//
// qoUtil::Progress is what a long task reports through and what a progress
// bar or a script listens to. Its state is a fraction done, value() in
// [0, 1], a caption and a cancelled flag. The task either sets the fraction
// directly or counts steps: setTotal(n) and then advance() or setCurrent(i)
// make the fraction current / total.
//
// Listeners are told through three signals, each passing the Progress:
// onUpdate when the whole percentage (value() * 100, rounded down) changes,
// so a million steps cost at most a hundred and one redraws; onCaption when
// the caption changes; onCancel once, when cancel() is first called. The task
// polls cancelled() and stops; the Progress itself stops nothing.
//
// Reference counted: scripts create and hold it through qo::Reference. A
// listener may drop the last reference; the Progress touches nothing of its
// own after an emission.
//
// Example:
//   qo::Reference<qoUtil::Progress> p(new qoUtil::Progress);
//   p->onUpdate.addCallback([](qoUtil::Progress *P) { bar(P->percent()); });
//   p->setTotal(files.size());
//   for (auto &f : files) {
//     if (p->cancelled())
//       break;
//     load(f);
//     p->advance();
//   }
//
//===----------------------------------------------------------------------===//
#ifndef QOUTIL_PROGRESS_H
#define QOUTIL_PROGRESS_H

#include "base/ReferenceCount.h"
#include "base/rtb/Signal.h"
#include "base/string/CString.h"

#include <cstdint>

namespace qoUtil {

class Progress : public qo::ReferenceCount {
public:
  Progress() = default;
  explicit Progress(std::uint64_t Total) : Total(Total) {}
  Progress(const Progress &) = delete;
  Progress &operator=(const Progress &) = delete;

  // Clamped to [0, 1]; NaN counts as 0.
  void setValue(double Fraction);
  double value() const { return Value; }
  // value() as a whole percentage, rounded down: 0 to 100.
  int percent() const { return Percent; }

  // Counting: the fraction is current / total, current capped at total. A
  // total of 0 leaves the fraction as it was.
  void setTotal(std::uint64_t N);
  void setCurrent(std::uint64_t N);
  void advance(std::uint64_t Steps = 1) { setCurrent(Current + Steps); }
  std::uint64_t total() const { return Total; }
  std::uint64_t current() const { return Current; }

  void setCaption(const qoString::CString &Text);
  const qoString::CString &caption() const { return Caption; }

  // Sets the flag; only the first call emits onCancel.
  void cancel();
  bool cancelled() const { return Cancelled; }

  qoRTB::SignalArg<Progress *> onUpdate;
  qoRTB::SignalArg<Progress *> onCaption;
  qoRTB::SignalArg<Progress *> onCancel;

private:
  void recount();
  void update(double NewValue, int NewPercent);

  double Value = 0;
  int Percent = 0;
  std::uint64_t Total = 0;
  std::uint64_t Current = 0;
  qoString::CString Caption;
  bool Cancelled = false;
};

} // namespace qoUtil

#endif // QOUTIL_PROGRESS_H
