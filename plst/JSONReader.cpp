//===- plst/JSONReader.cpp - JSON text to items ---------------------------===//
//
// yajl's callbacks build the tree bottom-up on a stack of frames. The bottom
// frame receives the finished document; every other frame is an open array
// or dictionary, not yet attached to its parent, and is attached to the frame
// below when it closes. So a failed parse only has to drop what is pending:
// each piece is an independent sub-tree, released iteratively however deep.
//
// The callbacks are the hot path of reading. An object's members wait on one
// shared stack (keys as ranges of the text, values as items) until the object
// closes; then they are sorted, and the dictionary is built with its exact
// size: every key is copied once, straight into its node, each node goes in
// at the end of the map without a search, and all nodes share one block.
//
// C++ exceptions (only allocation failure) must not unwind through yajl's C
// frames: a callback stores the exception and cancels the parse, and it is
// rethrown once the parser is freed.
//
//===----------------------------------------------------------------------===//
#include "plst/JSONReader.h"

#include "base/Containers.h"
#include "base/os/Locale.h"
#include "plst/Config.h"

#include <yajl/yajl_parse.h>

#include <algorithm>
#include <cctype>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

namespace nyPLST {

namespace {

// The bottom frame has neither an array nor members; an open array is
// created at once, a dictionary only when it closes and its size is known.
struct Frame {
  qo::Reference<Array> OpenArray;
  bool OpenDictionary = false;
  // Where this dictionary's members start in the pending-entry stack, and
  // its escaped keys in the key store.
  std::size_t FirstEntry = 0;
  std::size_t FirstKeyByte = 0;
};

// A member read but not yet stored. The key is not copied: it is a range of
// the document, or, when the parser had to unescape it, of the key store.
// The value stays null until one arrives, and for the literal null.
struct PendingEntry {
  std::size_t KeyOffset;
  std::size_t KeyLength;
  bool KeyStored;
  qo::Reference<Item> Value;
};

struct SortKey {
  std::string_view Key;
  PendingEntry *Entry;
};

// char_traits<char> compares as unsigned char over the whole length: the
// order of CString::compare, without the call.
bool keyLess(const SortKey &A, const SortKey &B) { return A.Key < B.Key; }

// Stable, so that of equal keys the last read stays last. Objects are small,
// so insertion sort usually wins, and sorted input costs one pass.
void sortKeys(SortKey *First, SortKey *Last) {
  if (Last - First > 32) {
    std::stable_sort(First, Last, keyLess);
    return;
  }
  for (SortKey *I = First + 1; I < Last; ++I) {
    if (!keyLess(*I, I[-1]))
      continue;
    const SortKey Moving = *I;
    SortKey *J = I;
    do {
      *J = J[-1];
      --J;
    } while (J != First && keyLess(Moving, J[-1]));
    *J = Moving;
  }
}

class TreeBuilder {
public:
  TreeBuilder(const char *Text, std::size_t Length)
      : Text(Text), Length(Length) {
    Frames.reserve(config::ReaderReservedFrames);
    Frames.emplace_back();
  }

  qo::Reference<Item> takeResult() { return std::move(Result); }
  std::exception_ptr takeFailure() { return std::move(Failure); }

  static const yajl_callbacks Callbacks;

private:
  void add(qo::Reference<Item> Value) {
    Frame &Top = Frames.back();
    if (Top.OpenArray)
      Top.OpenArray->array().push_back(std::move(Value));
    else if (Top.OpenDictionary)
      Entries.back().Value = std::move(Value);
    else
      Result = std::move(Value);
  }

  void addKey(const char *Key, std::size_t KeyLength) {
    // A key the parser had to unescape arrives in its own buffer, which the
    // next token overwrites; any other key points into the text.
    const std::less<const char *> Before;
    if (!Before(Key, Text) && !Before(Text + Length, Key + KeyLength)) {
      Entries.push_back(
          {static_cast<std::size_t>(Key - Text), KeyLength, false, nullptr});
      return;
    }
    Entries.push_back({KeyBytes.size(), KeyLength, true, nullptr});
    KeyBytes.append(Key, KeyLength);
  }

  void openArray() { Frames.emplace_back().OpenArray = qo::make<Array>(); }

  void openDictionary() {
    Frame &F = Frames.emplace_back();
    F.OpenDictionary = true;
    F.FirstEntry = Entries.size();
    F.FirstKeyByte = KeyBytes.size();
  }

  // Members are collected while the object is read and stored in key order
  // when it closes: each then goes in at the end of the map without a search,
  // its key is copied once, straight into the node, and all nodes come in one
  // block. Of repeated keys the last non-null value wins.
  qo::Reference<Item> buildDictionary(const Frame &F) {
    Keys.clear();
    for (std::size_t I = F.FirstEntry; I < Entries.size(); ++I) {
      PendingEntry &E = Entries[I];
      if (!E.Value)
        continue;
      const char *Base = E.KeyStored ? KeyBytes.data() : Text;
      Keys.push_back({{Base + E.KeyOffset, E.KeyLength}, &E});
    }
    sortKeys(Keys.data(), Keys.data() + Keys.size());
    auto Built = qo::make<Dictionary>(Keys.size());
    auto &Map = Built->dictionary();
    for (std::size_t I = 0; I < Keys.size(); ++I) {
      if (I + 1 != Keys.size() && Keys[I + 1].Key == Keys[I].Key)
        continue;
      Map.emplace_hint(Map.end(), std::piecewise_construct,
                       std::forward_as_tuple(Keys[I].Key),
                       std::forward_as_tuple(std::move(Keys[I].Entry->Value)));
    }
    Entries.resize(F.FirstEntry);
    KeyBytes.resize(F.FirstKeyByte);
    return Built;
  }

