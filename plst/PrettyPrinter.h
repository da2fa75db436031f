//===- plst/PrettyPrinter.h - Items as text for people ----------*- C++ -*-===//
//
// The pretty-printer writes an item for people reading logs and files:
// strings raw (nothing escaped, cut at a zero byte), numbers with six
// significant digits, arrays of scalars on one line, dictionaries one entry
// per line with four spaces of indent per level. Its output is often not valid
// JSON and loses precision on purpose; text meant to be read back is written
// by convertToJSON (JSONWriter.h).
//
// Every text printed from a non-null item ends with a newline. Printing walks
// the tree without recursion, so any depth is fine; the item is only read.
//
// Example:
//   auto Colour = qo::make<nyPLST::Dictionary>();
//   Colour->insert("alpha", qo::make<nyPLST::Double>(0.5));
//   qoString::CString Text = nyPLST::asJSON(Colour);
//   // "{\n    \"alpha\": 0.5\n}\n"
//   nyPLST::outputJSON("/tmp/colour.json", Colour);
//
//===----------------------------------------------------------------------===//
#ifndef NYPLST_PRETTYPRINTER_H
#define NYPLST_PRETTYPRINTER_H

#include "base/Reference.h"
#include "base/os/IOStream.h"
#include "base/string/CString.h"
#include "base/string/IString.h"
#include "plst/Item.h"

namespace nyPLST {

// The printed text; a null item gives "{}" with no newline.
qoString::CString asJSON(qo::Reference<const Item> Root);

// Prints to the file at Path, created or truncated. False when the file
// cannot be opened or written; otherwise whether it closed cleanly.
bool outputJSON(const qoString::IString &Path, qo::Reference<const Item> Root);

// The routine behind both: prints Root (nothing for a null item) and a
// newline to Stream, which stays open. True when the stream reports no error.
bool printJSON(qoOS::IOStream &Stream, qo::Reference<const Item> Root);

} // namespace nyPLST

#endif // NYPLST_PRETTYPRINTER_H
