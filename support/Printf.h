//===- support/Printf.h - Printing to the application's output ------------===//
//
// ny_printf and ny_vprintf print to qoOS::AppOutput whatever the debug codes
// say: the layer's unconditional output (script `print`, reports the user
// asked for). Traces that a developer switches on belong on a debug channel
// (nySupport::Debug, nySupport::DebugPrint) instead. AppOutput flushes after
// every print, so the text interleaves correctly with other standard output,
// and a test can collect it with qoOS::AppOutput::Capture.
//
// Example:
//   ny_printf("%s\n", Line.c_str());
//   qoOS::AppOutput::Capture Out;
//   ny_printf("%d items", 3);
//   Out.text();   // "3 items"
//
//===----------------------------------------------------------------------===//
#ifndef NYSUPPORT_PRINTF_H
#define NYSUPPORT_PRINTF_H

#include <cstdarg>

// Global, like printf, so that every module calls it by the same name.
void ny_printf(const char *Format, ...) __attribute__((format(printf, 1, 2)));
void ny_vprintf(const char *Format, va_list Args)
    __attribute__((format(printf, 1, 0)));

#endif // NYSUPPORT_PRINTF_H