  void close() {
    Frame &Top = Frames.back();
    qo::Reference<Item> Finished =
        Top.OpenDictionary ? buildDictionary(Top) : std::move(Top.OpenArray);
    Frames.pop_back();
    add(std::move(Finished));
  }

  // Runs one callback body; an exception cancels the parse instead of
  // crossing yajl.
  template <class Body> static int guard(void *Context, Body &&Run) {
    auto *Self = static_cast<TreeBuilder *>(Context);
    try {
      Run(*Self);
      return 1;
    } catch (...) {
      Self->Failure = std::current_exception();
      return 0;
    }
  }

  static int onNull(void *) { return 1; }
  static int onBoolean(void *Context, int Value) {
    return guard(Context, [Value](TreeBuilder &B) {
      B.add(qo::Reference<Item>(new Bool(Value != 0)));
    });
  }
  static int onInteger(void *Context, long long Value) {
    return guard(Context, [Value](TreeBuilder &B) {
      B.add(qo::Reference<Item>(new Double(static_cast<double>(Value))));
    });
  }
  static int onDouble(void *Context, double Value) {
    return guard(Context, [Value](TreeBuilder &B) {
      B.add(qo::Reference<Item>(new Double(Value)));
    });
  }
  static int onString(void *Context, const unsigned char *Text,
                      std::size_t Length) {
    return guard(Context, [Text, Length](TreeBuilder &B) {
      B.add(qo::Reference<Item>(new String(
          qoString::CString(reinterpret_cast<const char *>(Text), Length))));
    });
  }
  static int onStartMap(void *Context) {
    return guard(Context, [](TreeBuilder &B) { B.openDictionary(); });
  }
  static int onMapKey(void *Context, const unsigned char *Key,
                      std::size_t KeyLength) {
    return guard(Context, [Key, KeyLength](TreeBuilder &B) {
      B.addKey(reinterpret_cast<const char *>(Key), KeyLength);
    });
  }
  static int onStartArray(void *Context) {
    return guard(Context, [](TreeBuilder &B) { B.openArray(); });
  }
  static int onEnd(void *Context) {
    return guard(Context, [](TreeBuilder &B) { B.close(); });
  }

  const char *const Text;
  const std::size_t Length;
  qo::vector<Frame> Frames;
  qo::vector<PendingEntry> Entries;
  std::string KeyBytes;
  qo::vector<SortKey> Keys;
  qo::Reference<Item> Result;
  std::exception_ptr Failure;
};

const yajl_callbacks TreeBuilder::Callbacks = {
    &TreeBuilder::onNull,
    &TreeBuilder::onBoolean,
    &TreeBuilder::onInteger,
    &TreeBuilder::onDouble,
    nullptr,
    &TreeBuilder::onString,
    &TreeBuilder::onStartMap,
    &TreeBuilder::onMapKey,
    &TreeBuilder::onEnd,
    &TreeBuilder::onStartArray,
    &TreeBuilder::onEnd,
};

struct ParserFree {
  void operator()(yajl_handle_t *H) const { yajl_free(H); }
};
using Parser = std::unique_ptr<yajl_handle_t, ParserFree>;

// yajl's message reduced to its first line, starting lower-case, without the
// final period.
qoString::CString errorMessage(yajl_handle H, const unsigned char *Text,
                               std::size_t Length) {
  unsigned char *Raw = yajl_get_error(H, 0, Text, Length);
  if (!Raw)
    return "parse error";
  std::string Message(reinterpret_cast<const char *>(Raw));
  yajl_free_error(H, Raw);
  Message.resize(Message.find('\n') == std::string::npos ? Message.size()
                                                         : Message.find('\n'));
  if (!Message.empty() && Message.back() == '.')
    Message.pop_back();
  if (!Message.empty())
    Message[0] =
        static_cast<char>(std::tolower(static_cast<unsigned char>(Message[0])));
  return qoString::CString(std::move(Message));
}

} // namespace

bool convertFromJSON(qo::Reference<Item> &Out, const qoString::CString &Text) {
  return convertFromJSON(Out, Text.data(), Text.length(), nullptr);
}

bool convertFromJSON(qo::Reference<Item> &Out, const char *Text,
                     unsigned long Length) {
  return convertFromJSON(Out, Text, Length, nullptr);
}

bool convertFromJSON(qo::Reference<Item> &Out, const char *Text,
                     unsigned long Length, JSONParseError *Error) {
  // yajl reads doubles with strtod, which follows LC_NUMERIC.
  const qoOS::CNumericLocaleScope CLocale;
  TreeBuilder Builder(Text, Length);
  Parser P(yajl_alloc(&TreeBuilder::Callbacks, nullptr, &Builder));
  if (!P)
    throw std::bad_alloc();
  yajl_config(P.get(), yajl_allow_comments, 1);

  const auto *Bytes = reinterpret_cast<const unsigned char *>(Text);
  yajl_status Status = yajl_parse(P.get(), Bytes, Length);
  unsigned long Offset = 0;
  if (Status == yajl_status_ok) {
    Status = yajl_complete_parse(P.get());
    Offset = Length;
  } else {
    Offset = yajl_get_bytes_consumed(P.get());
  }
  if (std::exception_ptr Failure = Builder.takeFailure())
    std::rethrow_exception(Failure);
  if (Status != yajl_status_ok) {
    if (Error) {
      Error->offset = Offset;
      Error->message = errorMessage(P.get(), Bytes, Length);
    }
    return false;
  }
  Out = Builder.takeResult();
  return true;
}

} // namespace nyPLST
