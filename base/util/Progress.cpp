//===- base/util/Progress.cpp - Progress of a long task, with listeners ---===//
//
// Every mutator updates its state completely before it emits, and returns
// right after: a listener may read the new state, change it again (a nested
// emission sees consistent values) or release the Progress.
//
//===----------------------------------------------------------------------===//
#include "base/util/Progress.h"

#include <algorithm>
#include <cmath>

namespace qoUtil {

namespace {

// 0.29 * 100 is 28.999999999999996: without the allowance a fraction written
// in whole percent would report one percent less than it says.
constexpr double PercentAllowance = 1e-9;

} // namespace

void Progress::setValue(double Fraction) {
  const double Clamped = Fraction > 0 ? std::min(Fraction, 1.0) : 0.0;
  update(Clamped,
         static_cast<int>(std::floor(Clamped * 100 + PercentAllowance)));
}

void Progress::update(double NewValue, int NewPercent) {
  Value = NewValue;
  if (NewPercent == Percent)
    return;
  Percent = NewPercent;
  onUpdate.emit(this);
}

void Progress::setTotal(std::uint64_t N) {
  Total = N;
  recount();
}

void Progress::setCurrent(std::uint64_t N) {
  Current = N;
  recount();
}

// Counts give the percentage exactly, in integers wide enough for any count.
void Progress::recount() {
  if (Total == 0)
    return;
  const std::uint64_t Done = std::min(Current, Total);
  const auto Whole =
      static_cast<int>(static_cast<unsigned __int128>(Done) * 100 / Total);
  update(double(Done) / double(Total), Whole);
}

void Progress::setCaption(const qoString::CString &Text) {
  if (Caption.compare(Text) == 0)
    return;
  Caption = Text;
  onCaption.emit(this);
}

void Progress::cancel() {
  if (Cancelled)
    return;
  Cancelled = true;
  onCancel.emit(this);
}

} // namespace qoUtil
