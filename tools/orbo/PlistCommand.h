//===- tools/orbo/PlistCommand.h - "orbo plist": lint, print, convert -----===//
//
// The property-list commands of the orbo program:
//   orbo plist lint FILE...      one line per file on standard output,
//                                "FILE: OK" or "FILE:LINE:COLUMN: message"
//   orbo plist print FILE        the text for people (asJSON)
//   orbo plist convert --to json|pretty [-o OUT] FILE
//                                the strict, re-readable JSON or the text
//                                for people; OUT is replaced atomically
//                                (AtomicFile.h), "-" or none is standard
//                                output
// FILE "-" is standard input. print and convert report bad data on standard
// error, in the same form as lint. A parse error is placed at the last byte the
// parser read, the one it failed on (for an unfinished document, the last
// byte of the text; for a number too large, its first byte). Lines and
// columns are 1-based and columns count bytes.
//
// Exit status (ExitStatus.h): 0 when every file is good; 1 when a file holds
// no valid property list, or one that the strict writer refuses (nesting of
// 128 levels or more); 2 for a usage error or a file that could not be read
// or written, which wins over 1 when lint meets both. Messages about I/O and
// usage go to standard error as "orbo: FILE: reason".
//
// Example:
//   int main(int argc, char **argv) {
//     std::vector<std::string> Args(argv + 2, argv + argc);   // after "plist"
//     return orbo::runPlistCommand(Args);
//   }
//
//===----------------------------------------------------------------------===//
#ifndef ORBO_TOOLS_ORBO_PLISTCOMMAND_H
#define ORBO_TOOLS_ORBO_PLISTCOMMAND_H

#include "tools/orbo/ExitStatus.h"

#include <string>
#include <vector>

namespace orbo {

// The usage lines of the plist commands, each ending with a newline.
extern const char PlistUsage[];

// Runs one plist command; Args are the words after "plist".
ExitStatus runPlistCommand(const std::vector<std::string> &Args);

} // namespace orbo

#endif // ORBO_TOOLS_ORBO_PLISTCOMMAND_H
