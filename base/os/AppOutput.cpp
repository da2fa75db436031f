//===- base/os/AppOutput.cpp - The process's output stream ----------------===//
//
// One process-wide state, created on first use and never destroyed, so that
// printing from static destructors at exit still finds it. The lock is
// recursive because a sink may itself print.
//
//===----------------------------------------------------------------------===//
#include "base/os/AppOutput.h"

#include "base/string/CString.h"

#include <cstdio>
#include <mutex>
#include <utility>

namespace qoOS {

namespace {

struct OutputState {
  std::recursive_mutex Lock;
  AppOutput::Sink Sink;
};

OutputState &state() {
  static OutputState *State = new OutputState;
  return *State;
}

} // namespace

void AppOutput::write(std::string_view Text) {
  OutputState &S = state();
  std::lock_guard<std::recursive_mutex> Guard(S.Lock);
  if (S.Sink) {
    S.Sink(Text);
    return;
  }
  std::fwrite(Text.data(), 1, Text.size(), stdout);
  std::fflush(stdout);
}

void AppOutput::print(const char *Format, ...) {
  va_list Args;
  va_start(Args, Format);
  vprint(Format, Args);
  va_end(Args);
}

void AppOutput::vprint(const char *Format, va_list Args) {
  write(qoString::CString::vformat(Format, Args));
}

AppOutput::Sink AppOutput::setSink(Sink NewSink) {
  OutputState &S = state();
  std::lock_guard<std::recursive_mutex> Guard(S.Lock);
  return std::exchange(S.Sink, std::move(NewSink));
}

AppOutput::Capture::Capture()
    : Previous(setSink([this](std::string_view Piece) { Text += Piece; })) {}

AppOutput::Capture::~Capture() { setSink(std::move(Previous)); }

void AppOutput::Capture::clear() {
  std::lock_guard<std::recursive_mutex> Guard(state().Lock);
  Text.clear();
}

} // namespace qoOS
