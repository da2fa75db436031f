#include "plst/Convert.h"

#include "tests/plst/ItemBuilders.h"

#include "support/BoundedValue.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <initializer_list>
#include <tuple>
#include <utility>
#include <vector>

using namespace nyPLST;
using namespace plsttest;
using qo::make;
using qo::Reference;

namespace {

ItemRef nums(std::initializer_list<double> Values) {
  auto A = make<Array>();
  for (const double V : Values)
    A->insert(num(V));
  return A;
}

// Values and the items they are written as, hand-made from the documented
// form, one list per type. Each type has a value that differs from its
// default, so a reader that does nothing cannot pass.
template <class T> using Cases = std::vector<std::pair<T, ItemRef>>;
template <class... T> struct CaseTable {
  using Types = ::testing::Types<T...>;
  using Tuple = std::tuple<Cases<T>...>;
};
using ValueTable =
    CaseTable<bool, int, float, double, qoString::CString, qoString::IString,
              qoLinear::Point2, qoLinear::Point, qoLinear::Vector,
              qoLinear::Normal, qoLinear::Quaternion, qoLinear::AffineMatrix,
              qoUtil::Color, qoUtil::Color8, nySupport::BoundedDouble,
              nySupport::BoundedInt>;

ValueTable::Tuple valueCases() {
  return {
      {{true, boolean(true)}, {false, boolean(false)}},
      {{-2, num(-2)}, {INT_MAX, num(INT_MAX)}, {INT_MIN, num(INT_MIN)}},
      // The item holds the float widened, not the decimal it was written from.
      {{0.1f, num(static_cast<double>(0.1f))}},
      {{0.1, num(0.1)}, {-1e300, num(-1e300)}, {5e-324, num(5e-324)}},
      {{qoString::CString("a\0b", 3), str(qoString::CString("a\0b", 3))}},
      {{qoString::IString::fromUTF32(U"\u00DF\U0001F600"),
        str("\xC3\x9F\xF0\x9F\x98\x80")}},
      {{{1.5, -2}, nums({1.5, -2})}},
      {{{1, 2, 3}, nums({1, 2, 3})}},
      {{{-1, 0.5, 4}, nums({-1, 0.5, 4})}},
      {{qoLinear::Normal(0, -2, 0), nums({0, -1, 0})}},
      // Storage order: the scalar part last.
      {{{0.1, 0.2, 0.3, 0.9}, nums({0.1, 0.2, 0.3, 0.9})}},
      {{qoLinear::AffineMatrix::translation({7, 8, 9}),
        nums({1, 0, 0, 0, 1, 0, 0, 0, 1, 7, 8, 9})}},
      {{{0.25f, 0.5f, 0.75f, 0.125f}, nums({0.25, 0.5, 0.75, 0.125})}},
      {{{255, 128, 0, 44}, nums({255, 128, 0, 44})},
       {{1, 2, 3}, nums({1, 2, 3, 255})}},
      {{{0.25, 0, 0.5}, nums({0.25, 0, 0.5})}},
      {{{3, 1, 10}, nums({3, 1, 10})}},
  };
}

// Start after reading In.
template <class T> T read(T Start, const ItemRef &In) {
  convert(Start, In);
  return Start;
}

} // namespace

template <class T> class ConvertRoundTrip : public ::testing::Test {};
TYPED_TEST_SUITE(ConvertRoundTrip, ValueTable::Types);

// The value read back is checked by writing it again: the writer is already
// shown exact, and some types have no equality of their own.
TYPED_TEST(ConvertRoundTrip, WritesTheDocumentedItemAndReadsTheValueBack) {
  const auto All = valueCases();
  for (const auto &[Value, Expected] : std::get<Cases<TypeParam>>(All)) {
    ItemRef Written;
    convert(Written, Value);
    EXPECT_TRUE(sameTree(Written.get(), Expected.get()));

    TypeParam Back{};
    convert(Back, Reference<const Item>(Expected));
    ItemRef Again = nums({1, 2});
    const ItemRef Held = Again;
    convert(Again, Back);
    EXPECT_TRUE(sameTree(Again.get(), Expected.get()));
    EXPECT_TRUE(sameTree(Held.get(), nums({1, 2}).get()));
  }
}

TEST(Convert, BoolReadsBoolsAndDoublesAndIgnoresOtherItems) {
  EXPECT_TRUE(read(false, num(0.5)));
  EXPECT_FALSE(read(true, num(-0.0)));
  for (const auto &Other : {str("true"), nums({1}), ItemRef()})
    EXPECT_TRUE(read(true, Other) && !read(false, Other));
}

TEST(Convert, IntTruncatesTowardZeroAndSaturates) {
  const std::pair<double, int> Cases[] = {
      {-2.7, -2},       {2.7, 2}, {-0.5, 0},          {1e10, INT_MAX},
      {-1e10, INT_MIN}, {NAN, 0}, {INFINITY, INT_MAX}};
  for (const auto &[In, Expected] : Cases)
    EXPECT_EQ(read(7, num(In)), Expected) << In;
}

TEST(Convert, Color8PacksTheLowByteOfEachTruncatedElement) {
  EXPECT_EQ(read(qoUtil::Color8(), nums({-1, 256.9, 1.5, 300})).packed(),
            255u | 0u << 8 | 1u << 16 | 44u << 24);
}

// Rows are transposed into the stored columns; other sizes leave the target.
TEST(Convert, AffineMatrixReadsThreeOrFourRowsAndIgnoresOtherSizes) {
  const ItemRef R[] = {nums({1, 2, 3, 4}), nums({5, 6, 7, 8}),
                       nums({9, 10, 11, 12})};
  for (const auto &Rows :
       {arrayOf({R[0], R[1], R[2]}), arrayOf({R[0], R[1], R[2], str("x")})}) {
    ItemRef Back;
    convert(Back, read(qoLinear::AffineMatrix(), Rows));
    EXPECT_TRUE(sameTree(Back.get(),
                         nums({1, 5, 9, 2, 6, 10, 3, 7, 11, 4, 8, 12}).get()));
  }
  const auto Start = qoLinear::AffineMatrix::translation({1, 2, 3});
  for (const auto &Input : {nums({}), nums({1, 2, 3, 4, 5})})
    EXPECT_EQ(read(Start, Input), Start);
}

TEST(Convert, IStringReplacesIllFormedUTF8) {
  EXPECT_EQ(read(qoString::IString(), str("a\xFF")).toUTF32(), U"a\uFFFD");
}

// Mutable targets get a deep copy, const targets share the input, and kind
// targets become null for another kind or a null input.
TEST(ConvertItem, CopiesIntoMutableTargetsAndSharesWithConstOnes) {
  const ItemRef Input = arrayOf({nums({1, 2}), str("x")});
  const auto Copy = read(Reference<Array>(), Input);
  ASSERT_TRUE(sameTree(Copy.get(), Input.get()));
  asArray(Copy->objectAt(0))->insert(num(3));
  EXPECT_TRUE(sameTree(Input.get(), arrayOf({nums({1, 2}), str("x")}).get()));
  EXPECT_NE(read(ItemRef(), Input), Input);

  EXPECT_EQ(read(Reference<const Item>(), Input).get(), Input.get());
  EXPECT_EQ(read(Reference<const Array>(), Input).get(), Input.get());
  EXPECT_FALSE(read(Reference<Bool>(make<Bool>(true)), Input));
  EXPECT_FALSE(read(Reference<const Dictionary>(make<Dictionary>()), Input));
  EXPECT_FALSE(read(Input, nullptr));
}
