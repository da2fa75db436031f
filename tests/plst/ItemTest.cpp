#include "plst/Item.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace nyPLST;
using qo::make;
using qo::Reference;

namespace {

// Counts live instances so that tests can see every item released.
struct CountedDouble : Double {
  static inline int Live = 0;
  explicit CountedDouble(double V) : Double(V) { ++Live; }
  ~CountedDouble() override { --Live; }
};

Reference<Array> arrayOf(std::initializer_list<Reference<Item>> Elements) {
  auto A = make<Array>();
  for (const auto &E : Elements)
    A->insert(E);
  return A;
}

Reference<Dictionary> dictOf(
    std::initializer_list<std::pair<const char *, Reference<Item>>> Entries) {
  auto D = make<Dictionary>();
  for (const auto &[Key, Value] : Entries)
    D->insert(Key, Value);
  return D;
}

Reference<Item> num(double V) { return make<Double>(V); }
Reference<Item> str(const char *V) { return make<String>(V); }

std::vector<std::string> keysOf(const Dictionary &D) {
  std::vector<std::string> Keys;
  for (const auto &Entry : D.dictionary())
    Keys.emplace_back(Entry.first.view());
  return Keys;
}

// A chain of arrays Depth levels deep.
Reference<Item> deepArray(int Depth) {
  Reference<Item> Inner = make<Array>();
  for (int I = 1; I < Depth; ++I)
    Inner = arrayOf({Inner});
  return Inner;
}

} // namespace

TEST(Item, DefaultsAndTypeTags) {
  EXPECT_FALSE(Bool().value());
  EXPECT_EQ(Double().value(), 0.0);
  EXPECT_EQ(Bool().type(), BoolType);
  EXPECT_EQ(String("x").type(), StringType);
  EXPECT_EQ(Dictionary().type(), 4u);
}

TEST(Item, DownCastsAnswerSameObjectOrNull) {
  Reference<Item> A = make<Array>();
  EXPECT_EQ(asArray(A).get(), A.get());
  EXPECT_EQ(A->refCount(), 1u);
  EXPECT_FALSE(asDictionary(A));
  EXPECT_FALSE(asDouble(Reference<Item>(make<Bool>(true))));
  EXPECT_FALSE(asArray(Reference<Item>()));

  Reference<const Item> View = A;
  Reference<const Array> ConstArray = asArray(View);
  EXPECT_EQ(ConstArray.get(), A.get());
}

TEST(Item, DownCastAcceptsDerivedClass) {
  Reference<Item> D = make<CountedDouble>(2.5);
  ASSERT_TRUE(asDouble(D));
  EXPECT_EQ(asDouble(D)->value(), 2.5);
}

TEST(Dictionary, IteratesInByteOrderAndLastInsertWins) {
  auto D = dictOf({{"b", num(1)}, {"a", num(2)}, {"c", num(3)}, {"a", num(4)}});
  EXPECT_EQ(keysOf(*D), (std::vector<std::string>{"a", "b", "c"}));
  EXPECT_EQ(asDouble(D->find("a"))->value(), 4);
}

TEST(Dictionary, OrdersBytesUnsignedAndKeepsZeroBytesDistinct) {
  auto D = make<Dictionary>();
  D->insert(qoString::CString("a\0c", 3), num(1));
  D->insert(qoString::CString("a\0b", 3), num(2));
  D->insert("\xc3\xa9", num(3)); // above every ASCII key
  D->insert("a", num(4));
  EXPECT_EQ(D->size(), 4);
  EXPECT_EQ(keysOf(*D),
            (std::vector<std::string>{"a", std::string("a\0b", 3),
                                      std::string("a\0c", 3), "\xc3\xa9"}));
}

TEST(Dictionary, MissingKeyDoesNotCreateEntry) {
  auto D = dictOf({{"a", num(1)}});
  EXPECT_FALSE(D->find("b"));
  EXPECT_FALSE(D->get("b"));
  EXPECT_EQ(D->size(), 1);
}

