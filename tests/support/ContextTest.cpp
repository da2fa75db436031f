#include "support/Context.h"

#include "tests/support/RecordingDomain.h"

#include "support/Domain.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

using nySupport::Context;
using nySupport::Domain;
using orbotest::RecordingDomain;
using Log = std::vector<std::string>;

namespace {
void openOn(Domain &D, Context::Mode M) { const Context C(&D, M); }
} // namespace

namespace {
struct ModeRow {
  Context::Mode Mode;
  const char *Name;
  bool Interactive;
  bool Const;
  std::uint32_t TxnType;
};

const ModeRow ModeTable[] = {
    {Context::InteractionStart, "InteractionStart", true, false, 0},
    {Context::InteractionPerform, "InteractionPerform", true, false, 0},
    {Context::InteractionEnd, "InteractionEnd", true, false, 0},
    {Context::Momentary, "Momentary", false, false, 0},
    {Context::Transient, "Transient", false, false, 1},
    {Context::Const, "Const", false, true, 3},
    {Context::ConstWithRedraw, "ConstWithRedraw", false, true, 3},
    {Context::NoTxn, "NoTxn", false, false, 2},
    {Context::Undecided, "Undecided", false, false, 4},
    {Context::AppOnly, "AppOnly", false, false, 2},
    {Context::Bootstrap, "Bootstrap", false, false, 2},
    {Context::Bare, "Bare", false, false, 2},
};
} // namespace

TEST(Context, ModesCarryTheirNamesFlagsAndTransactionTypes) {
  RecordingDomain D;
  std::uint32_t Value = 0;
  for (const ModeRow &Row : ModeTable) {
    SCOPED_TRACE(Row.Name);
    EXPECT_EQ(static_cast<std::uint32_t>(Row.Mode), Value++);
    EXPECT_EQ(Context::modeToString(Row.Mode), Row.Name);
    Context::Mode Parsed = Context::Mode(99);
    EXPECT_TRUE(Context::modeFromString(Parsed, Row.Name));
    EXPECT_EQ(Parsed, Row.Mode);
    EXPECT_EQ(nySupport::mapTransactionType(Row.Mode), Row.TxnType);

    const Context C(&D, Row.Mode);
    EXPECT_EQ(C.mode(), Row.Mode);
    EXPECT_EQ(C.domain(), &D);
    EXPECT_EQ(C.interactiveMode(), Row.Interactive);
    EXPECT_EQ(C.constMode(), Row.Const);
    EXPECT_EQ(C.transactionType(), Row.TxnType);
  }
  EXPECT_EQ(Value, Context::ModeCount);
}

TEST(Context, ValuesPastTheModesMapToTransactionTypeFour) {
  EXPECT_EQ(nySupport::mapTransactionType(Context::Mode(12)), 4u);
  EXPECT_EQ(nySupport::mapTransactionType(Context::Mode(0xffffffffu)), 4u);

  RecordingDomain D;
  const Context C(&D, Context::Mode(12));
  EXPECT_FALSE(C.interactiveMode());
  EXPECT_FALSE(C.constMode());
  EXPECT_EQ(C.transactionType(), 4u);
}

TEST(Context, ModeFromStringLeavesTheModeAloneOnFailure) {
  const qoString::CString Wrong[] = {
      "",
      "momentary",
      "Momentary ",
      " Const",
      "Interaction",
      "12",
      qoString::CString(std::string_view("Bare\0", 5)),
  };
  for (const qoString::CString &S : Wrong) {
    SCOPED_TRACE(S.c_str());
    Context::Mode M = Context::Transient;
    EXPECT_FALSE(Context::modeFromString(M, S));
    EXPECT_EQ(M, Context::Transient);
  }
}

