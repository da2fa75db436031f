//===- plst/JSONWriter.cpp - Items as strict JSON text --------------------===//
//
// A recursive walk over the item feeding a yajl generator whose print callback
// appends to the caller's string. The recursion is bounded by the generator,
// which refuses the 128th open container; the refusal is thrown at once, so a
// tree of any depth costs at most that many frames.
//
// Doubles are formatted here rather than by yajl_gen_double: the same "%.20g"
// text plus yajl's ".0" rule, but through std::to_chars, which is several times
// faster than printf and ignores the process's locale. NaN and infinity are
// refused with the status yajl_gen_double would have returned.
//
//===----------------------------------------------------------------------===//
#include "plst/JSONWriter.h"

#include "plst/internal/NumberFormat.h"

#include <yajl/yajl_gen.h>

#include <cmath>
#include <memory>
#include <new>
#include <string>

namespace nyPLST {

namespace {

std::string describe(yajl_gen_status Status) {
  switch (Status) {
  case yajl_gen_keys_must_be_strings:
    return "keys must be strings (yajl_gen_keys_must_be_strings)";
  case yajl_max_depth_exceeded:
    return "maximum depth exceeded (yajl_max_depth_exceeded)";
  case yajl_gen_in_error_state:
    return "generator in error state (yajl_gen_in_error_state)";
  case yajl_gen_generation_complete:
    return "document already complete (yajl_gen_generation_complete)";
  case yajl_gen_invalid_number:
    return "invalid number, nan or infinity (yajl_gen_invalid_number)";
  case yajl_gen_no_buf:
    return "no internal buffer (yajl_gen_no_buf)";
  case yajl_gen_invalid_string:
    return "invalid utf-8 string (yajl_gen_invalid_string)";
  case yajl_gen_status_ok:
    break;
  }
  return "status " + std::to_string(static_cast<int>(Status));
}

void check(yajl_gen_status Status) {
  if (Status != yajl_gen_status_ok)
    throw JSONWriteError("json generation failed: " + describe(Status));
}

void appendChunk(void *Context, const char *Data, std::size_t Length) {
  static_cast<qoString::CString *>(Context)->append(Data, Length);
}

struct GeneratorFree {
  void operator()(yajl_gen_t *G) const { yajl_gen_free(G); }
};
using Generator = std::unique_ptr<yajl_gen_t, GeneratorFree>;

void generateString(yajl_gen G, const qoString::CString &Text) {
  check(yajl_gen_string(G, reinterpret_cast<const unsigned char *>(Text.data()),
                        Text.length()));
}

void generateDouble(yajl_gen G, double Value) {
  if (!std::isfinite(Value))
    check(yajl_gen_invalid_number);
  char Text[internal::MaxDoubleText];
  check(yajl_gen_number(G, Text, internal::formatExactDouble(Value, Text)));
}

void generate(yajl_gen G, const Item *I) {
  if (!I) {
    check(yajl_gen_null(G));
    return;
  }
  switch (I->type()) {
  case BoolType:
    check(yajl_gen_bool(G, static_cast<const Bool *>(I)->value()));
    return;
  case DoubleType:
    generateDouble(G, static_cast<const Double *>(I)->value());
    return;
  case StringType:
    generateString(G, static_cast<const String *>(I)->value());
    return;
  case ArrayType:
    check(yajl_gen_array_open(G));
    for (const auto &Element : static_cast<const Array *>(I)->array())
      generate(G, Element.get());
    check(yajl_gen_array_close(G));
    return;
  case DictionaryType:
    check(yajl_gen_map_open(G));
    for (const auto &[Key, Value] :
         static_cast<const Dictionary *>(I)->dictionary()) {
      generateString(G, Key);
      generate(G, Value.get());
    }
    check(yajl_gen_map_close(G));
    return;
  }
  // A kind this writer does not know still needs a value after its key.
  check(yajl_gen_null(G));
}

} // namespace

bool convertToJSON(qoString::CString &Out, qo::Reference<const Item> Root) {
  Generator G(yajl_gen_alloc(nullptr));
  if (!G)
    throw std::bad_alloc();
  yajl_gen_config(G.get(), yajl_gen_beautify, 1);
  yajl_gen_config(G.get(), yajl_gen_print_callback, &appendChunk, &Out);
  generate(G.get(), Root.get());
  return true;
}

} // namespace nyPLST
