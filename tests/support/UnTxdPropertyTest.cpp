#include "support/UnTxdProperty.h"

#include "tests/support/PropertyProbe.h"

#include <gtest/gtest.h>

using namespace orbotest;
using nySupport::UnTxdProperty;
using nySupport::UnTxdPropertyData;

TEST(UnTxdProperty, MoveBetweenStoresIsAnnouncedToTheMovedPropertyOnly) {
  qo::Reference<UnTxdProperty> A = UnTxdProperty::create("a", num(1));
  qo::Reference<UnTxdProperty> B = UnTxdProperty::create("b", A->data());
  EXPECT_EQ(A->getSigTxnModified(), nullptr);
  PropertyLog Log;
  Log.watch(A), Log.watch(B);
  qo::Reference<UnTxdPropertyData> Other = UnTxdPropertyData::create();
  Other->setItem(num(2), true);
  B->setData(Other);
  EXPECT_EQ(Log.take(), (std::vector<std::string>{"b Pre", "b Mod", "b Post"}));
  EXPECT_EQ(describe({A, B}), "a=1 [- | a] b=2 [- | b] ");
  B.reset();
  EXPECT_TRUE(Other->properties().empty());
}
