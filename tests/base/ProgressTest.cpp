#include "base/util/Progress.h"

#include "base/Reference.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

using qoUtil::Progress;

namespace {

// Records the percentage seen by each onUpdate call.
struct UpdateLog {
  std::vector<int> Percents;
  qo::Reference<qoRTB::Connection> Connection;
  explicit UpdateLog(Progress &P)
      : Connection(P.onUpdate.addCallback(
            [this](Progress *From) { Percents.push_back(From->percent()); })) {}
};

} // namespace

TEST(Progress, ReportsOnlyWholePercentChanges) {
  Progress P;
  UpdateLog Log(P);
  P.setTotal(1000);
  for (int I = 0; I < 1000; ++I)
    P.advance();
  ASSERT_EQ(100u, Log.Percents.size());
  EXPECT_EQ(1, Log.Percents.front());
  EXPECT_EQ(100, Log.Percents.back());
  EXPECT_EQ(1.0, P.value());

  P.advance(50);
  EXPECT_EQ(1050u, P.current());
  EXPECT_EQ(100, P.percent());
  EXPECT_EQ(100u, Log.Percents.size());
}

// 29 / 100 and 0.29 are 28.999... percent in floating point.
TEST(Progress, PercentIsExactForWholeFractions) {
  Progress P(100);
  P.setCurrent(29);
  EXPECT_EQ(29, P.percent());
  P.setValue(0.29);
  EXPECT_EQ(29, P.percent());
  P.setValue(0.57);
  EXPECT_EQ(57, P.percent());

  Progress Huge(std::numeric_limits<std::uint64_t>::max());
  Huge.setCurrent(Huge.total() / 2);
  EXPECT_EQ(49, Huge.percent());
}

TEST(Progress, ClampsFractionsAndIgnoresAZeroTotal) {
  Progress P;
  UpdateLog Log(P);
  P.setValue(7);
  EXPECT_EQ(1.0, P.value());
  P.setValue(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(0.0, P.value());
  EXPECT_EQ((std::vector<int>{100, 0}), Log.Percents);

  P.setValue(0.5);
  P.setCurrent(10);
  EXPECT_EQ(0.5, P.value());
}

TEST(Progress, CaptionAndCancelNotifyOnChangeOnly) {
  Progress P;
  int Captions = 0, Cancels = 0;
  P.onCaption.addCallback([&](Progress *) { ++Captions; });
  P.onCancel.addCallback([&](Progress *From) {
    EXPECT_TRUE(From->cancelled());
    ++Cancels;
  });
  P.setCaption("Loading");
  P.setCaption("Loading");
  P.setCaption("Saving");
  EXPECT_EQ(2, Captions);
  EXPECT_EQ("Saving", P.caption().str());
  P.cancel();
  P.cancel();
  EXPECT_EQ(1, Cancels);
  EXPECT_TRUE(P.cancelled());
}

// A listener may drop the last reference; the sanitizers check that nothing
// touches the Progress afterwards.
TEST(Progress, ListenerMayReleaseTheProgress) {
  qo::Reference<Progress> P(new Progress(10));
  P->onUpdate.addCallback([&P](Progress *) { P.reset(); });
  P->setCurrent(5);
  EXPECT_FALSE(P);
}
