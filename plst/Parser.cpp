#include "plst/Parser.h"

namespace nyPLST {

namespace {

// Casts on the first call and keeps a success; a failed cast is simply tried
// again, which costs no more than remembering the failure.
template <class Kind>
bool cached(qo::Reference<const Kind> &Slot,
            const qo::Reference<const Item> &I) {
  if (!Slot)
    Slot = internal::downCast<Kind>(I);
  return static_cast<bool>(Slot);
}

} // namespace

bool Parser::check(bool Ok) const {
  if (!Ok && Throws)
    throw false;
  return Ok;
}

bool Parser::parseBool() { return check(cached(BoolItem, TheItem)); }
bool Parser::parseDouble() { return check(cached(DoubleItem, TheItem)); }
bool Parser::parseString() { return check(cached(StringItem, TheItem)); }
bool Parser::parseArray() { return check(cached(ArrayItem, TheItem)); }
bool Parser::parseDictionary() {
  return check(cached(DictionaryItem, TheItem));
}

bool Parser::parseNumericArray() {
  if (!check(cached(ArrayItem, TheItem)))
    return false;
  return allNumbers();
}

bool Parser::parseNumericArray(int N) {
  if (!check(cached(ArrayItem, TheItem) && ArrayItem->size() == N))
    return false;
  return allNumbers();
}

// Never throws: callers rely on a bad element being a plain false.
bool Parser::allNumbers() const {
  for (const auto &Element : ArrayItem->array())
    if (!asDouble(Element))
      return false;
  return true;
}

} // namespace nyPLST
