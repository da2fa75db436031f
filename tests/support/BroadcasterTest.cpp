#include "support/Broadcaster.h"

#include "support/Message.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
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

// The default priority is (19, 3).
TEST(Broadcaster, DeliversInAscendingPriorityThenConnectionOrder) {
  Broadcaster B;
  B.getSignal<PingMsg>().addCallback(
      [](PingMsg &M) { M.Trail.push_back("19,3"); });
  listen(B, Priority(0, 5), "0,5 a");
  listen(B, Priority(0, 0), "0,0");
  listen(B, Priority(0, 5), "0,5 b");
  listen(B, Priority(-1, 7), "-1,7");
  listen(B, Priority(19, 4), "19,4");
  EXPECT_EQ(send(B), (Trail{"-1,7", "0,0", "0,5 a", "0,5 b", "19,3", "19,4"}));
}

// Type slots are process-wide: a broadcaster that meets the types in another
// order must still keep them apart.
TEST(Broadcaster, DeliversOnlyToListenersOfTheExactStaticType) {
  Broadcaster First;
  Broadcaster Second;
  listen(First, Priority(), "first");
  Second.getSignal<LoudPingMsg>().addCallback(
      [](LoudPingMsg &M) { M.Trail.push_back("loud"); });
  listen(Second, Priority(), "ping");
  LoudPingMsg Loud;
  First.broadcast(Loud);
  Second.broadcast(Loud);
  EXPECT_EQ(Loud.Trail, Trail{"loud"});
  Second.broadcast(static_cast<PingMsg &>(Loud));
  EXPECT_EQ(Loud.Trail, (Trail{"loud", "ping"}));
  EXPECT_EQ(send(First), Trail{"first"});
}

TEST(Broadcaster, ListenerMayDisconnectItselfAndOthersDuringDelivery) {
  Broadcaster B;
  listen(B, Priority(0, 0), "first");
  Reference<Connection> Self;
  Reference<Connection> Next;
  Self = B.getSignal<PingMsg>(Priority(0, 0)).addCallback([&](PingMsg &M) {
    M.Trail.push_back("once");
    Next->disconnect();
    Self->disconnect();
    Self = nullptr; // drops the last outside reference mid-call
  });
  Next = listen(B, Priority(0, 0), "victim");
  listen(B, Priority(0, 0), "last");
  listen(B, Priority(1, 0), "later level");
  EXPECT_EQ(send(B), (Trail{"first", "once", "last", "later level"}));
  EXPECT_EQ(send(B), (Trail{"first", "last", "later level"}));
}

// A listener added at the level being delivered, or at an earlier level, waits
// for the next message; a new later level is reached at once.
TEST(Broadcaster, ListenerMayConnectOthersDuringDelivery) {
  Broadcaster B;
  bool Connected = false;
  B.getSignal<PingMsg>(Priority(5, 0)).addCallback([&](PingMsg &M) {
    M.Trail.push_back("connector");
    if (std::exchange(Connected, true))
      return;
    listen(B, Priority(5, 0), "same level");
    listen(B, Priority(1, 0), "earlier level");
    listen(B, Priority(9, 0), "later level");
  });
  EXPECT_EQ(send(B), (Trail{"connector", "later level"}));
  EXPECT_EQ(send(B),
            (Trail{"earlier level", "connector", "same level", "later level"}));
}

TEST(Broadcaster, DestructionDisconnectsAndSetsFirstTimeFlags) {
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
