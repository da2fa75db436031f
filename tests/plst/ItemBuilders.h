//===- tests/plst/ItemBuilders.h - Item trees for the plst tests ----------===//
//
// Short builders for literal trees, deep chains and random trees, and a
// value-by-value tree comparison, shared by the plst tests.
//
//===----------------------------------------------------------------------===//
#ifndef ORBO_TESTS_PLST_ITEMBUILDERS_H
#define ORBO_TESTS_PLST_ITEMBUILDERS_H

#include "plst/Item.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <random>
#include <string_view>
#include <utility>

namespace plsttest {

using ItemRef = qo::Reference<nyPLST::Item>;

inline ItemRef num(double V) { return qo::make<nyPLST::Double>(V); }
inline ItemRef boolean(bool V) { return qo::make<nyPLST::Bool>(V); }
inline ItemRef str(qoString::CString V) {
  return qo::make<nyPLST::String>(std::move(V));
}
inline qo::Reference<nyPLST::Array>
arrayOf(std::initializer_list<ItemRef> Elements) {
  auto A = qo::make<nyPLST::Array>();
  for (const auto &E : Elements)
    A->insert(E);
  return A;
}
inline qo::Reference<nyPLST::Dictionary>
dictOf(std::initializer_list<std::pair<qoString::CString, ItemRef>> Entries) {
  auto D = qo::make<nyPLST::Dictionary>();
  for (const auto &[Key, Value] : Entries)
    D->insert(Key, Value);
  return D;
}

// Depth arrays, each holding the next; the innermost is empty.
inline ItemRef deepArray(int Depth) {
  ItemRef Inner = qo::make<nyPLST::Array>();
  for (int I = 1; I < Depth; ++I)
    Inner = arrayOf({std::move(Inner)});
  return Inner;
}

// Same kinds, same bits of every number, same keys, all the way down.
// Recursive: for the small trees of the tests.
inline bool sameTree(const nyPLST::Item *A, const nyPLST::Item *B) {
  using namespace nyPLST;
  if (!A || !B || A->type() != B->type())
    return A == B;
  const auto Same = [](const ItemRef &X, const ItemRef &Y) {
    return sameTree(X.get(), Y.get());
  };
  switch (A->type()) {
  case BoolType:
    return static_cast<const Bool *>(A)->value() ==
           static_cast<const Bool *>(B)->value();
  case DoubleType: {
    const double X = static_cast<const Double *>(A)->value();
    const double Y = static_cast<const Double *>(B)->value();
    return std::memcmp(&X, &Y, sizeof X) == 0;
  }
  case StringType:
    return static_cast<const String *>(A)->value() ==
           static_cast<const String *>(B)->value();
  case ArrayType: {
    const auto &X = static_cast<const Array *>(A)->array();
    const auto &Y = static_cast<const Array *>(B)->array();
    return std::equal(X.begin(), X.end(), Y.begin(), Y.end(), Same);
  }
  case DictionaryType: {
    const auto &X = static_cast<const Dictionary *>(A)->dictionary();
    const auto &Y = static_cast<const Dictionary *>(B)->dictionary();
    return std::equal(X.begin(), X.end(), Y.begin(), Y.end(),
                      [&](const auto &P, const auto &Q) {
                        return P.first == Q.first && Same(P.second, Q.second);
                      });
  }
  }
  return false;
}

// A random tree without nulls, NaN or infinity: what a round trip through
// JSON must reproduce exactly. Keys and strings include zero bytes,
// control characters, quotes and multi-byte UTF-8.
class RandomTree {
public:
  explicit RandomTree(unsigned Seed) : Engine(Seed) {}

  // An array or a dictionary with Depth levels of containers below it.
  ItemRef container(int Depth) { return make(Depth, pick(3, 4)); }

private:
  ItemRef make(int Depth, int Kind) {
    if (Kind < 3)
      return Kind == 0   ? boolean(pick(0, 1) == 1)
             : Kind == 1 ? num(finiteDouble())
                         : str(text());
    auto A = qo::make<nyPLST::Array>();
    auto D = qo::make<nyPLST::Dictionary>();
    for (int I = pick(0, 6); I > 0; --I) {
      ItemRef Child = make(Depth - 1, pick(0, Depth > 1 ? 4 : 2));
      if (Kind == 3)
        A->insert(std::move(Child));
      else
        D->insert(text(), std::move(Child));
    }
    return Kind == 3 ? ItemRef(A) : ItemRef(D);
  }

  int pick(int Low, int High) {
    return std::uniform_int_distribution<int>(Low, High)(Engine);
  }
  // Integers, everyday magnitudes, and any bit pattern that is finite.
  double finiteDouble() {
    const int Kind = pick(0, 3);
    if (Kind == 0)
      return pick(-1000, 1000);
    if (Kind == 1)
      return std::uniform_real_distribution<double>(-1e6, 1e6)(Engine);
    double V;
    do {
      const std::uint64_t Bits = Engine();
      std::memcpy(&V, &Bits, sizeof V);
    } while (!std::isfinite(V));
    return V;
  }
  qoString::CString text() {
    static const char *const Pieces[] = {
        "a",  "b", "key",  "\"",       "\\",          "\n",
        "\t", "/", "\x01", "\xC3\xA9", "\xE2\x82\xAC"};
    qoString::CString T;
    for (int I = pick(0, 4); I > 0; --I) {
      const int P = pick(0, 11);
      if (P == 11)
        T += '\0';
      else
        T += std::string_view(Pieces[P]);
    }
    return T;
  }

  std::mt19937_64 Engine;
};

} // namespace plsttest

#endif // ORBO_TESTS_PLST_ITEMBUILDERS_H
