#include "support/Domain.h"

#include "tests/support/RecordingDomain.h"

#include "support/AsyncTask.h"
#include "support/CallInfo.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

using nySupport::CallInfo;
using nySupport::Context;
using nySupport::Domain;
using orbotest::RecordingDomain;
using Log = std::vector<std::string>;
using Modes = std::vector<Context::Mode>;

namespace {

// Contexts opened one inside the other, closed innermost first.
class ContextChain {
public:
  ContextChain(Domain &D, const Modes &Chain) {
    for (const Context::Mode M : Chain)
      Open.push_back(std::make_unique<Context>(&D, M));
  }
  ~ContextChain() {
    while (!Open.empty())
      Open.pop_back();
  }

private:
  std::vector<std::unique_ptr<Context>> Open;
};

} // namespace

TEST(Domain, IsItsOwnPrimaryUnlessGivenOne) {
  RecordingDomain Main;
  RecordingDomain Secondary(&Main);
  EXPECT_EQ(Main.getPrimary(), &Main);
  EXPECT_EQ(Secondary.getPrimary(), &Main);
}

TEST(Domain, ContextsShareOneRecordCreatedByTheOutermost) {
  RecordingDomain D;
  {
    Context Outer(&D, Context::AppOnly);
    CallInfo *Record = nySupport::ci();
    ASSERT_NE(Record, nullptr);
    EXPECT_EQ(D.Records, std::vector<CallInfo *>{Record});
    {
      Context Inner(&D, Context::AppOnly);
      EXPECT_EQ(nySupport::ci(), Record);
      EXPECT_EQ(D.getRootContext(), &Outer);
      EXPECT_EQ(D.getCurrentContext(), &Inner);
      EXPECT_EQ(D.contextStack(), (Modes{Context::AppOnly, Context::AppOnly}));
    }
    EXPECT_EQ(D.getCurrentContext(), &Outer);
  }
  EXPECT_EQ(D.getRootContext(), nullptr);
  EXPECT_EQ(D.getCurrentContext(), nullptr);
  EXPECT_TRUE(D.Records.empty());
  EXPECT_EQ(D.take(),
            (Log{"record begin appOnly", "begin AppOnly", "begin AppOnly",
                 "end AppOnly", "end AppOnly", "record end", "empty"}));
}

TEST(Domain, BareContextOnAnEmptyDomainTouchesNothing) {
  RecordingDomain D;
  {
    Context Bare(&D, Context::Bare);
    EXPECT_EQ(D.getRootContext(), &Bare);
    EXPECT_EQ(D.getCurrentContext(), &Bare);
    EXPECT_TRUE(D.contextStack().empty());
    EXPECT_EQ(nySupport::ci(), nullptr);
  }
  EXPECT_TRUE(D.take().empty());
}

TEST(Domain, BareContextInsideAnotherSeesItsRecord) {
  RecordingDomain D;
  Context Outer(&D, Context::Const);
  CallInfo *Record = nySupport::ci();
  {
    Context Bare(&D, Context::Bare);
    EXPECT_EQ(D.getCurrentContext(), &Bare);
    EXPECT_EQ(D.contextStack(), Modes{Context::Const});
    EXPECT_EQ(nySupport::ci(), Record);
    EXPECT_TRUE(D.isConst());
  }
  EXPECT_EQ(D.take(), (Log{"record begin", "begin Const"}));
}

TEST(Domain, BootstrapContextMakesARecordButCallsNoHook) {
  RecordingDomain D;
  {
    Context Boot(&D, Context::Bootstrap);
    EXPECT_NE(nySupport::ci(), nullptr);
    EXPECT_EQ(D.contextStack(), Modes{Context::Bootstrap});
  }
  EXPECT_EQ(D.take(), Log{"empty"});

  // Inside another context it shares the record and still calls nothing.
  {
    Context Outer(&D, Context::NoTxn);
    CallInfo *Record = nySupport::ci();
    {
      Context Boot(&D, Context::Bootstrap);
      EXPECT_EQ(nySupport::ci(), Record);
    }
  }
  EXPECT_EQ(D.take(), (Log{"record begin", "begin NoTxn", "end NoTxn",
                           "record end", "empty"}));
}

