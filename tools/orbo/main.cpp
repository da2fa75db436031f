//===- tools/orbo/main.cpp - The orbo program: command dispatch -----------===//
//
// Picks the command from the first word and hands the rest to it. Whatever a
// command printed is flushed here, and a failed write to standard output
// (a full disk, a closed pipe) turns success into an I/O failure. Exceptions
// that escape a command (only allocation failure is expected) end the program
// with a message instead of an abort.
//
//===----------------------------------------------------------------------===//
#include "tools/orbo/ExitStatus.h"
#include "tools/orbo/PlistCommand.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <string>
#include <vector>

namespace {

constexpr const char *Version = "Project Orbo " ORBO_VERSION;

void printUsage(std::FILE *Stream) {
  std::fprintf(Stream,
               "usage: orbo --version\n"
               "       orbo --help\n%s"
               "\n"
               "FILE may be '-' for standard input. Exit status: 0 success,\n"
               "1 bad data, 2 usage or I/O error.\n",
               orbo::PlistUsage);
}

orbo::ExitStatus dispatch(const std::vector<std::string> &Args) {
  if (Args.empty()) {
    printUsage(stderr);
    return orbo::ExitFailure;
  }
  const std::string &Command = Args.front();
  if (Command == "--version") {
    std::printf("%s\n", Version);
    return orbo::ExitSuccess;
  }
  if (Command == "--help" || Command == "-h") {
    printUsage(stdout);
    return orbo::ExitSuccess;
  }
  if (Command == "plist")
    return orbo::runPlistCommand({Args.begin() + 1, Args.end()});
  std::fprintf(stderr, "orbo: unknown command '%s'\n", Command.c_str());
  printUsage(stderr);
  return orbo::ExitFailure;
}

orbo::ExitStatus finishOutput(orbo::ExitStatus Status) {
  errno = 0;
  if (std::fflush(stdout) == 0 && !std::ferror(stdout))
    return Status;
  // The command may have reported this already; one more line is harmless.
  std::fprintf(stderr, "orbo: standard output: %s\n",
               std::strerror(errno ? errno : EIO));
  return orbo::ExitFailure;
}

} // namespace

int main(int argc, char **argv) {
  try {
    const std::vector<std::string> Args(argv + 1, argv + argc);
    return finishOutput(dispatch(Args));
  } catch (const std::exception &Error) {
    std::fprintf(stderr, "orbo: %s\n", Error.what());
    return orbo::ExitFailure;
  }
}
