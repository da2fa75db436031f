#include "support/Domain.h"

#include "tests/support/RecordingDomain.h"

#include "support/CallInfo.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

using nySupport::CallInfo;
using nySupport::Context;
using nySupport::Domain;
using orbotest::RecordingDomain;
using Log = std::vector<std::string>;
using Modes = std::vector<Context::Mode>;

namespace {

// Opens Chain[I...] one inside the other and runs Body in the innermost.
void inChain(Domain &D, const Modes &Chain, const std::function<void()> &Body,
             std::size_t I = 0) {
  if (I == Chain.size())
    return Body();
  const Context C(&D, Chain[I]);
  inChain(D, Chain, Body, I + 1);
}

} // namespace

// Contexts share the record the outermost one made; a bare context adds no
// mode, record or hook, and the stack-empty signal comes after the record
// has gone.
TEST(Domain, BareContextTouchesNoRecordModeOrHook) {
  RecordingDomain D;
  inChain(D, {Context::Bare}, [&] {
    EXPECT_EQ(D.getRootContext()->mode(), Context::Bare);
    EXPECT_TRUE(D.contextStack().empty());
    EXPECT_EQ(nySupport::ci(), nullptr);
  });
  EXPECT_TRUE(D.take().empty());
  std::vector<CallInfo *> AtEmpty;
  D.getSigContextStackEmpty().addCallback(
      [&] { AtEmpty.push_back(nySupport::ci()); });
  inChain(D, {Context::AppOnly, Context::Const, Context::Bare}, [&] {
    EXPECT_EQ(D.getCurrentContext()->mode(), Context::Bare);
    EXPECT_EQ(D.contextStack(), (Modes{Context::AppOnly, Context::Const}));
    EXPECT_EQ(D.Records, std::vector<CallInfo *>{nySupport::ci()});
    EXPECT_TRUE(D.isConst());
  });
  EXPECT_EQ(D.take(),
            (Log{"record begin appOnly", "begin AppOnly", "begin Const",
                 "end Const", "end AppOnly", "record end", "empty"}));
  EXPECT_EQ(AtEmpty, std::vector<CallInfo *>{nullptr});
}

TEST(Domain, BootstrapContextMakesARecordButCallsNoHook) {
  RecordingDomain D;
  inChain(D, {Context::Bootstrap}, [&] {
    EXPECT_NE(nySupport::ci(), nullptr);
    EXPECT_EQ(D.contextStack(), Modes{Context::Bootstrap});
  });
  EXPECT_EQ(D.take(), Log{"empty"});
  inChain(D, {Context::NoTxn, Context::Bootstrap}, [&] {
    EXPECT_EQ(D.Records, std::vector<CallInfo *>{nySupport::ci()});
  });
  EXPECT_EQ(D.take(), (Log{"record begin", "begin NoTxn", "end NoTxn",
                           "record end", "empty"}));
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

} // namespace

TEST(Domain, CompatibleModesFollowTheRulesForEveryPair) {
  for (const CompatibilityRow &Row : CompatibilityTable) {
    RecordingDomain D;
    inChain(D, Row.Stack, [&] {
      for (std::uint32_t Asked = 0; Asked <= Context::ModeCount; ++Asked)
        EXPECT_EQ(D.isCompatibleMode(Context::Mode(Asked)),
                  Row.Accepts[Asked] == '1')
            << "stack " << testing::PrintToString(Row.Stack) << ", asked "
            << Asked;
    });
  }
}

TEST(Domain, SuppressionSignalsFirstSuppressAndLastReleaseWithTrue) {
  RecordingDomain D;
  std::vector<std::pair<bool, bool>> Heard; // argument, state at the time
  D.getSigCallInfoSuppression().addCallback(
      [&](bool Arg) { Heard.emplace_back(Arg, D.callInfoSuppressed()); });
  D.callInfoSuppress();
  D.callInfoSuppress();
  D.callInfoRelease();
  EXPECT_TRUE(D.callInfoSuppressed());
  D.callInfoRelease();
  EXPECT_FALSE(D.callInfoSuppressed());
  EXPECT_EQ(Heard,
            (std::vector<std::pair<bool, bool>>{{true, true}, {true, false}}));
}

// A suppressed record is hidden until its release; inside, each suppression
// lets the next context make a record of its own.
TEST(Domain, SuppressionNestsRecords) {
  RecordingDomain D;
  inChain(D, {Context::Momentary}, [&] {
    CallInfo *Hidden = nySupport::ci();
    D.callInfoSuppress();
    EXPECT_EQ(nySupport::ci(), nullptr);
    inChain(D, {Context::NoTxn}, [&] {
      CallInfo *Own = nySupport::ci();
      D.callInfoSuppress();
      inChain(D, {Context::NoTxn}, [&] {
        EXPECT_EQ(D.Records,
                  (std::vector<CallInfo *>{Hidden, Own, nySupport::ci()}));
      });
      D.callInfoRelease();
      EXPECT_EQ(nySupport::ci(), Own);
    });
    D.callInfoRelease();
    EXPECT_EQ(nySupport::ci(), Hidden);
    EXPECT_EQ(D.Records, std::vector<CallInfo *>{Hidden});
  });
}
