//===- plst/Parser.h - Shape checks for items before conversion -*- C++ -*-===//
//
// nyPLST::Parser answers whether an item has the shape a reader of
// plst/Convert.h expects: a Bool, a Double, a String, an array, a dictionary,
// an array of numbers (of a given size). The parser holds a const reference
// to the item, and each successful kind test caches its down-cast, so asking
// twice costs nothing and the typed item is at hand afterwards.
//
// In throw mode a failed test throws the bool false instead of returning it,
// with one deliberate exception kept for its callers: in parseNumericArray an
// element that is not a number returns false even in throw mode; only the
// array test (and its size) throws.
//
// Example:
//   nyPLST::Parser p(item);
//   if (p.parseNumericArray(3)) {
//     qoLinear::Vector v;
//     nyPLST::convert(v, item);
//   }
//   nyPLST::Parser strict(item, true);
//   strict.parseDictionary();               // throws false if not one
//
//===----------------------------------------------------------------------===//
#ifndef NYPLST_PARSER_H
#define NYPLST_PARSER_H

#include "base/Reference.h"
#include "plst/Item.h"

#include <utility>

namespace nyPLST {

class Parser {
public:
  Parser() = default;
  explicit Parser(qo::Reference<const Item> I, bool ThrowMode = false)
      : TheItem(std::move(I)), Throws(ThrowMode) {}
  virtual ~Parser() = default;
  Parser(const Parser &) = default;
  Parser &operator=(const Parser &) = default;

  void setThrowMode() { Throws = true; }
  bool throwMode() const { return Throws; }

  // True when there is no item.
  bool null() const { return !TheItem; }
  // Ok, except that a false Ok throws false in throw mode.
  bool check(bool Ok) const;

  bool parseBool();
  bool parseDouble();
  bool parseString();
  bool parseArray();
  bool parseDictionary();
  // An array whose elements are all Doubles (an empty array qualifies). Only
  // the array test throws; a non-number element returns false.
  bool parseNumericArray();
  // The same for an array of exactly N elements; a wrong size throws too.
  bool parseNumericArray(int N);

  const qo::Reference<const Item> &item() const { return TheItem; }
  // Null until the matching parse call succeeds.
  const qo::Reference<const Bool> &boolItem() const { return BoolItem; }
  const qo::Reference<const Double> &doubleItem() const { return DoubleItem; }
  const qo::Reference<const String> &stringItem() const { return StringItem; }
  const qo::Reference<const Array> &arrayItem() const { return ArrayItem; }
  const qo::Reference<const Dictionary> &dictionaryItem() const {
    return DictionaryItem;
  }

private:
  bool allNumbers() const;

  qo::Reference<const Item> TheItem;
  qo::Reference<const Bool> BoolItem;
  qo::Reference<const Double> DoubleItem;
  qo::Reference<const String> StringItem;
  qo::Reference<const Array> ArrayItem;
  qo::Reference<const Dictionary> DictionaryItem;
  bool Throws = false;
};

} // namespace nyPLST

#endif // NYPLST_PARSER_H
