#include "plst/Convert.h"

#include "tests/plst/ItemBuilders.h"

#include "support/BoundedValue.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <initializer_list>
#include <utility>
#include <vector>

using namespace nyPLST;
using plsttest::arrayOf;
using plsttest::boolean;
using plsttest::num;
using plsttest::sameTree;
using plsttest::str;
using qo::make;
using qo::Reference;

namespace {

Reference<Item> nums(std::initializer_list<double> Values) {
  auto A = make<Array>();
  for (const double V : Values)
    A->insert(num(V));
  return A;
}

template <class T> bool sameValue(const T &A, const T &B) { return A == B; }
bool sameValue(const nySupport::BoundedDouble &A,
               const nySupport::BoundedDouble &B) {
  return A.value() == B.value() && A.minValue() == B.minValue() &&
         A.maxValue() == B.maxValue();
}
bool sameValue(const nySupport::BoundedInt &A, const nySupport::BoundedInt &B) {
  return A.value() == B.value() && A.minValue() == B.minValue() &&
         A.maxValue() == B.maxValue();
}

// A value and the item it is written as, hand-made from the documented form.
// Each type has at least one value that differs from its default, so a reader
// that does nothing cannot pass.
template <class T> using Cases = std::vector<std::pair<T, Reference<Item>>>;
template <class T> Cases<T> cases();

template <> Cases<bool> cases() {
  return {{true, boolean(true)}, {false, boolean(false)}};
}
template <> Cases<int> cases() {
  return {{-2, num(-2)}, {INT_MAX, num(INT_MAX)}, {INT_MIN, num(INT_MIN)}};
}
template <> Cases<float> cases() {
  // The item holds the float widened, not the decimal it was written from.
  return {{0.1f, num(static_cast<double>(0.1f))}, {-3.5f, num(-3.5)}};
}
template <> Cases<double> cases() {
  return {{0.1, num(0.1)}, {-1e300, num(-1e300)}, {5e-324, num(5e-324)}};
}
template <> Cases<qoString::CString> cases() {
  return {{"text", str("text")},
          {qoString::CString("a\0b", 3), str(qoString::CString("a\0b", 3))}};
}
template <> Cases<qoString::IString> cases() {
  return {
      {qoString::IString("Stra\xC3\x9F"
                         "e"),
       str("Stra\xC3\x9F"
           "e")},
      {qoString::IString::fromUTF32(U"\U0001F600"), str("\xF0\x9F\x98\x80")}};
}
template <> Cases<qoLinear::Point2> cases() {
  return {{{1.5, -2}, nums({1.5, -2})}};
}
template <> Cases<qoLinear::Point> cases() {
  return {{{1, 2, 3}, nums({1, 2, 3})}};
}
template <> Cases<qoLinear::Vector> cases() {
  return {{{-1, 0.5, 4}, nums({-1, 0.5, 4})}};
}
template <> Cases<qoLinear::Normal> cases() {
  return {{qoLinear::Normal(3, 0, 4), nums({0.6, 0, 0.8})},
          {qoLinear::Normal(0, -2, 0), nums({0, -1, 0})}};
}
template <> Cases<qoLinear::Quaternion> cases() {
  // Storage order: the scalar part last.
  return {{{0.1, 0.2, 0.3, 0.9}, nums({0.1, 0.2, 0.3, 0.9})}};
}
template <> Cases<qoLinear::AffineMatrix> cases() {
  const double Coefficients[12] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
  return {{qoLinear::AffineMatrix(Coefficients),
           nums({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12})},
          {qoLinear::AffineMatrix::translation({7, 8, 9}),
           nums({1, 0, 0, 0, 1, 0, 0, 0, 1, 7, 8, 9})}};
}
template <> Cases<qoUtil::Color> cases() {
  return {{{0.25f, 0.5f, 0.75f, 0.125f}, nums({0.25, 0.5, 0.75, 0.125})},
          {{0.1f, 0, 0, 1}, nums({static_cast<double>(0.1f), 0, 0, 1})}};
}
template <> Cases<qoUtil::Color8> cases() {
  return {{{255, 128, 0, 44}, nums({255, 128, 0, 44})},
          {{1, 2, 3}, nums({1, 2, 3, 255})}};
}
template <> Cases<nySupport::BoundedDouble> cases() {
  return {{{0.25, 0, 0.5}, nums({0.25, 0, 0.5})},
          {nySupport::BoundedDouble(), nums({0, 1, 0})}};
}
template <> Cases<nySupport::BoundedInt> cases() {
  return {{{3, 1, 10}, nums({3, 1, 10})}, {{-5, 0, 0}, nums({-5, 0, 0})}};
}

} // namespace

