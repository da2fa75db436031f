//===- plst/JSONReader.h - JSON text to items -------------------*- C++ -*-===//
//
// convertFromJSON parses one JSON document into an item tree. JSON has no
// integers of its own here: every number becomes a Double. null produces no
// item: a null element is skipped, a member whose value is null is dropped,
// and a document that is just null yields a null reference. A key repeated in
// an object keeps its last value. C and C++ comments are allowed; anything
// after the document, a second document, an unfinished one or an integer
// beyond 64 bits fails. Numbers read the same whatever locale the process has.
//
// On success Out holds the new tree; on failure Out is left as it was and all
// partially built items are released. There is no depth limit: the parser
// keeps its open containers in a vector and items release iteratively.
//
// Example:
//   qo::Reference<nyPLST::Item> Settings;
//   nyPLST::JSONParseError Error;
//   if (!nyPLST::convertFromJSON(Settings, Text.data(), Text.length(), &Error))
//     report("%s at byte %lu", Error.message.c_str(), Error.offset);
//
//===----------------------------------------------------------------------===//
#ifndef NYPLST_JSONREADER_H
#define NYPLST_JSONREADER_H

#include "base/Reference.h"
#include "base/string/CString.h"
#include "plst/Item.h"

namespace nyPLST {

// Where and why a parse failed.
struct JSONParseError {
  // Bytes of the text consumed when the error was found.
  unsigned long offset = 0;
  // The parser's first line, e.g. "lexical error: invalid char in json text".
  qoString::CString message;
};

bool convertFromJSON(qo::Reference<Item> &Out, const qoString::CString &Text);
bool convertFromJSON(qo::Reference<Item> &Out, const char *Text,
                     unsigned long Length);
// As above; on failure also fills *Error when Error is not null.
bool convertFromJSON(qo::Reference<Item> &Out, const char *Text,
                     unsigned long Length, JSONParseError *Error);

} // namespace nyPLST

#endif // NYPLST_JSONREADER_H
