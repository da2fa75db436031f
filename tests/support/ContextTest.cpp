#include "support/Context.h"

#include "tests/support/RecordingDomain.h"

#include "support/Domain.h"

#include <gtest/gtest.h>

#include <sstream>
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

TEST(Context, ModesCarryTheirNamesFlagsAndTransactionTypes) {
  // By value: the name, then "i" for interactive, "c" for const or "-", and
  // the transaction type.
  std::istringstream Table(
      "InteractionStart i0 InteractionPerform i0 InteractionEnd i0 "
      "Momentary -0 Transient -1 Const c3 ConstWithRedraw c3 NoTxn -2 "
      "Undecided -4 AppOnly -2 Bootstrap -2 Bare -2");
  RecordingDomain D;
  std::uint32_t Value = 0;
  for (std::string Name, Kind; Table >> Name >> Kind; ++Value) {
    SCOPED_TRACE(Name);
    EXPECT_EQ(Context::modeToString(Context::Mode(Value)), Name.c_str());
    Context::Mode Parsed = Context::Mode(99);
    EXPECT_TRUE(Context::modeFromString(Parsed, Name.c_str()));
    EXPECT_EQ(Parsed, Value);
    const Context C(&D, Parsed);
    EXPECT_EQ(C.interactiveMode(), Kind[0] == 'i');
    EXPECT_EQ(C.constMode(), Kind[0] == 'c');
    EXPECT_EQ(C.transactionType(), std::uint32_t(Kind[1] - '0'));
    EXPECT_EQ(nySupport::mapTransactionType(Parsed), C.transactionType());
  }
  EXPECT_EQ(Value, Context::ModeCount);
  EXPECT_EQ(nySupport::mapTransactionType(Context::Mode(12)), 4u);
  EXPECT_EQ(nySupport::mapTransactionType(Context::Mode(0xffffffffu)), 4u);
}

TEST(Context, ModeFromStringLeavesTheModeAloneOnFailure) {
  const qoString::CString Wrong[] = {
      "",
      "momentary",
      "Momentary ",
      " Const",
      "Interaction",
      "12",
      qoString::CString(std::string_view("Bare\0", 5))};
  for (const qoString::CString &S : Wrong) {
    Context::Mode M = Context::Transient;
    EXPECT_FALSE(Context::modeFromString(M, S)) << S.c_str();
    EXPECT_EQ(M, Context::Transient) << S.c_str();
  }
}

// The inner context must be wholly closed (end functions, domain close, post
// functions) before anything of the outer one runs. Each function notes the
// context current when it runs: end functions see theirs still open.
TEST(Context, NestedContextsCloseInnerThenOuter) {
  RecordingDomain D;
  const auto Note = [&D](const std::string &What) {
    return [&D, What](Domain *Dom) {
      const Context *C = Dom->getCurrentContext();
      D.Log.push_back(What + " in " + (C ? RecordingDomain::name(*C) : "-"));
    };
  };
  {
    Context Outer(&D, Context::Momentary);
    Outer.addEndFunction(Note("outer end"));
    Outer.addPostFunction(Note("outer post"));
    {
      const Context Inner(&D, Context::Const);
      Inner.addPostFunction(Note("inner post 1"));
      Inner.addEndFunction([&](Domain *Dom) {
        Note("inner end 1")(Dom);
        // Work scheduled while closing still runs.
        Inner.addEndFunction(Note("inner end 3"));
      });
      Inner.addEndFunction(Note("inner end 2"));
      Inner.addPostFunction(Note("inner post 2"));
    }
  }
  EXPECT_EQ(
      D.take(),
      (Log{"record begin", "begin Momentary", "begin Const",
           "inner end 1 in Const", "inner end 2 in Const",
           "inner end 3 in Const", "end Const", "inner post 1 in Momentary",
           "inner post 2 in Momentary", "outer end in Momentary",
           "end Momentary", "record end", "empty", "outer post in -"}));
}

// A refused opening must leave no stack entry behind and end the record it
// began, so the application's begin and end hooks stay paired.
TEST(Context, RefusedOpeningLeavesTheDomainAsItWas) {
  RecordingDomain D;
  D.ThrowOnContextBegin = true;
  EXPECT_THROW(openOn(D, Context::Momentary), std::runtime_error);
  EXPECT_EQ(D.getCurrentContext(), nullptr);
  EXPECT_TRUE(D.contextStack().empty());
  EXPECT_EQ(D.take(), (Log{"record begin", "begin Momentary", "record end"}));

  D.ThrowOnContextBegin = false;
  D.ThrowOnCallInfoBegin = true;
  EXPECT_THROW(openOn(D, Context::NoTxn), std::runtime_error);
  EXPECT_EQ(D.getCurrentContext(), nullptr);
  EXPECT_EQ(D.take(), Log{"record begin"});

  D.ThrowOnCallInfoBegin = false;
  Context Outer(&D, Context::Momentary);
  nySupport::CallInfo *Record = nySupport::ci();
  EXPECT_EQ(D.Records, std::vector<nySupport::CallInfo *>{Record});
  D.ThrowOnContextBegin = true;
  EXPECT_THROW(openOn(D, Context::Const), std::runtime_error);
  EXPECT_EQ(D.getCurrentContext(), &Outer);
  EXPECT_EQ(D.contextStack(), std::vector<Context::Mode>{Context::Momentary});
  EXPECT_EQ(nySupport::ci(), Record);
  EXPECT_EQ(D.take(), (Log{"record begin", "begin Momentary", "begin Const"}));
}