template <class T> class ConvertRoundTrip : public ::testing::Test {};
using ValueTypes =
    ::testing::Types<bool, int, float, double, qoString::CString,
                     qoString::IString, qoLinear::Point2, qoLinear::Point,
                     qoLinear::Vector, qoLinear::Normal, qoLinear::Quaternion,
                     qoLinear::AffineMatrix, qoUtil::Color, qoUtil::Color8,
                     nySupport::BoundedDouble, nySupport::BoundedInt>;
TYPED_TEST_SUITE(ConvertRoundTrip, ValueTypes);

TYPED_TEST(ConvertRoundTrip, WritesTheDocumentedItemAndReadsTheValueBack) {
  int Index = 0;
  for (const auto &[Value, Expected] : cases<TypeParam>()) {
    SCOPED_TRACE(Index++);
    Reference<Item> Written;
    convert(Written, Value);
    EXPECT_TRUE(sameTree(Written.get(), Expected.get()));

    TypeParam Back{};
    convert(Back, Reference<const Item>(Written));
    EXPECT_TRUE(sameValue(Back, Value));
  }
}

TEST(Convert, WriterReplacesTheTargetWithoutTouchingWhatItHeld) {
  const Reference<Item> Shared = nums({1, 2});
  Reference<Item> Out = Shared;
  convert(Out, 5);
  EXPECT_TRUE(sameTree(Out.get(), num(5).get()));
  EXPECT_TRUE(sameTree(Shared.get(), nums({1, 2}).get()));

  convert(Out, "text");
  EXPECT_TRUE(sameTree(Out.get(), str("text").get()));
}

TEST(Convert, BoolReadsBoolsAndDoublesAndIgnoresOtherItems) {
  bool B = false;
  convert(B, num(0.5));
  EXPECT_TRUE(B);
  convert(B, num(0.0));
  EXPECT_FALSE(B);
  B = true;
  convert(B, num(-0.0));
  EXPECT_FALSE(B);

  for (const bool Start : {false, true}) {
    for (const auto &Other : {str("true"), nums({1}), Reference<Item>()}) {
      B = Start;
      convert(B, Other);
      EXPECT_EQ(B, Start);
    }
  }
}

TEST(Convert, IntTruncatesTowardZeroAndSaturates) {
  const std::pair<double, int> Cases[] = {
      {-2.7, -2},       {2.7, 2}, {-0.5, 0},          {1e10, INT_MAX},
      {-1e10, INT_MIN}, {NAN, 0}, {INFINITY, INT_MAX}};
  for (const auto &[In, Expected] : Cases) {
    int Out = 7;
    convert(Out, num(In));
    EXPECT_EQ(Out, Expected) << In;
  }
}

TEST(Convert, Color8PacksTheLowByteOfEachTruncatedElement) {
  qoUtil::Color8 C;
  convert(C, nums({255, 128, 0, 300}));
  EXPECT_EQ(C.packed(), 255u | 128u << 8 | 0u << 16 | 44u << 24);

  convert(C, nums({-1, 256.9, 1.5, 511}));
  EXPECT_EQ(C.packed(), 255u | 0u << 8 | 1u << 16 | 255u << 24);
}

TEST(Convert, AffineMatrixReadsThreeOrFourRowsAndUsesThree) {
  const Reference<Item> Rows[] = {nums({1, 2, 3, 4}), nums({5, 6, 7, 8}),
                                  nums({9, 10, 11, 12})};
  const Reference<Item> Ignored = str("not a row");
  const Reference<Item> FlatOfRows =
      nums({1, 5, 9, 2, 6, 10, 3, 7, 11, 4, 8, 12});
  for (const auto &Input : {arrayOf({Rows[0], Rows[1], Rows[2]}),
                            arrayOf({Rows[0], Rows[1], Rows[2], Ignored})}) {
    qoLinear::AffineMatrix M;
    convert(M, Input);
    EXPECT_EQ(M(1, 2), 7);
    Reference<Item> Back;
    convert(Back, M);
    EXPECT_TRUE(sameTree(Back.get(), FlatOfRows.get()));
  }
}

