//===- base/os/AppOutput.h - The process's output stream ------------------===//
//
// qoOS::AppOutput is where the layer's printed text goes: standard output by
// default, written and flushed on every call so that it interleaves correctly
// with anything else the process writes there. An embedder or a test replaces
// the destination with a sink; calls from several threads are serialised, so
// a sink sees each piece of text whole and never concurrently.
//
// A sink runs under AppOutput's lock: it may print through AppOutput again on
// the same thread, but must not replace the sink nor wait for another thread
// that prints.
//
// Capture is the RAII form for tests: while it lives it collects what is
// printed, and it puts the previous sink back when it goes, so captures nest.
// Captures must end in the reverse order of their start.
//
// Example:
//   qoOS::AppOutput::print("%d files\n", Count);   // to standard output
//   {
//     qoOS::AppOutput::Capture Captured;
//     runScript();
//     EXPECT_EQ(Captured.text(), "hello\n");
//   }                                              // standard output again
//
//===----------------------------------------------------------------------===//
#ifndef QOOS_APPOUTPUT_H
#define QOOS_APPOUTPUT_H

#include <cstdarg>
#include <functional>
#include <string>
#include <string_view>

namespace qoOS {

class AppOutput {
public:
  using Sink = std::function<void(std::string_view)>;

  static void write(std::string_view Text);
  static void print(const char *Format, ...)
      __attribute__((format(printf, 1, 2)));
  static void vprint(const char *Format, va_list Args);
  // A null sink means standard output. Returns the sink it replaces.
  static Sink setSink(Sink NewSink);

  class Capture {
  public:
    Capture();
    Capture(const Capture &) = delete;
    Capture &operator=(const Capture &) = delete;
    ~Capture();

    // What was printed so far; read it on a thread that is not printing.
    const std::string &text() const { return Text; }
    void clear();

  private:
    std::string Text;
    Sink Previous;
  };
};

} // namespace qoOS

#endif // QOOS_APPOUTPUT_H
