#include "plst/Item.h"

#include "tests/plst/ItemBuilders.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>

using namespace nyPLST;
using namespace plsttest;
using qo::make;
using qo::Reference;
using namespace std::string_literals;

namespace {

// Counts live instances so that tests can see every item released.
struct CountedDouble : Double {
  static inline int Live = 0;
  explicit CountedDouble(double V) : Double(V) { ++Live; }
  ~CountedDouble() override { --Live; }
};

} // namespace

TEST(Item, DownCastsAnswerSameObjectOrNull) {
  Reference<Item> A = make<Array>();
  EXPECT_EQ(asArray(A).get(), A.get());
  EXPECT_EQ(A->refCount(), 1u);
  EXPECT_FALSE(asDictionary(A));
  EXPECT_FALSE(asDouble(boolean(true)));
  EXPECT_FALSE(asArray(Reference<Item>()));
  EXPECT_EQ(asArray(Reference<const Item>(A)).get(), A.get());
  // A class derived from a kind still casts to that kind.
  EXPECT_TRUE(asDouble(Reference<Item>(make<CountedDouble>(2.5))));
}

// The entries move to a dictionary with other blocks and outlive the one
// that allocated them; the sanitizer build checks each block is freed once.
TEST(Dictionary, IteratesInUnsignedByteOrderAndLastInsertWins) {
  const auto D = make<Dictionary>(40);
  D->dictionary().merge(dictOf({{"b", num(1)},
                                {qoString::CString("a\0c", 3), num(2)},
                                {qoString::CString("a\0b", 3), num(3)},
                                {"\xc3\xa9", num(4)}, // above every ASCII key
                                {"a", num(5)},
                                {"b", num(6)}})
                            ->dictionary());
  std::string Keys;
  for (const auto &Entry : D->dictionary())
    Keys += std::string(Entry.first.view()) + "|";
  EXPECT_EQ(Keys, "a|a\0b|a\0c|b|\xc3\xa9|"s);
  EXPECT_EQ(asDouble(D->find("b"))->value(), 6);
  EXPECT_FALSE(D->find("c"));
  EXPECT_EQ(D->size(), 5);
}

// Live CountedDoubles are counted: every item is released exactly once.
TEST(Item, CloneIsDeepIndependentAndMadeOfBaseKinds) {
  CountedDouble::Live = 0;
  {
    Reference<Item> Shared = make<CountedDouble>(1);
    auto Source = arrayOf(
        {Shared, dictOf({{"s", Shared}, {"t", make<CountedDouble>(2)}})});
    Shared.reset();
    EXPECT_EQ(CountedDouble::Live, 2);
    const auto Copy = asArray(Source->clone());
    // CountedDouble does not override onClone: the copies are plain Doubles.
    EXPECT_EQ(CountedDouble::Live, 2);
    ASSERT_TRUE(sameTree(Copy.get(), Source.get()));
    asDouble(asDictionary(Copy->objectAt(1))->find("s"))->set(9);
    EXPECT_EQ(asDouble(Source->objectAt(0))->value(), 1);
  }
  EXPECT_EQ(CountedDouble::Live, 0);
}

TEST(Item, CongruenceFollowsTheLeftOperand) {
  const std::tuple<const char *, ItemRef, ItemRef, bool> Cases[] = {
      {"bools of any value", boolean(true), boolean(false), true},
      {"bool vs double", boolean(true), num(1), false},
      {"arrays of different size", arrayOf({num(1), num(2)}),
       arrayOf({str("a"), str("b"), str("c")}), true},
      {"[1] vs [\"x\"]", arrayOf({num(1)}), arrayOf({str("x")}), false},
      {"array vs double", arrayOf({num(1)}), num(1), true},
      {"array vs dictionary", make<Array>(), make<Dictionary>(), true},
      {"dictionary vs array", make<Dictionary>(), make<Array>(), false},
      {"{a:1} vs {b:1}", dictOf({{"a", num(1)}}), dictOf({{"b", num(1)}}),
       false},
      {"{a:1} vs {a:\"x\"}", dictOf({{"a", num(1)}}), dictOf({{"a", str("x")}}),
       false},
      {"{a:1} vs {a:2}", dictOf({{"a", num(1)}}), dictOf({{"a", num(2)}}),
       true},
      {"dictionaries of different size", dictOf({{"a", num(1)}}),
       make<Dictionary>(), false},
      {"nested mismatch deep down",
       arrayOf({dictOf({{"k", arrayOf({num(1)})}})}),
       arrayOf({dictOf({{"k", arrayOf({str("x")})}})}), false},
      {"derived kind is another class", num(1), make<CountedDouble>(1), false},
  };
  for (const auto &[Name, Left, Right, Expected] : Cases)
    EXPECT_EQ(Left->congruent(*Right), Expected) << Name;
}