// The inner context must be wholly closed (end functions, domain close, post
// functions) before anything of the outer one runs.
TEST(Context, NestedContextsCloseInnerThenOuter) {
  RecordingDomain D;
  {
    Context Outer(&D, Context::Momentary);
    Outer.addEndFunction([&](Domain *) { D.Log.push_back("outer end fn"); });
    Outer.addPostFunction([&](Domain *) { D.Log.push_back("outer post fn"); });
    {
      const Context Inner(&D, Context::Const);
      Inner.addPostFunction([&](Domain *) { D.Log.push_back("inner post 1"); });
      Inner.addEndFunction([&](Domain *) { D.Log.push_back("inner end 1"); });
      Inner.addEndFunction([&](Domain *) { D.Log.push_back("inner end 2"); });
      Inner.addPostFunction([&](Domain *) { D.Log.push_back("inner post 2"); });
    }
  }
  EXPECT_EQ(D.take(),
            (Log{"record begin", "begin Momentary", "begin Const",
                 "inner end 1", "inner end 2", "end Const", "inner post 1",
                 "inner post 2", "outer end fn", "end Momentary", "record end",
                 "empty", "outer post fn"}));
}

TEST(Context, EndFunctionsSeeTheContextOpenAndPostFunctionsSeeItClosed) {
  RecordingDomain D;
  std::vector<const Context *> Seen;
  Domain *PostDomain = nullptr;
  {
    const Context C(&D, Context::Momentary);
    C.addEndFunction([&](Domain *Dom) {
      Seen.push_back(Dom->getCurrentContext());
      // Work scheduled while closing still runs.
      C.addEndFunction(
          [&](Domain *Dom) { Seen.push_back(Dom->getCurrentContext()); });
    });
    C.addPostFunction([&](Domain *Dom) {
      PostDomain = Dom;
      Seen.push_back(Dom->getCurrentContext());
    });
    Seen.push_back(&C);
  }
  ASSERT_EQ(Seen.size(), 4u);
  EXPECT_EQ(Seen[1], Seen[0]);
  EXPECT_EQ(Seen[2], Seen[0]);
  EXPECT_EQ(Seen[3], nullptr);
  EXPECT_EQ(PostDomain, &D);
}

// A refused opening must leave no stack entry behind and end the record it
// began, so the application's begin and end hooks stay paired.
TEST(Context, RefusedOpeningLeavesTheDomainAsItWas) {
  RecordingDomain D;
  D.ThrowOnContextBegin = true;
  EXPECT_THROW(openOn(D, Context::Momentary), std::runtime_error);
  EXPECT_EQ(D.getCurrentContext(), nullptr);
  EXPECT_TRUE(D.contextStack().empty());
  EXPECT_TRUE(D.Records.empty());
  EXPECT_EQ(D.take(), (Log{"record begin", "begin Momentary", "record end"}));

  D.ThrowOnContextBegin = false;
  D.ThrowOnCallInfoBegin = true;
  EXPECT_THROW(openOn(D, Context::NoTxn), std::runtime_error);
  EXPECT_EQ(D.getCurrentContext(), nullptr);
  EXPECT_EQ(D.take(), Log{"record begin"});

  D.ThrowOnCallInfoBegin = false;
  {
    Context C(&D, Context::Momentary);
    ASSERT_EQ(D.Records.size(), 1u);
    EXPECT_EQ(nySupport::ci(), D.Records.back());
  }
  EXPECT_EQ(D.take(), (Log{"record begin", "begin Momentary", "end Momentary",
                           "record end", "empty"}));
}

TEST(Context, RefusedInnerOpeningKeepsTheOuterRecord) {
  RecordingDomain D;
  Context Outer(&D, Context::Momentary);
  nySupport::CallInfo *Record = nySupport::ci();
  D.ThrowOnContextBegin = true;
  EXPECT_THROW(openOn(D, Context::Const), std::runtime_error);
  EXPECT_EQ(D.getCurrentContext(), &Outer);
  EXPECT_EQ(D.contextStack(), std::vector<Context::Mode>{Context::Momentary});
  EXPECT_EQ(nySupport::ci(), Record);
}
