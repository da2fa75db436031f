//===- plst/PrettyPrinter.cpp - Items as JSON-like text for people --------===//
//
// The layout is driven by six events (begin/end dictionary, begin/end array,
// separator, key separator) and three pieces of state: the last event, the
// indent, and the stack of open containers. The separator looks back at the
// last event: after a closed container, or inside a dictionary, it breaks the
// line; between scalars of an array it is ", ". Scalars do not count as
// events, which is what keeps "[1, 2]" on one line.
//
// The container stack doubles as the walk's explicit stack: each entry keeps
// its position in its container, so a million nested arrays need a million
// small entries on the heap, not a million call frames.
//
//===----------------------------------------------------------------------===//
#include "plst/PrettyPrinter.h"

#include "base/Containers.h"
#include "base/os/File.h"
#include "base/os/MemoryIOStream.h"
#include "base/os/OStream.h"
#include "plst/Config.h"
#include "plst/internal/NumberFormat.h"

#include <cstring>
#include <string_view>

namespace nyPLST {

namespace {

class PrettyPrinter {
public:
  explicit PrettyPrinter(qoOS::OStream &Stream) : Stream(Stream) {}

  void print(const Item *Root);

private:
  enum Event {
    BeginDictionary = 1,
    EndDictionary = 2,
    BeginArray = 3,
    EndArray = 4,
    Separator = 5,
    KeySeparator = 6,
  };
  // The kinds on the container stack.
  enum Kind { DictionaryKind = 1, ArrayKind = 3 };

  struct Open {
    Kind ContainerKind;
    const Item *Container;
    // Next element of an array, next entry of a dictionary.
    std::size_t Index = 0;
    Dictionary::Map::const_iterator Entry;
  };

  void emit(Event E);
  void setIndent(int Spaces);
  void newLine();
  void visit(const Item *I);
  void writeQuoted(const qoString::CString &Text);
  void writeDouble(double Value);
  // Prints the next child of the innermost container, or closes it.
  void step();

  qoOS::OStream &Stream;
  int LastEvent = 0;
  int Indent = 0;
  qoString::CString Indentation;
  qo::vector<Open> Containers;
};

void PrettyPrinter::setIndent(int Spaces) {
  Indent = Spaces;
  Indentation.resize(static_cast<std::size_t>(Indent), ' ');
}

void PrettyPrinter::newLine() {
  Stream.put('\n');
  Stream.write(Indentation.view());
}

void PrettyPrinter::emit(Event E) {
  switch (E) {
  case BeginDictionary:
    Stream.put('{');
    setIndent(Indent + config::PrettyIndentWidth);
    newLine();
    break;
  case EndDictionary:
    setIndent(Indent - config::PrettyIndentWidth);
    newLine();
    Stream.put('}');
    Containers.pop_back();
    break;
  case BeginArray:
    Stream.put('[');
    break;
  case EndArray:
    Stream.put(']');
    Containers.pop_back();
    break;
  case Separator:
    Stream.put(',');
    if (LastEvent != EndDictionary && LastEvent != EndArray &&
        Containers.back().ContainerKind != DictionaryKind)
      Stream.put(' ');
    else
      newLine();
    break;
  case KeySeparator:
    Stream.write(": ", 2);
    break;
  }
  LastEvent = E;
}

void PrettyPrinter::writeQuoted(const qoString::CString &Text) {
  Stream.put('"');
  Stream.write(Text.data(), std::strlen(Text.c_str()));
  Stream.put('"');
}

void PrettyPrinter::writeDouble(double Value) {
  char Text[internal::MaxDoubleText];
  Stream.write(Text, internal::formatShortDouble(Value, Text));
}

void PrettyPrinter::visit(const Item *I) {
  if (!I)
    return;
  switch (I->type()) {
  case BoolType:
    Stream.write(static_cast<const Bool *>(I)->value() ? "true" : "false");
    return;
  case DoubleType:
    writeDouble(static_cast<const Double *>(I)->value());
    return;
  case StringType:
    writeQuoted(static_cast<const String *>(I)->value());
    return;
  case ArrayType:
    Containers.push_back({ArrayKind, I, 0, {}});
    emit(BeginArray);
    return;
  case DictionaryType: {
    const auto &Entries = static_cast<const Dictionary *>(I)->dictionary();
    Containers.push_back({DictionaryKind, I, 0, Entries.begin()});
    emit(BeginDictionary);
    return;
  }
  }
}

void PrettyPrinter::step() {
  Open &Top = Containers.back();
  if (Top.ContainerKind == ArrayKind) {
    const auto &Elements = static_cast<const Array *>(Top.Container)->array();
    if (Top.Index == Elements.size()) {
      emit(EndArray);
      return;
    }
    if (Top.Index != 0)
      emit(Separator);
    // visit() may grow the stack and move Top: advance first.
    const Item *Next = Elements[Top.Index++].get();
    visit(Next);
    return;
  }
  const auto &Entries =
      static_cast<const Dictionary *>(Top.Container)->dictionary();
  if (Top.Entry == Entries.end()) {
    emit(EndDictionary);
    return;
  }
  if (Top.Entry != Entries.begin())
    emit(Separator);
  const auto Entry = Top.Entry++;
  writeQuoted(Entry->first);
  emit(KeySeparator);
  visit(Entry->second.get());
}

void PrettyPrinter::print(const Item *Root) {
  visit(Root);
  while (!Containers.empty())
    step();
}

} // namespace

bool printJSON(qoOS::IOStream &Stream, qo::Reference<const Item> Root) {
  qoOS::OStream Out(Stream);
  PrettyPrinter(Out).print(Root.get());
  Out.put('\n');
  Out.flush();
  return !Out.error();
}

qoString::CString asJSON(qo::Reference<const Item> Root) {
  if (!Root)
    return "{}";
  qoOS::MemoryIOStream Memory(config::PrettyMemoryBlockSize);
  printJSON(Memory, Root);
  Memory.close();
  return Memory.contents();
}

bool outputJSON(const qoString::IString &Path, qo::Reference<const Item> Root) {
  qoOS::File Output(Path);
  if (!Output.open(qoOS::File::Write | qoOS::File::Create))
    return false;
  if (!printJSON(Output, Root))
    return false;
  return Output.close();
}

} // namespace nyPLST