TEST(Domain, IsConstFollowsTheInnermostMode) {
  RecordingDomain D;
  EXPECT_FALSE(D.isConst());
  Context Outer(&D, Context::ConstWithRedraw);
  EXPECT_TRUE(D.isConst());
  {
    Context Inner(&D, Context::Undecided);
    EXPECT_FALSE(D.isConst());
  }
  EXPECT_TRUE(D.isConst());
}

namespace {

// Accepted modes by position, for the modes 0 to 11 and then the value 12:
// IS IP IE Mo Tr Co CR NT Un AO Bo Ba 12 (InteractionStart ... Bare).
struct CompatibilityRow {
  Modes Stack;
  const char *Accepts;
};

const CompatibilityRow CompatibilityTable[] = {
    {{}, "1111111111110"},
    {{Context::InteractionStart}, "0100011000000"},
    {{Context::InteractionPerform}, "0000011000000"},
    {{Context::InteractionEnd}, "0101011000000"},
    {{Context::Momentary}, "0001011000000"},
    {{Context::Transient}, "0000011000000"},
    {{Context::Const}, "0000011010010"},
    {{Context::ConstWithRedraw}, "0000011000000"},
    {{Context::NoTxn}, "0000011001000"},
    {{Context::Undecided}, "1111111010000"},
    {{Context::AppOnly}, "0000011001000"},
    {{Context::Bootstrap}, "0000011000000"},
    {{Context::Mode(12)}, "0000011000000"},
    // A bare context is invisible to the rules.
    {{Context::Bare}, "1111111111110"},
    {{Context::Const, Context::Bare}, "0000011010010"},
    // "Momentary" after an interaction end or a momentary change: at depth 1,
    // or at depth 2 inside "Undecided" only.
    {{Context::Undecided, Context::InteractionEnd}, "0101011000000"},
    {{Context::Undecided, Context::Momentary}, "0001011000000"},
    {{Context::InteractionStart, Context::InteractionEnd}, "0100011000000"},
    {{Context::Momentary, Context::Momentary}, "0000011000000"},
    {{Context::Const, Context::Momentary}, "0000011000000"},
    {{Context::Undecided, Context::Undecided, Context::Momentary},
     "0000011000000"},
    {{Context::Undecided, Context::Undecided, Context::InteractionEnd},
     "0100011000000"},
    {{Context::Const, Context::Undecided}, "1111111010000"},
    {{Context::NoTxn, Context::AppOnly}, "0000011001000"},
};

std::string describe(const Modes &Stack) {
  std::string Text = "[";
  for (const Context::Mode M : Stack)
    Text += (Text.size() > 1 ? ", " : "") + std::to_string(M);
  return Text + "]";
}

} // namespace

TEST(Domain, CompatibleModesFollowTheRulesForEveryPair) {
  for (const CompatibilityRow &Row : CompatibilityTable) {
    RecordingDomain D;
    const ContextChain Chain(D, Row.Stack);
    for (std::uint32_t Asked = 0; Asked <= Context::ModeCount; ++Asked) {
      SCOPED_TRACE("stack " + describe(Row.Stack) + ", asked " +
                   std::to_string(Asked));
      EXPECT_EQ(D.isCompatibleMode(Context::Mode(Asked)),
                Row.Accepts[Asked] == '1');
    }
  }
}

TEST(Domain, StackEmptySignalFiresWhenTheLastModeLeaves) {
  RecordingDomain D;
  {
    const ContextChain Chain(
        D, {Context::Momentary, Context::Const, Context::Bare, Context::NoTxn});
  }
  Log Events = D.take();
  EXPECT_EQ(std::count(Events.begin(), Events.end(), "empty"), 1);
  EXPECT_EQ(Events.back(), "empty");

  // The record has already gone when listeners hear of it.
  std::vector<CallInfo *> Seen;
  D.getSigContextStackEmpty().addCallback(
      [&] { Seen.push_back(nySupport::ci()); });
  { Context C(&D, Context::Momentary); }
  EXPECT_EQ(Seen, std::vector<CallInfo *>{nullptr});
}

