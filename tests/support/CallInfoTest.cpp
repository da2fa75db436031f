#include "support/CallInfo.h"

#include "tests/support/RecordingDomain.h"

#include "support/CallInfoControl.h"
#include "support/Context.h"
#include "support/Domain.h"

#include <gtest/gtest.h>

using nySupport::CallInfo;
using nySupport::CallInfoControl;
using nySupport::Context;
using orbotest::RecordingDomain;

namespace {
struct Service {
  int Id = 0;
};
struct SpecialService : Service {};
} // namespace

TEST(CallInfo, ReservesRoomForThirtyTwoRecords) {
  const CallInfo Info;
  EXPECT_TRUE(Info.interfaces().empty());
  EXPECT_GE(Info.interfaces().capacity(), 32u);
}

TEST(CallInfo, FindsTheFirstRecordOfExactlyTheType) {
  CallInfo Info;
  EXPECT_EQ(Info.find<Service>(), nullptr);

  SpecialService Special;
  Service First{1};
  Service Second{2};
  Info.add(&Special);
  Info.add(&First);
  Info.add(&Second);
  EXPECT_EQ(Info.find<Service>(), &First);
  EXPECT_EQ(Info.find<SpecialService>(), &Special);
  EXPECT_EQ(Info.find<const Service>(), &First);
  EXPECT_EQ(Info.find<int>(), nullptr);
}

TEST(CallInfo, RemoveErasesTheFirstRecordOfTheType) {
  CallInfo Info;
  Service First{1};
  Service Second{2};
  SpecialService Special;
  Info.add(&First);
  Info.add(&Special);
  Info.add(&Second);

  Info.remove<Service>();
  EXPECT_EQ(Info.find<Service>(), &Second);
  EXPECT_EQ(Info.find<SpecialService>(), &Special);
  Info.remove<Service>();
  EXPECT_EQ(Info.find<Service>(), nullptr);
  EXPECT_FALSE(Info.removeInterface(qo::TypeInfo::of<Service>()));
  EXPECT_EQ(Info.interfaces().size(), 1u);
}

TEST(CallInfo, CurrentRecordFollowsTheInnermostContextOfAnyDomain) {
  RecordingDomain A;
  RecordingDomain B;
  Context OnA(&A, Context::Momentary);
  CallInfo *RecordOfA = nySupport::ci();
  ASSERT_NE(RecordOfA, nullptr);
  EXPECT_EQ(CallInfo::currentCallInfo(), RecordOfA);
  {
    Context OnB(&B, Context::Momentary);
    EXPECT_NE(nySupport::ci(), nullptr);
    EXPECT_NE(nySupport::ci(), RecordOfA);
    {
      // A's record again: the innermost context is A's.
      Context AgainOnA(&A, Context::Const);
      EXPECT_EQ(nySupport::ci(), RecordOfA);
    }
    {
      // A bare context on a domain without a record shows no record.
      RecordingDomain Idle;
      Context Bare(&Idle, Context::Bare);
      EXPECT_EQ(nySupport::ci(), nullptr);
    }
  }
  EXPECT_EQ(nySupport::ci(), RecordOfA);
}

namespace {
// A domain with one suppression already in force, so that a control that
// releases too often or too seldom shows in callInfoSuppressed().
struct SuppressedDomain {
  SuppressedDomain() { Outer.suppress(); }
  RecordingDomain D;
  CallInfoControl Outer{D};
};
} // namespace

TEST(CallInfoControl, DestructorReleasesOnlyAfterSuppress) {
  {
    SuppressedDomain S;
    { CallInfoControl Unused(S.D); }
    EXPECT_TRUE(S.D.callInfoSuppressed());
  }
  {
    SuppressedDomain S;
    {
      CallInfoControl Control(S.D);
      Control.suppress();
      EXPECT_TRUE(Control.isSuppressed());
    }
    EXPECT_TRUE(S.D.callInfoSuppressed()); // released once, not twice
    S.Outer.release();
    EXPECT_FALSE(S.D.callInfoSuppressed());
  }
  {
    SuppressedDomain S;
    {
      CallInfoControl Control(S.D);
      Control.suppress();
      Control.release();
    }
    EXPECT_TRUE(S.D.callInfoSuppressed());
  }
}

TEST(CallInfoControl, ReleaseAlwaysReleases) {
  RecordingDomain D;
  D.callInfoSuppress();
  CallInfoControl Control(D);
  EXPECT_TRUE(Control.isSuppressed());
  Control.release();
  EXPECT_FALSE(D.callInfoSuppressed());
  EXPECT_FALSE(Control.isSuppressed());
}

TEST(CallInfoControl, SuppressedScopeGetsARecordOfItsOwn) {
  RecordingDomain D;
  Context Outer(&D, Context::Momentary);
  CallInfo *Hidden = nySupport::ci();
  {
    CallInfoControl Control(D);
    Control.suppress();
    EXPECT_EQ(nySupport::ci(), nullptr);
    D.take();
    {
      Context Inner(&D, Context::NoTxn);
      EXPECT_NE(nySupport::ci(), nullptr);
      EXPECT_NE(nySupport::ci(), Hidden);
    }
    EXPECT_EQ(D.take(), (std::vector<std::string>{"record begin", "begin NoTxn",
                                                  "end NoTxn", "record end"}));
  }
  EXPECT_EQ(nySupport::ci(), Hidden);
}
