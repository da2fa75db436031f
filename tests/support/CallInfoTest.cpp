#include "support/CallInfo.h"

#include "tests/support/RecordingDomain.h"

#include "support/CallInfoControl.h"
#include "support/Context.h"
#include "support/Domain.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

using nySupport::CallInfo;
using nySupport::CallInfoControl;
using nySupport::Context;
using orbotest::RecordingDomain;

namespace {
struct Service {};
struct SpecialService : Service {};
} // namespace

TEST(CallInfo, FindsAndRemovesTheFirstRecordOfExactlyTheType) {
  CallInfo Info;
  EXPECT_EQ(Info.find<Service>(), nullptr);
  SpecialService Special;
  Service First;
  Service Second;
  Info.add(&Special);
  Info.add(&First);
  Info.add(&Second);
  EXPECT_EQ(Info.find<Service>(), &First);
  EXPECT_EQ(Info.find<SpecialService>(), &Special);
  EXPECT_EQ(Info.find<const Service>(), &First);
  EXPECT_EQ(Info.find<int>(), nullptr);

  Info.remove<Service>();
  EXPECT_EQ(Info.find<Service>(), &Second);
  Info.remove<Service>();
  EXPECT_EQ(Info.find<Service>(), nullptr);
  EXPECT_FALSE(Info.removeInterface(qo::TypeInfo::of<Service>()));
  EXPECT_EQ(Info.find<SpecialService>(), &Special);
  EXPECT_EQ(Info.interfaces().size(), 1u);
}

TEST(CallInfo, CurrentRecordFollowsTheInnermostContextOfAnyDomain) {
  RecordingDomain A;
  RecordingDomain B;
  RecordingDomain Idle;
  Context OnA(&A, Context::Momentary);
  {
    Context OnB(&B, Context::Momentary);
    EXPECT_EQ(CallInfo::currentCallInfo(), B.Records.back());
    {
      Context AgainOnA(&A, Context::Const);
      EXPECT_EQ(nySupport::ci(), A.Records.back());
    }
    Context Bare(&Idle, Context::Bare);
    EXPECT_EQ(nySupport::ci(), nullptr);
  }
  EXPECT_EQ(nySupport::ci(), A.Records.back());
}

// The domain holds one suppression of its own, so a control that releases too
// often or too seldom shows in callInfoSuppressed(). Each case lists the calls
// made on the control (s: suppress, r: release) and whether the domain's own
// suppression survives it: release() always releases, whoever suppressed.
TEST(CallInfoControl, DestructorReleasesOnlyWhatTheControlStillHolds) {
  const std::pair<std::string, bool> Cases[] = {
      {"", true}, {"s", true}, {"sr", true}, {"r", false}};
  for (const auto &[Calls, Held] : Cases) {
    SCOPED_TRACE(Calls);
    RecordingDomain D;
    D.callInfoSuppress();
    {
      CallInfoControl Control(D);
      for (const char Call : Calls)
        Call == 's' ? Control.suppress() : Control.release();
      EXPECT_EQ(Control.isSuppressed(), Held);
    }
    EXPECT_EQ(D.callInfoSuppressed(), Held);
    if (Held)
      D.callInfoRelease();
    EXPECT_FALSE(D.callInfoSuppressed());
  }
}
