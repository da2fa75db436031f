#include "base/util/Progress.h"

#include "base/Reference.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

using qoUtil::Progress;

TEST(Progress, ReportsOnlyWholePercentChanges) {
  Progress P;
  std::vector<int> Percents;
  P.onUpdate.addCallback(
      [&](Progress *From) { Percents.push_back(From->percent()); });
  P.setTotal(1000);
  for (int I = 0; I < 1050; ++I)
    P.advance();
  ASSERT_EQ(100u, Percents.size());
  EXPECT_EQ(1, Percents.front());
  EXPECT_EQ(100, Percents.back());
  P.setValue(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(0, Percents.back());
}

// 29 / 100 and 0.29 are 28.999... percent in floating point.
TEST(Progress, PercentIsExactForWholeFractions) {
  Progress P(100);
  P.setCurrent(29);
  EXPECT_EQ(29, P.percent());
  P.setValue(0.57);
  EXPECT_EQ(57, P.percent());
  Progress Huge(std::numeric_limits<std::uint64_t>::max());
  Huge.setCurrent(Huge.total() / 2);
  EXPECT_EQ(49, Huge.percent());
}

TEST(Progress, CaptionAndCancelNotifyOnChangeOnly) {
  Progress P;
  int Calls = 0;
  P.onCaption.addCallback([&](Progress *) { ++Calls; });
  P.onCancel.addCallback([&](Progress *) { Calls += 10; });
  for (const char *Caption : {"Loading", "Loading", "Saving"})
    P.setCaption(Caption);
  P.cancel();
  P.cancel();
  EXPECT_EQ(12, Calls);
}

// A listener may drop the last reference; the sanitizers check that nothing
// touches the Progress afterwards.
TEST(Progress, ListenerMayReleaseTheProgress) {
  qo::Reference<Progress> P(new Progress(10));
  P->onUpdate.addCallback([&P](Progress *) { P.reset(); });
  P->setCurrent(5);
  EXPECT_FALSE(P);
}
