//===- tools/orbo/Input.h - Whole-file reads for the orbo program ---------===//
//
// Reads a named file, or standard input for "-", into memory in one piece.
// Bytes are taken as they are (zero bytes, any encoding, any size that fits
// in memory). A failure leaves a reason in the style of strerror, for
// messages of the form "orbo: FILE: reason".
//
// Example:
//   std::string Bytes, Reason;
//   if (!readInput("settings.json", Bytes, Reason))
//     std::fprintf(stderr, "orbo: settings.json: %s\n", Reason.c_str());
//
//===----------------------------------------------------------------------===//
#ifndef ORBO_TOOLS_ORBO_INPUT_H
#define ORBO_TOOLS_ORBO_INPUT_H

#include <string>

namespace orbo {

// True for the name that stands for standard input.
bool isStandardStream(const std::string &Path);

// The name to show in messages: "<stdin>" for "-", else Path itself.
std::string displayName(const std::string &Path);

// Replaces Bytes with the whole content of Path ("-" = standard input).
bool readInput(const std::string &Path, std::string &Bytes,
               std::string &Reason);

} // namespace orbo

#endif // ORBO_TOOLS_ORBO_INPUT_H
