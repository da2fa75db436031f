#include "support/Property.h"

#include "tests/support/PropertyProbe.h"

#include "support/TxdProperty.h"
#include "support/UnTxdProperty.h"

#include <gtest/gtest.h>

using namespace orbotest;
using nySupport::PropertyGroupIterator;

namespace {

// A group of two transacted and two untransacted members, inside one open
// transaction; a, b, c, d in group order.
struct PropertyGroup : ::testing::Test {
  PropertyGroup() {
    M.beginTransaction(nyTXN::TxnUndoable);
    A = Property::createTxd(M, "a", num(1));
    B = A->cloneTxd(M, "b");
    C = B->cloneUnTxd("c");
    D = C->cloneUnTxd("d");
    for (const PropertyRef &P : {A, B, C, D})
      Log.watch(P);
  }
  ~PropertyGroup() override { M.endTransaction(); }
  nyTXN::Manager M;
  PropertyRef A, B, C, D;
  PropertyLog Log;
};

} // namespace

TEST_F(PropertyGroup, WriteAnnouncesEachPhaseToTheOtherMembersOnly) {
  EXPECT_TRUE(C->set(num(2)));
  EXPECT_EQ(Log.take(), (std::vector<std::string>{
                            "a Pre", "b Pre", "d Pre", "a Mod", "b Mod",
                            "d Mod", "a Post", "b Post", "d Post"}));
  EXPECT_EQ(describe({A, D}), "a=2 [a b | c d] d=2 [a b | c d] ");
  C->send(nySupport::Modify);
  EXPECT_EQ(Log.take(), std::vector<std::string>{"c Mod"});
  // The phased write stores and announces the one phase.
  EXPECT_TRUE(A->set(num(3), nySupport::Modify));
  EXPECT_EQ(Log.take(), (std::vector<std::string>{"b Mod", "c Mod", "d Mod"}));
  EXPECT_EQ(text(D->get()), "3");
}

TEST_F(PropertyGroup, FirstValidatorInGroupOrderDecides) {
  std::vector<std::string> Calls;
  for (const PropertyRef &P : {D, B})
    P->getSigValidation().addCallback(
        [&Calls](Property::ConstRef Q, Property::ItemRef &I) {
          Calls.push_back(Q->name().c_str());
          if (text(I) == "7")
            I = num(8);
        });
  EXPECT_TRUE(D->set(num(5)));
  EXPECT_FALSE(C->set(num(7)));
  EXPECT_EQ(text(A->get()), "8");
  EXPECT_FALSE(A->set(num(7), nySupport::FullModify));
  EXPECT_EQ(Calls, (std::vector<std::string>{"b", "b", "b", "b"}));
}

TEST(Property, BasenameIsTheTextAfterTheLastPoint) {
  const std::pair<const char *, const char *> Cases[] = {
      {"a.b.c", "c"}, {"abc", "abc"}, {"a.", ""}, {".x", "x"}, {"", ""}};
  for (const auto &[Name, Base] : Cases)
    EXPECT_STREQ(Property::createUnTxd(Name)->basename().c_str(), Base) << Name;
}

TEST(Property, CloneAndJoinLinkStoresBothWays) {
  nyTXN::Manager M;
  M.beginTransaction(nyTXN::TxnUndoable);
  PropertyRef T = Property::createTxd(M, "t", num(1));
  PropertyRef U = Property::createUnTxd("u", num(2));
  PropertyRef T2 = U->cloneTxd(M, "t2"); // makes a transacted twin of u
  PropertyRef T3 = U->cloneTxd(M, "t3"); // lands on that twin
  EXPECT_EQ(describe({U, T2}), "u=2 [t2 t3 | u] t2=2 [t2 t3 | u] ");
  PropertyRef Lone = Property::createUnTxd("v", num(4));
  Lone->join(T); // t has no untransacted store yet: one is made and linked
  EXPECT_EQ(describe({T, Lone}), "t=1 [t | v] v=1 [t | v] ");
  T2->join(Lone);
  EXPECT_EQ(describe({U, T3}), "u=1 [t t2 t3 | v u] t3=1 [t t2 t3 | v u] ");
  U->set(num(6));
  EXPECT_EQ(describe({T, Lone}), "t=6 [t t2 t3 | v u] v=6 [t t2 t3 | v u] ");
  std::string Others; // the walk passes over its start once
  for (PropertyGroupIterator It(T2, true); It.valid(); It.next())
    Others += It.get()->name().c_str();
  EXPECT_EQ(Others, "tt3vu");
  M.endTransaction();
}
