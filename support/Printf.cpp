//===- support/Printf.cpp - Printing to the application's output ----------===//
#include "support/Printf.h"

#include "base/os/AppOutput.h"

void ny_printf(const char *Format, ...) {
  va_list Args;
  va_start(Args, Format);
  ny_vprintf(Format, Args);
  va_end(Args);
}

void ny_vprintf(const char *Format, va_list Args) {
  qoOS::AppOutput::vprint(Format, Args);
}
