#include "support/PropertySet.h"

#include "tests/support/PropertyProbe.h"

#include <gtest/gtest.h>

using namespace orbotest;
using nySupport::PropertySet;

namespace {

std::string names(const PropertySet &S) {
  std::string Out;
  for (const auto &[Name, P] : S.getMap())
    Out += std::string(Name.c_str()) + "=" + text(P->get()) + " ";
  return Out;
}

} // namespace

TEST(PropertySet, InsertReplacesAndMergeKeepsWhatThisSetHolds) {
  qo::Reference<PropertySet> S = qo::make<PropertySet>();
  S->insert(Property::createUnTxd("b", num(1)));
  S->insert(Property::createUnTxd("a", num(2)));
  S->insert(Property::createUnTxd("b", num(3)));
  EXPECT_EQ(names(*S), "a=2 b=3 ");
  EXPECT_EQ(S->find("c"), nullptr);

  qo::Reference<PropertySet> Other = qo::make<PropertySet>();
  Other->insert(Property::createUnTxd("b", num(4)));
  Other->insert(Property::createUnTxd("c", num(5)));
  S->merge(Other);
  S->merge(S);
  EXPECT_EQ(names(*S), "a=2 b=3 c=5 ");
  EXPECT_EQ(S->find("c"), Other->find("c"));
}
