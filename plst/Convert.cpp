//===- plst/Convert.cpp - Typed values to and from items ------------------===//
//
// Every array reader first gathers all the numbers it needs and only then
// assigns, so a reader that meets the wrong shape (a caller error: the shape
// is checked by Parser beforehand) leaves its target exactly as it was. The
// assertions make that caller error loud in debug builds; release builds get
// the unchanged target instead of a read through a null reference.
//
//===----------------------------------------------------------------------===//
#include "plst/Convert.h"

#include "support/BoundedValue.h"

#include <array>
#include <cassert>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <limits>

namespace nyPLST {

namespace {

// Truncation toward zero, saturated at the ends of int's range, NaN as 0:
// the cast itself is undefined for doubles that int cannot hold.
int truncateToInt(double V) {
  if (std::isnan(V))
    return 0;
  if (V <= static_cast<double>(std::numeric_limits<int>::min()))
    return std::numeric_limits<int>::min();
  if (V >= static_cast<double>(std::numeric_limits<int>::max()))
    return std::numeric_limits<int>::max();
  return static_cast<int>(V);
}

bool numberOf(const ConstItemRef &In, double &Out) {
  const auto Number = asDouble(In);
  if (!Number)
    return false;
  Out = Number->value();
  return true;
}

// Elements 0 .. N-1 of an array of at least N numbers; false for any other
// shape.
template <std::size_t N>
bool numbersOf(const ConstItemRef &In, std::array<double, N> &Out) {
  const auto List = asArray(In);
  if (!List || List->size() < static_cast<int>(N))
    return false;
  for (std::size_t I = 0; I < N; ++I)
    if (!numberOf(List->objectAt(static_cast<int>(I)), Out[I]))
      return false;
  return true;
}

template <std::size_t N>
bool readNumbers(const ConstItemRef &In, std::array<double, N> &Out) {
  const bool Ok = numbersOf(In, Out);
  assert(Ok && "convert: not an array of enough numbers; check with Parser");
  return Ok;
}

bool readNumber(const ConstItemRef &In, double &Out) {
  const bool Ok = numberOf(In, Out);
  assert(Ok && "convert: not a number; check with Parser");
  return Ok;
}

void writeNumbers(qo::Reference<Item> &Out,
                  std::initializer_list<double> Numbers) {
  auto List = qo::make<Array>();
  List->array().reserve(Numbers.size());
  for (const double N : Numbers)
    List->insert(qo::make<Double>(N));
  Out = std::move(List);
}

// The matrix from 3 or 4 rows of 4 numbers (a fourth row is ignored).
bool matrixFromRows(const Array &Rows, qoLinear::AffineMatrix &Out) {
  qoLinear::AffineMatrix M;
  for (int R = 0; R < qoLinear::AffineMatrix::Rows; ++R) {
    std::array<double, qoLinear::AffineMatrix::Columns> Row;
    if (!readNumbers(Rows.objectAt(R), Row))
      return false;
    for (int C = 0; C < qoLinear::AffineMatrix::Columns; ++C)
      M(R, C) = Row[C];
  }
  Out = M;
  return true;
}

// The kind is tested before cloning, so a tree of another kind is not copied
// only to be dropped.
template <class Kind>
void cloneAs(qo::Reference<Kind> &Out, const ConstItemRef &In) {
  if (!dynamic_cast<const Kind *>(In.get())) {
    Out = nullptr;
    return;
  }
  Out = qo::dynamicCast<Kind>(In->clone());
}

} // namespace

//===-- Readers -----------------------------------------------------------===//

void convert(bool &Out, ConstItemRef In) {
  if (const auto B = asBool(In)) {
    Out = B->value();
    return;
  }
  if (const auto D = asDouble(In))
    Out = D->value() != 0.0;
}

void convert(int &Out, ConstItemRef In) {
  double V;
  if (readNumber(In, V))
    Out = truncateToInt(V);
}

void convert(float &Out, ConstItemRef In) {
  double V;
  if (readNumber(In, V))
    Out = static_cast<float>(V);
}

void convert(double &Out, ConstItemRef In) {
  double V;
  if (readNumber(In, V))
    Out = V;
}

void convert(qoString::CString &Out, ConstItemRef In) {
  const auto S = asString(In);
  assert(S && "convert: not a string; check with Parser");
  if (S)
    Out = S->value();
}

void convert(qoString::IString &Out, ConstItemRef In) {
  const auto S = asString(In);
  assert(S && "convert: not a string; check with Parser");
  if (S)
    Out = qoString::IString(S->value());
}

void convert(qoLinear::Point2 &Out, ConstItemRef In) {
  std::array<double, 2> V;
  if (readNumbers(In, V))
    Out = {V[0], V[1]};
}

void convert(qoLinear::Point &Out, ConstItemRef In) {
  std::array<double, 3> V;
  if (readNumbers(In, V))
    Out = {V[0], V[1], V[2]};
}

void convert(qoLinear::Vector &Out, ConstItemRef In) {
  std::array<double, 3> V;
  if (readNumbers(In, V))
    Out = {V[0], V[1], V[2]};
}

void convert(qoLinear::Normal &Out, ConstItemRef In) {
  std::array<double, 3> V;
  if (readNumbers(In, V))
    Out.set(V[0], V[1], V[2]);
}

void convert(qoLinear::Quaternion &Out, ConstItemRef In) {
  std::array<double, 4> V;
  if (readNumbers(In, V))
    Out = {V[0], V[1], V[2], V[3]};
}

void convert(qoLinear::AffineMatrix &Out, ConstItemRef In) {
  const auto List = asArray(In);
  assert(List && "convert: a matrix is read from an array");
  if (!List)
    return;
  switch (List->size()) {
  case qoLinear::AffineMatrix::Size: {
    std::array<double, qoLinear::AffineMatrix::Size> V;
    if (readNumbers(In, V))
      Out = qoLinear::AffineMatrix::fromData(V.data());
    return;
  }
  case qoLinear::AffineMatrix::Rows:
  case qoLinear::AffineMatrix::Rows + 1:
    matrixFromRows(*List, Out);
    return;
  default:
    return;
  }
}

void convert(qoUtil::Color &Out, ConstItemRef In) {
  std::array<double, 4> V;
  if (readNumbers(In, V))
    Out = {static_cast<float>(V[0]), static_cast<float>(V[1]),
           static_cast<float>(V[2]), static_cast<float>(V[3])};
}

void convert(qoUtil::Color8 &Out, ConstItemRef In) {
  std::array<double, 4> V;
  if (!readNumbers(In, V))
    return;
  std::uint32_t Packed = 0;
  for (int I = 0; I < 4; ++I) {
    const auto Low = static_cast<std::uint32_t>(truncateToInt(V[I])) & 0xFFu;
    Packed |= Low << (8 * I);
  }
  Out = qoUtil::Color8::fromPacked(Packed);
}

void convert(nySupport::BoundedDouble &Out, ConstItemRef In) {
  std::array<double, 3> V;
  if (readNumbers(In, V))
    Out = nySupport::BoundedDouble(V[0], V[1], V[2]);
}

void convert(nySupport::BoundedInt &Out, ConstItemRef In) {
  std::array<double, 3> V;
  if (readNumbers(In, V))
    Out = nySupport::BoundedInt(truncateToInt(V[0]), truncateToInt(V[1]),
                                truncateToInt(V[2]));
}

//===-- Writers -----------------------------------------------------------===//

void convert(qo::Reference<Item> &Out, bool In) { Out = qo::make<Bool>(In); }

void convert(qo::Reference<Item> &Out, int In) { Out = qo::make<Double>(In); }

void convert(qo::Reference<Item> &Out, float In) { Out = qo::make<Double>(In); }

void convert(qo::Reference<Item> &Out, double In) {
  Out = qo::make<Double>(In);
}

void convert(qo::Reference<Item> &Out, const char *In) {
  Out = qo::make<String>(qoString::CString(In));
}

void convert(qo::Reference<Item> &Out, const qoString::CString &In) {
  Out = qo::make<String>(In);
}

void convert(qo::Reference<Item> &Out, const qoString::IString &In) {
  Out = qo::make<String>(In.toUTF8());
}

void convert(qo::Reference<Item> &Out, const qoLinear::Point2 &In) {
  writeNumbers(Out, {In.X, In.Y});
}

void convert(qo::Reference<Item> &Out, const qoLinear::Point &In) {
  writeNumbers(Out, {In.X, In.Y, In.Z});
}

void convert(qo::Reference<Item> &Out, const qoLinear::Vector &In) {
  writeNumbers(Out, {In.X, In.Y, In.Z});
}

void convert(qo::Reference<Item> &Out, const qoLinear::Normal &In) {
  writeNumbers(Out, {In.x(), In.y(), In.z()});
}

void convert(qo::Reference<Item> &Out, const qoLinear::Quaternion &In) {
  writeNumbers(Out, {In.X, In.Y, In.Z, In.W});
}

void convert(qo::Reference<Item> &Out, const qoLinear::AffineMatrix &In) {
  auto List = qo::make<Array>();
  List->array().reserve(qoLinear::AffineMatrix::Size);
  for (int I = 0; I < qoLinear::AffineMatrix::Size; ++I)
    List->insert(qo::make<Double>(In[I]));
  Out = std::move(List);
}

void convert(qo::Reference<Item> &Out, const qoUtil::Color &In) {
  writeNumbers(Out, {In.R, In.G, In.B, In.A});
}

void convert(qo::Reference<Item> &Out, const qoUtil::Color8 &In) {
  writeNumbers(
      Out, {double(In.r()), double(In.g()), double(In.b()), double(In.a())});
}

void convert(qo::Reference<Item> &Out, const nySupport::BoundedDouble &In) {
  writeNumbers(Out, {In.value(), In.minValue(), In.maxValue()});
}

void convert(qo::Reference<Item> &Out, const nySupport::BoundedInt &In) {
  writeNumbers(
      Out, {double(In.value()), double(In.minValue()), double(In.maxValue())});
}

//===-- Item to item ------------------------------------------------------===//

void convert(qo::Reference<Item> &Out, ConstItemRef In) { cloneAs(Out, In); }
void convert(qo::Reference<Bool> &Out, ConstItemRef In) { cloneAs(Out, In); }
void convert(qo::Reference<Double> &Out, ConstItemRef In) { cloneAs(Out, In); }
void convert(qo::Reference<String> &Out, ConstItemRef In) { cloneAs(Out, In); }
void convert(qo::Reference<Array> &Out, ConstItemRef In) { cloneAs(Out, In); }
void convert(qo::Reference<Dictionary> &Out, ConstItemRef In) {
  cloneAs(Out, In);
}

void convert(qo::Reference<const Item> &Out, ConstItemRef In) {
  Out = std::move(In);
}
void convert(qo::Reference<const Bool> &Out, ConstItemRef In) {
  Out = asBool(In);
}
void convert(qo::Reference<const Double> &Out, ConstItemRef In) {
  Out = asDouble(In);
}
void convert(qo::Reference<const String> &Out, ConstItemRef In) {
  Out = asString(In);
}
void convert(qo::Reference<const Array> &Out, ConstItemRef In) {
  Out = asArray(In);
}
void convert(qo::Reference<const Dictionary> &Out, ConstItemRef In) {
  Out = asDictionary(In);
}

} // namespace nyPLST