TEST(Domain, SuppressionSignalsFirstSuppressAndLastReleaseWithTrue) {
  RecordingDomain D;
  std::vector<std::pair<bool, bool>> Heard; // argument, state at the time
  D.getSigCallInfoSuppression().addCallback(
      [&](bool Arg) { Heard.emplace_back(Arg, D.callInfoSuppressed()); });

  D.callInfoSuppress();
  D.callInfoSuppress();
  EXPECT_EQ(Heard.size(), 1u);
  D.callInfoRelease();
  EXPECT_EQ(Heard.size(), 1u);
  EXPECT_TRUE(D.callInfoSuppressed());
  D.callInfoRelease();
  EXPECT_FALSE(D.callInfoSuppressed());
  EXPECT_EQ(Heard,
            (std::vector<std::pair<bool, bool>>{{true, true}, {true, false}}));
}

TEST(Domain, SuppressionNestsRecords) {
  RecordingDomain D;
  Context Outer(&D, Context::Momentary);
  CallInfo *Hidden = nySupport::ci();
  D.callInfoSuppress();
  {
    Context First(&D, Context::NoTxn);
    CallInfo *Own = nySupport::ci();
    ASSERT_NE(Own, nullptr);
    EXPECT_NE(Own, Hidden);
    D.callInfoSuppress();
    {
      Context Second(&D, Context::NoTxn);
      EXPECT_NE(nySupport::ci(), Own);
    }
    D.callInfoRelease();
    EXPECT_EQ(nySupport::ci(), Own);
  }
  EXPECT_EQ(nySupport::ci(), nullptr);
  D.callInfoRelease();
  EXPECT_EQ(nySupport::ci(), Hidden);
  EXPECT_EQ(D.Records, std::vector<CallInfo *>{Hidden});
}

TEST(Domain, DestructionAnnouncesTheDomain) {
  std::vector<Domain *> Heard;
  Domain *Address = nullptr;
  {
    RecordingDomain D;
    Address = &D;
    D.getSigDestroyed().addCallback(
        [&](Domain *Gone) { Heard.push_back(Gone); });
  }
  EXPECT_EQ(Heard, std::vector<Domain *>{Address});
}

TEST(Domain, CountsAsynchronousOperationsAcrossDomains) {
  RecordingDomain A;
  RecordingDomain B;
  EXPECT_FALSE(A.runningAsyncOperation());
  Domain::declareAsyncOperationBegin();
  Domain::declareAsyncOperationBegin();
  EXPECT_TRUE(A.runningAsyncOperation());
  EXPECT_TRUE(B.runningAsyncOperation());
  Domain::declareAsyncOperationEnd();
  EXPECT_TRUE(B.runningAsyncOperation());
  Domain::declareAsyncOperationEnd();
  EXPECT_FALSE(A.runningAsyncOperation());
}

namespace {
class CountingTask : public nySupport::AsyncTask {
public:
  void wait() override { ++Waits; }
  int Waits = 0;
};
} // namespace

TEST(Domain, WaitsForItsAsyncTaskWhileOneIsSet) {
  RecordingDomain D;
  EXPECT_FALSE(D.waitForAsyncTask());
  CountingTask Task;
  D.setAsyncTask(&Task);
  EXPECT_TRUE(D.waitForAsyncTask());
  EXPECT_TRUE(D.waitForAsyncTask());
  EXPECT_EQ(Task.Waits, 2);
  D.setAsyncTask(nullptr);
  EXPECT_FALSE(D.waitForAsyncTask());
  EXPECT_EQ(Task.Waits, 2);
}
