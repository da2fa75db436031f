#include "tools/orbo/PlistCommand.h"

#include "tools/orbo/AtomicFile.h"
#include "tools/orbo/Input.h"
#include "tools/orbo/TextPosition.h"

#include "plst/JSONReader.h"
#include "plst/JSONWriter.h"
#include "plst/PrettyPrinter.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string_view>

namespace orbo {

const char PlistUsage[] =
    "       orbo plist lint FILE...\n"
    "       orbo plist print FILE\n"
    "       orbo plist convert --to json|pretty [-o OUT] FILE\n";

namespace {

ExitStatus usageError(const std::string &Problem) {
  // PlistUsage is indented to follow a "usage: " line; its first line takes
  // that place here.
  constexpr std::size_t Indent = sizeof("usage: ") - 1;
  std::fprintf(stderr, "orbo: %s\nusage: %s", Problem.c_str(),
               PlistUsage + Indent);
  return ExitFailure;
}

ExitStatus report(ExitStatus Status, const std::string &Name,
                  const std::string &Reason) {
  std::fprintf(stderr, "orbo: %s: %s\n", Name.c_str(), Reason.c_str());
  return Status;
}

ExitStatus writeStandardOutput(std::string_view Text) {
  errno = 0;
  if (std::fwrite(Text.data(), 1, Text.size(), stdout) == Text.size())
    return ExitSuccess;
  return report(ExitFailure, "standard output",
                std::strerror(errno ? errno : EIO));
}

// A file read and parsed. When Status is not ExitSuccess, Diagnostic is the
// line to show: "orbo: FILE: reason" for an I/O failure, "FILE:LINE:COLUMN:
// message" for bad data.
struct Document {
  ExitStatus Status = ExitSuccess;
  std::string Diagnostic;
  qo::Reference<nyPLST::Item> Root;
};

std::string parseDiagnostic(const std::string &Name, std::string_view Text,
                            const nyPLST::JSONParseError &Error) {
  // The offset counts the bytes consumed, so the byte that failed is the one
  // before it; an empty text has no byte to point at and stays at 1:1. A
  // number too large to hold is the exception: the parser rewinds the offset
  // to the number's first byte.
  const bool AtNumberStart =
      std::string_view(Error.message).ends_with("overflow");
  const std::size_t Offset =
      Error.offset > 0 && !AtNumberStart ? Error.offset - 1 : Error.offset;
  const TextPosition Position = TextPosition::of(Text, Offset);
  return qoString::CString::format("%s:%zu:%zu: %s", Name.c_str(),
                                   Position.Line, Position.Column,
                                   Error.message.c_str())
      .str();
}

Document load(const std::string &Path) {
  Document Doc;
  const std::string Name = displayName(Path);
  std::string Bytes, Reason;
  if (!readInput(Path, Bytes, Reason)) {
    Doc.Status = ExitFailure;
    Doc.Diagnostic = "orbo: " + Name + ": " + Reason;
    return Doc;
  }
  nyPLST::JSONParseError Error;
  if (!nyPLST::convertFromJSON(Doc.Root, Bytes.data(), Bytes.size(), &Error)) {
    Doc.Status = ExitBadData;
    Doc.Diagnostic = parseDiagnostic(Name, Bytes, Error);
  }
  return Doc;
}

bool isOption(const std::string &Arg) {
  return Arg.size() > 1 && Arg[0] == '-';
}

// Splits Args into file operands, refusing options: "--" ends the options,
// so a file named "-x" can still be given.
std::optional<std::string> fileOperands(const std::string &Command,
                                        const std::vector<std::string> &Args,
                                        std::vector<std::string> &Files) {
  bool OptionsDone = false;
  for (const std::string &Arg : Args) {
    if (!OptionsDone && Arg == "--")
      OptionsDone = true;
    else if (!OptionsDone && isOption(Arg))
      return "plist " + Command + ": unknown option '" + Arg + "'";
    else
      Files.push_back(Arg);
  }
  return std::nullopt;
}

ExitStatus lint(const std::vector<std::string> &Args) {
  std::vector<std::string> Files;
  if (const auto Problem = fileOperands("lint", Args, Files))
    return usageError(*Problem);
  if (Files.empty())
    return usageError("plist lint: no file given");
  ExitStatus Status = ExitSuccess;
  for (const std::string &File : Files) {
    const Document Doc = load(File);
    Status = worse(Status, Doc.Status);
    if (Doc.Status == ExitFailure) {
      std::fprintf(stderr, "%s\n", Doc.Diagnostic.c_str());
      continue;
    }
    const std::string Line = Doc.Status == ExitSuccess
                                 ? displayName(File) + ": OK\n"
                                 : Doc.Diagnostic + "\n";
    Status = worse(Status, writeStandardOutput(Line));
  }
  return Status;
}

ExitStatus print(const std::vector<std::string> &Args) {
  std::vector<std::string> Files;
  if (const auto Problem = fileOperands("print", Args, Files))
    return usageError(*Problem);
  if (Files.size() != 1)
    return usageError("plist print: expected one file");
  const Document Doc = load(Files.front());
  if (Doc.Status != ExitSuccess) {
    std::fprintf(stderr, "%s\n", Doc.Diagnostic.c_str());
    return Doc.Status;
  }
  return writeStandardOutput(nyPLST::asJSON(Doc.Root).view());
}

struct ConvertOptions {
  std::optional<std::string> File;
  std::optional<std::string> Format;
  std::optional<std::string> Output;
};

// Fills Ops from Args; returns the usage problem, if any.
std::optional<std::string>
parseConvertArgs(const std::vector<std::string> &Args, ConvertOptions &Ops) {
  bool OptionsDone = false;
  for (std::size_t I = 0; I < Args.size(); ++I) {
    const std::string &Arg = Args[I];
    if (OptionsDone || !isOption(Arg)) {
      if (Ops.File)
        return "plist convert: expected one file";
      Ops.File = Arg;
    } else if (Arg == "--") {
      OptionsDone = true;
    } else if (Arg == "--to" || Arg == "-o") {
      if (I + 1 == Args.size() || Args[I + 1].empty())
        return "plist convert: " + Arg + " needs a value";
      (Arg == "-o" ? Ops.Output : Ops.Format) = Args[++I];
    } else if (Arg.rfind("--to=", 0) == 0) {
      Ops.Format = Arg.substr(5);
    } else {
      return "plist convert: unknown option '" + Arg + "'";
    }
  }
  if (!Ops.Format)
    return "plist convert: --to FORMAT is required";
  if (*Ops.Format != "json" && *Ops.Format != "pretty")
    return "plist convert: unknown format '" + *Ops.Format +
           "' (expected json or pretty)";
  if (!Ops.File)
    return "plist convert: expected one file";
  return std::nullopt;
}

ExitStatus convert(const std::vector<std::string> &Args) {
  ConvertOptions Ops;
  if (const auto Problem = parseConvertArgs(Args, Ops))
    return usageError(*Problem);
  const Document Doc = load(*Ops.File);
  if (Doc.Status != ExitSuccess) {
    std::fprintf(stderr, "%s\n", Doc.Diagnostic.c_str());
    return Doc.Status;
  }
  qoString::CString Text;
  if (*Ops.Format == "pretty") {
    Text = nyPLST::asJSON(Doc.Root);
  } else {
    try {
      nyPLST::convertToJSON(Text, Doc.Root);
    } catch (const nyPLST::JSONWriteError &Error) {
      return report(ExitBadData, displayName(*Ops.File), Error.what());
    }
  }
  if (!Ops.Output || isStandardStream(*Ops.Output))
    return writeStandardOutput(Text.view());
  std::string Reason;
  if (!AtomicFile::writeWhole(*Ops.Output, Text.view(), Reason))
    return report(ExitFailure, *Ops.Output, Reason);
  return ExitSuccess;
}

} // namespace

ExitStatus runPlistCommand(const std::vector<std::string> &Args) {
  if (Args.empty())
    return usageError("plist: missing command");
  const std::string &Command = Args.front();
  const std::vector<std::string> Rest(Args.begin() + 1, Args.end());
  if (Command == "lint")
    return lint(Rest);
  if (Command == "print")
    return print(Rest);
  if (Command == "convert")
    return convert(Rest);
  return usageError("plist: unknown command '" + Command + "'");
}

} // namespace orbo
