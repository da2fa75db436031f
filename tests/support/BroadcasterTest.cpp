#include "support/Broadcaster.h"

#include "support/Message.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using nySupport::Broadcaster;
using nySupport::Priority;
using qo::Reference;
using qoRTB::Connection;

namespace {

struct PingMsg : nySupport::Message {
  std::vector<std::string> Trail;
};
struct LoudPingMsg : PingMsg {};
struct PongMsg : nySupport::Message {
  int Hits = 0;
};

// Connects a listener that appends Name to the message's trail.
Reference<Connection> listen(Broadcaster &B, const Priority &P,
                             const std::string &Name) {
  return B.getSignal<PingMsg>(P).addCallback(
      [Name](PingMsg &M) { M.Trail.push_back(Name); });
}

std::vector<std::string> send(Broadcaster &B) {
  PingMsg M;
  B.broadcast(M);
  return M.Trail;
}

using Trail = std::vector<std::string>;

} // namespace

TEST(Broadcaster, GetSignalReturnsOneSignalPerTypeAndPriority) {
  Broadcaster B;
  auto &First = B.getSignal<PingMsg>(Priority(1, 2));
  EXPECT_EQ(&B.getSignal<PingMsg>(Priority(1, 2)), &First);
  EXPECT_NE(static_cast<void *>(&B.getSignal<PingMsg>(Priority(1, 3))),
            static_cast<void *>(&First));
  EXPECT_NE(static_cast<void *>(&B.getSignal<PongMsg>(Priority(1, 2))),
            static_cast<void *>(&First));
  EXPECT_EQ(&B.getSignal<PingMsg>(), &B.getSignal<PingMsg>(Priority(19, 3)));
}

TEST(Broadcaster, DeliversInAscendingPriorityThenConnectionOrder) {
  Broadcaster B;
  listen(B, Priority(19, 3), "19,3");
  listen(B, Priority(0, 5), "0,5 a");
  listen(B, Priority(0, 0), "0,0");
  listen(B, Priority(0, 5), "0,5 b");
  listen(B, Priority(-1, 7), "-1,7");
  EXPECT_EQ(send(B), (Trail{"-1,7", "0,0", "0,5 a", "0,5 b", "19,3"}));
}

TEST(Broadcaster, DeliversOnlyToListenersOfTheExactStaticType) {
  Broadcaster B;
  int PingCalls = 0;
  int LoudCalls = 0;
  B.getSignal<PingMsg>().addCallback([&](PingMsg &) { ++PingCalls; });
  B.getSignal<LoudPingMsg>().addCallback([&](LoudPingMsg &) { ++LoudCalls; });

  LoudPingMsg Loud;
  B.broadcast(Loud);
  EXPECT_EQ(PingCalls, 0);
  EXPECT_EQ(LoudCalls, 1);

  PingMsg &AsBase = Loud;
  B.broadcast(AsBase);
  EXPECT_EQ(PingCalls, 1);
  EXPECT_EQ(LoudCalls, 1);
}

TEST(Broadcaster, BroadcastWithoutListenersDoesNothing) {
  Broadcaster B;
  PongMsg M;
  B.broadcast(M);
  B.getSignal<PongMsg>(Priority(3, 3));
  B.broadcast(M);
  EXPECT_EQ(M.Hits, 0);
}

TEST(Broadcaster, ListenerMayDisconnectItselfDuringDelivery) {
  Broadcaster B;
  listen(B, Priority(0, 0), "first");
  Reference<Connection> Self;
  Self = B.getSignal<PingMsg>(Priority(0, 0)).addCallback([&](PingMsg &M) {
    M.Trail.push_back("once");
    Self->disconnect();
    Self = nullptr; // drops the last outside reference mid-call
  });
  listen(B, Priority(0, 0), "last");
  listen(B, Priority(1, 0), "later level");

  EXPECT_EQ(send(B), (Trail{"first", "once", "last", "later level"}));
  EXPECT_EQ(send(B), (Trail{"first", "last", "later level"}));
}

