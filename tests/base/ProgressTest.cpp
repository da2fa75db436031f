#include "base/util/Progress.h"

#include "base/Reference.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

using qoUtil::Progress;

// 29 / 100 and 0.29 are 28.999... percent in floating point.
TEST(Progress, ReportsEachWholePercentOnceAndExactly) {
  Progress P;
  std::vector<int> Percents;
  P.onUpdate.addCallback(
      [&](Progress *From) { Percents.push_back(From->percent()); });
  P.setTotal(1000);
  for (int I = 0; I < 1050; ++I)
    P.advance();
  ASSERT_EQ(100u, Percents.size());
  EXPECT_EQ(100, Percents.back());
  P.setTotal(100);
  P.setCurrent(29);
  EXPECT_EQ(29, P.percent());
  P.setValue(0.57);
  EXPECT_EQ(57, P.percent());
  Progress Huge(std::numeric_limits<std::uint64_t>::max());
  Huge.setCurrent(Huge.total() / 2);
  EXPECT_EQ(49, Huge.percent());
}

// The sanitizers check that nothing touches the Progress afterwards.
TEST(Progress, ListenerMayReleaseTheProgress) {
  qo::Reference<Progress> P(new Progress(10));
  P->onUpdate.addCallback([&P](Progress *) { P.reset(); });
  P->setCurrent(5);
  EXPECT_FALSE(P);
}
