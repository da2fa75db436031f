//===- fuzz/JSONRoundTripFuzzer.cpp - JSON reader and writers under fuzz --===//
//
// Whatever the input, the reader must either fail cleanly (the target left as
// it was, an offset inside the text, a message) or build an item that both
// writers can handle. The strict writer's text must read back to an item of
// the same shape and the same values, and it may refuse only what is
// documented: nesting of 128 levels or more. Any violation aborts, which
// libFuzzer reports with the input that caused it.
//
//===----------------------------------------------------------------------===//
#include "plst/Item.h"
#include "plst/JSONReader.h"
#include "plst/JSONWriter.h"
#include "plst/PrettyPrinter.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

namespace {

using nyPLST::Item;

// The generator refuses to open a container at this depth.
constexpr std::size_t StrictWriterDepthLimit = 128;

[[noreturn]] void violation(const char *What) {
  std::fprintf(stderr, "json round trip: %s\n", What);
  std::abort();
}

// Containers on the longest path from Root (0 for a scalar or null), walked
// with an explicit stack: fuzz inputs nest thousands of levels.
std::size_t containerDepth(const Item *Root) {
  std::size_t Deepest = 0;
  std::vector<std::pair<const Item *, std::size_t>> Pending = {{Root, 0}};
  while (!Pending.empty()) {
    const auto [Node, Above] = Pending.back();
    Pending.pop_back();
    if (const auto *A = dynamic_cast<const nyPLST::Array *>(Node)) {
      Deepest = std::max(Deepest, Above + 1);
      for (const auto &Element : A->array())
        Pending.push_back({Element.get(), Above + 1});
    } else if (const auto *D = dynamic_cast<const nyPLST::Dictionary *>(Node)) {
      Deepest = std::max(Deepest, Above + 1);
      for (const auto &Entry : D->dictionary())
        Pending.push_back({Entry.second.get(), Above + 1});
    }
  }
  return Deepest;
}

bool sameScalar(const Item &A, const Item &B) {
  if (A.type() != B.type())
    return false;
  switch (A.type()) {
  case nyPLST::BoolType:
    return static_cast<const nyPLST::Bool &>(A).value() ==
           static_cast<const nyPLST::Bool &>(B).value();
  case nyPLST::DoubleType:
    // Twenty significant digits read back exactly; -0 and 0 compare equal
    // here, which is all JSON promises.
    return static_cast<const nyPLST::Double &>(A).value() ==
           static_cast<const nyPLST::Double &>(B).value();
  case nyPLST::StringType:
    return static_cast<const nyPLST::String &>(A).value() ==
           static_cast<const nyPLST::String &>(B).value();
  default:
    return true;
  }
}

// Same kinds, sizes, keys and values everywhere.
bool sameTree(const Item *A, const Item *B) {
  std::vector<std::pair<const Item *, const Item *>> Pending = {{A, B}};
  while (!Pending.empty()) {
    const auto [X, Y] = Pending.back();
    Pending.pop_back();
    if (!X || !Y) {
      if (X != Y)
        return false;
      continue;
    }
    if (!sameScalar(*X, *Y))
      return false;
    if (X->type() == nyPLST::ArrayType) {
      const auto &XA = static_cast<const nyPLST::Array *>(X)->array();
      const auto &YA = static_cast<const nyPLST::Array *>(Y)->array();
      if (XA.size() != YA.size())
        return false;
      for (std::size_t I = 0; I < XA.size(); ++I)
        Pending.push_back({XA[I].get(), YA[I].get()});
    } else if (X->type() == nyPLST::DictionaryType) {
      const auto &XD = static_cast<const nyPLST::Dictionary *>(X)->dictionary();
      const auto &YD = static_cast<const nyPLST::Dictionary *>(Y)->dictionary();
      if (XD.size() != YD.size())
        return false;
      for (auto XI = XD.begin(), YI = YD.begin(); XI != XD.end(); ++XI, ++YI) {
        if (XI->first != YI->first)
          return false;
        Pending.push_back({XI->second.get(), YI->second.get()});
      }
    }
  }
  return true;
}

bool congruentBothWays(const Item *A, const Item *B) {
  if (!A || !B)
    return A == B;
  return A->congruent(*B) && B->congruent(*A);
}

void checkFailedParse(const char *Text, std::size_t Size) {
  const qo::Reference<Item> Sentinel = qo::make<nyPLST::Bool>(true);
  qo::Reference<Item> Out = Sentinel;
  nyPLST::JSONParseError Error;
  if (nyPLST::convertFromJSON(Out, Text, Size, &Error))
    violation("a second parse of the same text succeeded");
  if (Out != Sentinel)
    violation("a failed parse changed its target");
  if (Error.offset > Size)
    violation("error offset past the end of the text");
  if (Error.message.empty())
    violation("error without a message");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *Data,
                                      std::size_t Size) {
  const char *Text = reinterpret_cast<const char *>(Data);
  qo::Reference<Item> First;
  if (!nyPLST::convertFromJSON(First, Text, Size, nullptr)) {
    checkFailedParse(Text, Size);
    return 0;
  }

  const std::size_t Depth = containerDepth(First.get());
  qoString::CString Strict;
  try {
    nyPLST::convertToJSON(Strict, First);
  } catch (const nyPLST::JSONWriteError &) {
    if (Depth < StrictWriterDepthLimit)
      violation("the strict writer refused an item of legal depth");
    nyPLST::asJSON(First);
    return 0;
  }
  if (Depth >= StrictWriterDepthLimit)
    violation("the strict writer accepted an item too deep for it");

  qo::Reference<Item> Second;
  nyPLST::JSONParseError Error;
  if (!nyPLST::convertFromJSON(Second, Strict.data(), Strict.length(),
                               &Error)) {
    std::fprintf(stderr, "%s at %lu in:\n%s\n", Error.message.c_str(),
                 Error.offset, Strict.c_str());
    violation("the strict writer's text does not read back");
  }
  if (!congruentBothWays(First.get(), Second.get()))
    violation("the re-read item is not congruent to the first");
  if (!sameTree(First.get(), Second.get()))
    violation("the re-read item has other values");

  nyPLST::asJSON(First);
  return 0;
}
