//===- plst/JSONWriter.h - Items as strict JSON text ------------*- C++ -*-===//
//
// convertToJSON writes an item as JSON that reads back: strings escaped,
// doubles with twenty significant digits (integral values get ".0"), four
// spaces of indent per level. It is the form for text that a program reads
// again; asJSON (PrettyPrinter.h) is the form for people.
//
// The text is appended to Out, which is not cleared first. JSON cannot hold
// NaN or infinity, and the generator refuses a 128th nested level: either
// throws JSONWriteError, and what was appended before the failure stays in
// Out. A null reference, at the top or inside a container, is written as null.
//
// Example:
//   qoString::CString Text;
//   try {
//     nyPLST::convertToJSON(Text, Settings);
//   } catch (const nyPLST::JSONWriteError &E) {
//     report(E.what());   // "json generation failed: invalid number ..."
//   }
//
//===----------------------------------------------------------------------===//
#ifndef NYPLST_JSONWRITER_H
#define NYPLST_JSONWRITER_H

#include "base/Reference.h"
#include "base/string/CString.h"
#include "plst/Item.h"

#include <stdexcept>

namespace nyPLST {

// A value the JSON generator refused. The message names the generator's
// status, e.g. "json generation failed: maximum depth exceeded
// (yajl_max_depth_exceeded)".
class JSONWriteError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

// Appends Root as JSON to Out and returns true; throws JSONWriteError.
bool convertToJSON(qoString::CString &Out, qo::Reference<const Item> Root);

} // namespace nyPLST

#endif // NYPLST_JSONWRITER_H
