//===- plst/Convert.h - Typed values to and from items ----------*- C++ -*-===//
//
// nyPLST::convert is one overload family, the target always first:
//
//   convert(T &Out, qo::Reference<const Item> In)   reads an item into a value
//   convert(qo::Reference<Item> &Out, const T &In)  makes a new item of a value
//
// Numbers are Doubles; composite values are arrays of numbers:
//
//   bool            Bool            (reads a Bool, or a Double: true unless 0)
//   int, float      Double          (int reads truncate toward zero)
//   double          Double
//   const char *    String          (write only)
//   CString         String
//   IString         String of UTF-8 (ill-formed UTF-8 reads as U+FFFD)
//   Point2          [x, y]
//   Point, Vector   [x, y, z]
//   Normal          [x, y, z]       (read through Normal::set: renormalised)
//   Quaternion      [x, y, z, w]    (storage order)
//   AffineMatrix    12 numbers in storage order (element 3c + r is row r,
//                   column c); also read from 3 or 4 rows of 4 numbers, of
//                   which the first 3 are used
//   Color           [r, g, b, a]    (floats widened to double)
//   Color8          [r, g, b, a]    (each read truncated; its low 8 bits used)
//   BoundedDouble   [value, min, max]
//   BoundedInt      [value, min, max] (each read truncated)
//
// Readers trust their input: check the shape first with nyPLST::Parser
// (parseNumericArray(3) before reading a Vector). A reader given the wrong
// shape asserts in debug builds and leaves Out unchanged. Three readers define
// what other input does: bool keeps Out unless the item is a Bool or a
// Double, AffineMatrix keeps Out unless the array has 12, 3 or 4 elements, and
// the item-to-item overloads answer null. Writers always succeed and replace
// what Out held.
//
// Item to item: a mutable target receives a deep copy (clone), a const target
// shares the input. A kind target (Reference<Array>, Reference<const Bool>,
// ...) is null when the item is of another kind.
//
// Example:
//   qo::Reference<nyPLST::Item> item;
//   nyPLST::convert(item, qoLinear::Vector(1, 2, 3));   // [1, 2, 3]
//   if (nyPLST::Parser(item).parseNumericArray(3)) {
//     qoLinear::Vector v;
//     nyPLST::convert(v, item);
//   }
//   qo::Reference<nyPLST::Array> copy;
//   nyPLST::convert(copy, item);                        // a new array
//
//===----------------------------------------------------------------------===//
#ifndef NYPLST_CONVERT_H
#define NYPLST_CONVERT_H

#include "base/Reference.h"
#include "base/linear/AffineMatrix.h"
#include "base/linear/Normal.h"
#include "base/linear/Point.h"
#include "base/linear/Point2.h"
#include "base/linear/Quaternion.h"
#include "base/linear/Vector.h"
#include "base/string/CString.h"
#include "base/string/IString.h"
#include "base/util/Color.h"
#include "plst/Item.h"

namespace nySupport {
class BoundedDouble;
class BoundedInt;
} // namespace nySupport

namespace nyPLST {

using ConstItemRef = qo::Reference<const Item>;

void convert(bool &Out, ConstItemRef In);
void convert(int &Out, ConstItemRef In);
void convert(float &Out, ConstItemRef In);
void convert(double &Out, ConstItemRef In);
void convert(qoString::CString &Out, ConstItemRef In);
void convert(qoString::IString &Out, ConstItemRef In);
void convert(qoLinear::Point2 &Out, ConstItemRef In);
void convert(qoLinear::Point &Out, ConstItemRef In);
void convert(qoLinear::Vector &Out, ConstItemRef In);
void convert(qoLinear::Normal &Out, ConstItemRef In);
void convert(qoLinear::Quaternion &Out, ConstItemRef In);
void convert(qoLinear::AffineMatrix &Out, ConstItemRef In);
void convert(qoUtil::Color &Out, ConstItemRef In);
void convert(qoUtil::Color8 &Out, ConstItemRef In);
void convert(nySupport::BoundedDouble &Out, ConstItemRef In);
void convert(nySupport::BoundedInt &Out, ConstItemRef In);

void convert(qo::Reference<Item> &Out, bool In);
void convert(qo::Reference<Item> &Out, int In);
void convert(qo::Reference<Item> &Out, float In);
void convert(qo::Reference<Item> &Out, double In);
void convert(qo::Reference<Item> &Out, const char *In);
void convert(qo::Reference<Item> &Out, const qoString::CString &In);
void convert(qo::Reference<Item> &Out, const qoString::IString &In);
void convert(qo::Reference<Item> &Out, const qoLinear::Point2 &In);
void convert(qo::Reference<Item> &Out, const qoLinear::Point &In);
void convert(qo::Reference<Item> &Out, const qoLinear::Vector &In);
void convert(qo::Reference<Item> &Out, const qoLinear::Normal &In);
void convert(qo::Reference<Item> &Out, const qoLinear::Quaternion &In);
void convert(qo::Reference<Item> &Out, const qoLinear::AffineMatrix &In);
void convert(qo::Reference<Item> &Out, const qoUtil::Color &In);
void convert(qo::Reference<Item> &Out, const qoUtil::Color8 &In);
void convert(qo::Reference<Item> &Out, const nySupport::BoundedDouble &In);
void convert(qo::Reference<Item> &Out, const nySupport::BoundedInt &In);

// Mutable targets: a deep copy of In (null when In is null or, for a kind,
// of another kind).
void convert(qo::Reference<Item> &Out, ConstItemRef In);
void convert(qo::Reference<Bool> &Out, ConstItemRef In);
void convert(qo::Reference<Double> &Out, ConstItemRef In);
void convert(qo::Reference<String> &Out, ConstItemRef In);
void convert(qo::Reference<Array> &Out, ConstItemRef In);
void convert(qo::Reference<Dictionary> &Out, ConstItemRef In);

// Const targets: In itself, shared (null when, for a kind, of another kind).
void convert(qo::Reference<const Item> &Out, ConstItemRef In);
void convert(qo::Reference<const Bool> &Out, ConstItemRef In);
void convert(qo::Reference<const Double> &Out, ConstItemRef In);
void convert(qo::Reference<const String> &Out, ConstItemRef In);
void convert(qo::Reference<const Array> &Out, ConstItemRef In);
void convert(qo::Reference<const Dictionary> &Out, ConstItemRef In);

} // namespace nyPLST

#endif // NYPLST_CONVERT_H