TEST(Broadcaster, ListenerMayDisconnectTheNextOne) {
  Broadcaster B;
  Reference<Connection> Next;
  B.getSignal<PingMsg>().addCallback([&](PingMsg &M) {
    M.Trail.push_back("cutter");
    Next->disconnect();
  });
  Next = listen(B, Priority(), "victim");
  listen(B, Priority(), "survivor");
  EXPECT_EQ(send(B), (Trail{"cutter", "survivor"}));
  EXPECT_FALSE(Next->isConnected());
}

// A listener added at the level being delivered, or at an earlier level, waits
// for the next message; a new later level is reached at once.
TEST(Broadcaster, ListenerMayConnectOthersDuringDelivery) {
  Broadcaster B;
  bool Connected = false;
  B.getSignal<PingMsg>(Priority(5, 0)).addCallback([&](PingMsg &M) {
    M.Trail.push_back("connector");
    if (Connected)
      return;
    Connected = true;
    listen(B, Priority(5, 0), "same level");
    listen(B, Priority(1, 0), "earlier level");
    listen(B, Priority(9, 0), "later level");
  });
  EXPECT_EQ(send(B), (Trail{"connector", "later level"}));
  EXPECT_EQ(send(B),
            (Trail{"earlier level", "connector", "same level", "later level"}));
}

TEST(Broadcaster, ListenerMayBroadcastAgain) {
  Broadcaster B;
  B.getSignal<PongMsg>().addCallback([&](PongMsg &M) {
    if (++M.Hits < 3)
      B.broadcast(M);
  });
  listen(B, Priority(), "ping");
  PongMsg M;
  B.broadcast(M);
  EXPECT_EQ(M.Hits, 3);
  EXPECT_EQ(send(B), Trail{"ping"});
}

TEST(Broadcaster, DestructionDisconnectsAndResetsFirstTimeFlags) {
  bool FirstTime = false;
  bool Other = false;
  Reference<Connection> C;
  {
    Broadcaster B;
    B.addFirstTimeFlag(&FirstTime);
    B.addFirstTimeFlag(&FirstTime);
    B.addFirstTimeFlag(&Other);
    C = listen(B, Priority(), "x");
  }
  EXPECT_TRUE(FirstTime);
  EXPECT_TRUE(Other);
  EXPECT_FALSE(C->isConnected());
}

// The registration guard of start-up code: one connection per broadcaster,
// however often the registering function runs.
TEST(Broadcaster, FirstTimeFlagConnectsOncePerBroadcaster) {
  static bool FirstTime = true;
  auto Register = [](Broadcaster &B) {
    if (!FirstTime)
      return;
    FirstTime = false;
    B.addFirstTimeFlag(&FirstTime);
    listen(B, Priority(0, 0), "registered");
  };
  for (int Round = 0; Round < 2; ++Round) {
    Broadcaster B;
    Register(B);
    Register(B);
    EXPECT_EQ(send(B), Trail{"registered"});
  }
  EXPECT_TRUE(FirstTime);
}

// Type slots are process-wide; broadcasters that meet the types in different
// orders must still keep them apart.
TEST(Broadcaster, KeepsTypesApartAcrossBroadcasters) {
  Broadcaster First;
  Broadcaster Second;
  int Pongs = 0;
  Second.getSignal<PongMsg>().addCallback([&](PongMsg &) { ++Pongs; });
  listen(First, Priority(), "first");
  listen(Second, Priority(), "second");
  EXPECT_EQ(send(First), Trail{"first"});
  EXPECT_EQ(send(Second), Trail{"second"});
  PongMsg M;
  First.broadcast(M);
  EXPECT_EQ(Pongs, 0);
  Second.broadcast(M);
  EXPECT_EQ(Pongs, 1);
}