TEST(Item, CloneIsDeepAndIndependent) {
  auto Source = arrayOf({dictOf({{"x", num(1)}}), dictOf({{"y", str("s")}})});
  Reference<Item> Copy = Source->clone();
  auto CopyArray = asArray(Copy);
  ASSERT_EQ(CopyArray->size(), 2);
  EXPECT_NE(CopyArray->objectAt(0).get(), Source->objectAt(0).get());
  asDouble(asDictionary(CopyArray->objectAt(0))->find("x"))->set(9);
  EXPECT_EQ(asDouble(asDictionary(Source->objectAt(0))->find("x"))->value(), 1);
  EXPECT_TRUE(Source->congruent(*Copy));
}

TEST(Item, CloneCallsDerivedKindsOwnClone) {
  CountedDouble::Live = 0;
  {
    auto Source = arrayOf({make<CountedDouble>(1)});
    Reference<Item> Copy = Source->clone();
    // CountedDouble does not override onClone: the copy is a plain Double.
    EXPECT_EQ(CountedDouble::Live, 1);
    EXPECT_EQ(asDouble(asArray(Copy)->objectAt(0))->value(), 1);
  }
  EXPECT_EQ(CountedDouble::Live, 0);
}

struct CongruenceCase {
  const char *Name;
  Reference<Item> Left;
  Reference<Item> Right;
  bool Expected;
};

TEST(Item, CongruenceFollowsTheLeftOperand) {
  const std::vector<CongruenceCase> Cases = {
      {"bools of any value", make<Bool>(true), make<Bool>(false), true},
      {"bool vs double", make<Bool>(true), num(1), false},
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
      {"empty dictionaries", make<Dictionary>(), make<Dictionary>(), true},
      {"dictionaries of different size", dictOf({{"a", num(1)}}),
       make<Dictionary>(), false},
      {"nested mismatch deep down",
       arrayOf({dictOf({{"k", arrayOf({num(1)})}})}),
       arrayOf({dictOf({{"k", arrayOf({str("x")})}})}), false},
      {"derived kind is another class", num(1), make<CountedDouble>(1), false},
  };
  for (const auto &C : Cases)
    EXPECT_EQ(C.Left->congruent(*C.Right), C.Expected) << C.Name;
}

TEST(Array, SlotsCanBeReplacedInPlace) {
  auto A = arrayOf({num(1), num(2)});
  (*A)[1] = str("two");
  EXPECT_EQ(asString(A->objectAt(1))->value(), "two");
  A->clear();
  EXPECT_TRUE(A->empty());
}

TEST(Item, ReleasesEveryElementOfSharedSubtrees) {
  CountedDouble::Live = 0;
  {
    Reference<Item> Shared = make<CountedDouble>(1);
    auto Outer = arrayOf(
        {Shared, dictOf({{"s", Shared}, {"t", make<CountedDouble>(2)}})});
    Shared.reset();
    EXPECT_EQ(CountedDouble::Live, 2);
  }
  EXPECT_EQ(CountedDouble::Live, 0);
}

// A tree a million levels deep must copy, compare and release without
// exhausting the stack: such trees arrive from outside in JSON text.
TEST(Item, DeepTreesCopyCompareAndReleaseWithoutRecursion) {
  Reference<Item> Deep = deepArray(1000000);
  Reference<Item> Copy = Deep->clone();
  EXPECT_TRUE(Deep->congruent(*Copy));

  auto DeepDict = make<Dictionary>();
  Reference<Dictionary> Cursor = DeepDict;
  for (int I = 0; I < 300000; ++I) {
    auto Next = make<Dictionary>();
    Cursor->insert("k", Next);
    Cursor = Next;
  }
  Cursor.reset();
  Reference<Item> DictCopy = DeepDict->clone();
  EXPECT_TRUE(DictCopy->congruent(*DeepDict));
}

TEST(Item, ConstViewSharesTheObject) {
  auto D = make<Double>(1);
  Reference<const Item> View = D;
  D->set(2);
  EXPECT_EQ(asDouble(View)->value(), 2);
  EXPECT_EQ(D->refCount(), 2u);
}
