//===- tests/plst/ItemBuilders.h - Item trees for the JSON tests ----------===//
//
// Short builders for literal trees, deep chains and random trees, shared by
// the pretty-printer, writer and reader tests.
//
//===----------------------------------------------------------------------===//
#ifndef ORBO_TESTS_PLST_ITEMBUILDERS_H
#define ORBO_TESTS_PLST_ITEMBUILDERS_H

#include "plst/Item.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <random>
#include <string_view>
#include <utility>

namespace plsttest {

inline qo::Reference<nyPLST::Item> num(double V) {
  return qo::make<nyPLST::Double>(V);
}
inline qo::Reference<nyPLST::Item> boolean(bool V) {
  return qo::make<nyPLST::Bool>(V);
}
inline qo::Reference<nyPLST::Item> str(qoString::CString V) {
  return qo::make<nyPLST::String>(std::move(V));
}
inline qo::Reference<nyPLST::Item>
arrayOf(std::initializer_list<qo::Reference<nyPLST::Item>> Elements) {
  auto A = qo::make<nyPLST::Array>();
  for (const auto &E : Elements)
    A->insert(E);
  return A;
}
inline qo::Reference<nyPLST::Item>
dictOf(std::initializer_list<
       std::pair<qoString::CString, qo::Reference<nyPLST::Item>>>
           Entries) {
  auto D = qo::make<nyPLST::Dictionary>();
  for (const auto &[Key, Value] : Entries)
    D->insert(Key, Value);
  return D;
}

// Depth arrays, each holding the next; the innermost is empty.
inline qo::Reference<nyPLST::Item> deepArray(int Depth) {
  qo::Reference<nyPLST::Item> Inner = qo::make<nyPLST::Array>();
  for (int I = 1; I < Depth; ++I) {
    auto Outer = qo::make<nyPLST::Array>();
    Outer->insert(std::move(Inner));
    Inner = std::move(Outer);
  }
  return Inner;
}

// Same kinds, same values, same keys, all the way down (NaN equals NaN).
// Recursive: for the small trees of the tests.
inline bool sameTree(const nyPLST::Item *A, const nyPLST::Item *B) {
  if (!A || !B)
    return A == B;
  if (A->type() != B->type())
    return false;
  switch (A->type()) {
  case nyPLST::BoolType:
    return static_cast<const nyPLST::Bool *>(A)->value() ==
           static_cast<const nyPLST::Bool *>(B)->value();
  case nyPLST::DoubleType: {
    const double X = static_cast<const nyPLST::Double *>(A)->value();
    const double Y = static_cast<const nyPLST::Double *>(B)->value();
    return std::memcmp(&X, &Y, sizeof X) == 0 || X == Y;
  }
  case nyPLST::StringType:
    return static_cast<const nyPLST::String *>(A)->value() ==
           static_cast<const nyPLST::String *>(B)->value();
  case nyPLST::ArrayType: {
    const auto &X = static_cast<const nyPLST::Array *>(A)->array();
    const auto &Y = static_cast<const nyPLST::Array *>(B)->array();
    if (X.size() != Y.size())
      return false;
    for (std::size_t I = 0; I < X.size(); ++I)
      if (!sameTree(X[I].get(), Y[I].get()))
        return false;
    return true;
  }
  case nyPLST::DictionaryType: {
    const auto &X = static_cast<const nyPLST::Dictionary *>(A)->dictionary();
    const auto &Y = static_cast<const nyPLST::Dictionary *>(B)->dictionary();
    if (X.size() != Y.size())
      return false;
    for (auto I = X.begin(), J = Y.begin(); I != X.end(); ++I, ++J)
      if (I->first != J->first || !sameTree(I->second.get(), J->second.get()))
        return false;
    return true;
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

  qo::Reference<nyPLST::Item> make(int Depth) {
    return make(Depth, pick(0, Depth > 0 ? 4 : 2));
  }
  // An array or a dictionary at the top.
  qo::Reference<nyPLST::Item> container(int Depth) {
    return make(Depth, pick(3, 4));
  }

private:
  qo::Reference<nyPLST::Item> make(int Depth, int Kind) {
    switch (Kind) {
    case 0:
      return boolean(pick(0, 1) == 1);
    case 1:
      return num(finiteDouble());
    case 2:
      return str(text());
    case 3: {
      auto A = qo::make<nyPLST::Array>();
      for (int I = pick(0, 6); I > 0; --I)
        A->insert(make(Depth - 1));
      return A;
    }
    default: {
      auto D = qo::make<nyPLST::Dictionary>();
      for (int I = pick(0, 6); I > 0; --I)
        D->insert(text(), make(Depth - 1));
      return D;
    }
    }
  }

  int pick(int Low, int High) {
    return std::uniform_int_distribution<int>(Low, High)(Engine);
  }
  double finiteDouble() {
    switch (pick(0, 3)) {
    case 0:
      return pick(-1000, 1000);
    case 1:
      return std::uniform_real_distribution<double>(-1e6, 1e6)(Engine);
    default: {
      double V;
      do {
        const auto Bits =
            std::uniform_int_distribution<std::uint64_t>()(Engine);
        static_assert(sizeof Bits == sizeof V);
        std::memcpy(&V, &Bits, sizeof V);
      } while (!std::isfinite(V));
      return V;
    }
    }
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