TEST(Convert, AffineMatrixKeepsTheTargetForOtherSizes) {
  const auto Start = qoLinear::AffineMatrix::translation({1, 2, 3});
  for (const auto &Input :
       {nums({}), nums({1, 2}), nums({1, 2, 3, 4, 5}),
        nums({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}),
        nums({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13})}) {
    auto M = Start;
    convert(M, Input);
    EXPECT_EQ(M, Start);
  }
}

TEST(Convert, NormalIsRenormalisedAndExtraElementsAreIgnored) {
  qoLinear::Normal N;
  convert(N, nums({0, 3, 4, 99}));
  EXPECT_EQ(N, qoLinear::Normal::fromUnit(0, 0.6, 0.8));
}

TEST(Convert, IStringReplacesIllFormedUTF8) {
  qoString::IString S;
  convert(S, str("a\xFF"));
  EXPECT_EQ(S.toUTF32(), U"a\uFFFD");
}

// Readers trust their input; a wrong shape must still not read through null
// references or write a half-read value.
TEST(ConvertDeathTest, WrongShapeAssertsAndLeavesTheTargetAlone) {
  qoLinear::Vector V(1, 1, 1);
  EXPECT_DEBUG_DEATH(convert(V, nums({1, 2})), "check with Parser");
  EXPECT_DEBUG_DEATH(convert(V, arrayOf({num(1), str("x"), num(3)})),
                     "check with Parser");
  EXPECT_EQ(V, qoLinear::Vector(1, 1, 1));

  double D = 4;
  EXPECT_DEBUG_DEATH(convert(D, str("4")), "check with Parser");
  EXPECT_EQ(D, 4);

  qoString::CString S = "kept";
  EXPECT_DEBUG_DEATH(convert(S, num(1)), "check with Parser");
  EXPECT_EQ(S, "kept");

  auto M = qoLinear::AffineMatrix::scaling(2);
  EXPECT_DEBUG_DEATH(convert(M, arrayOf({nums({1, 2, 3, 4}), num(5), num(6)})),
                     "check with Parser");
  EXPECT_EQ(M, qoLinear::AffineMatrix::scaling(2));
}

TEST(ConvertItem, MutableTargetsGetADeepCopy) {
  const Reference<Item> Input = arrayOf({nums({1, 2}), str("x")});

  Reference<Item> AnyCopy;
  convert(AnyCopy, Input);
  EXPECT_NE(AnyCopy, Input);
  EXPECT_TRUE(sameTree(AnyCopy.get(), Input.get()));

  Reference<Array> ArrayCopy;
  convert(ArrayCopy, Input);
  ASSERT_TRUE(ArrayCopy);
  EXPECT_NE(ArrayCopy.get(), Input.get());
  asArray(ArrayCopy->objectAt(0))->insert(num(3));
  ArrayCopy->insert(num(4));
  EXPECT_TRUE(sameTree(Input.get(), arrayOf({nums({1, 2}), str("x")}).get()));
}

TEST(ConvertItem, ConstTargetsShareTheInput) {
  const Reference<Item> Input = nums({1, 2});

  Reference<const Item> Any;
  convert(Any, Input);
  EXPECT_EQ(Any.get(), Input.get());

  Reference<const Array> AsArray;
  convert(AsArray, Input);
  EXPECT_EQ(AsArray.get(), Input.get());
}

TEST(ConvertItem, KindTargetsAreNullForOtherKindsAndNullInput) {
  const Reference<Item> Number = num(1);
  Reference<Bool> B = make<Bool>(true);
  convert(B, Number);
  EXPECT_FALSE(B);
  Reference<const Dictionary> D = make<Dictionary>();
  convert(D, Number);
  EXPECT_FALSE(D);

  Reference<Double> Copy;
  convert(Copy, Number);
  ASSERT_TRUE(Copy);
  EXPECT_NE(Copy.get(), Number.get());
  Reference<const Double> Shared;
  convert(Shared, Number);
  EXPECT_EQ(Shared.get(), Number.get());

  Reference<Item> Any = Number;
  convert(Any, Reference<const Item>());
  EXPECT_FALSE(Any);
  Reference<String> S = make<String>("x");
  convert(S, Reference<const Item>());
  EXPECT_FALSE(S);
}
