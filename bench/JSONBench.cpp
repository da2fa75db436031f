//===- bench/JSONBench.cpp - JSON reading and writing against peers -------===//
//
// Reads: convertFromJSON against yajl_tree_parse (same parser, its own tree),
// RapidJSON's DOM and nlohmann::json::parse. Writes: convertToJSON against the
// same tree walk through yajl_gen_double, RapidJSON's PrettyWriter and
// nlohmann's dump(4). Throughput is always the source file's size per second,
// so that the rows of one file compare directly whatever each writer emits.
//
// Before timing, main() checks that convertToJSON is byte-identical to the
// yajl_gen_double path on every file and on millions of random doubles, and
// stops with a message if not: a faster writer that changes files is no win.
//
//===----------------------------------------------------------------------===//
#include "plst/Item.h"
#include "plst/JSONReader.h"
#include "plst/JSONWriter.h"

#include <benchmark/benchmark.h>
#include <yajl/yajl_gen.h>
#include <yajl/yajl_tree.h>
#ifdef ORBO_HAVE_RAPIDJSON
#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>
#endif
#ifdef ORBO_HAVE_NLOHMANN_JSON
#include <nlohmann/json.hpp>
#endif

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <string>

namespace {

const char *const Files[] = {"canada.json", "citm_catalog.json",
                             "twitter.json"};

const std::string &document(const std::string &Name) {
  static std::map<std::string, std::string> Loaded;
  auto Found = Loaded.find(Name);
  if (Found != Loaded.end())
    return Found->second;
  std::ifstream In(std::string(ORBO_BENCH_DATA) + "/" + Name, std::ios::binary);
  if (!In) {
    std::fprintf(stderr, "cannot read %s/%s\n", ORBO_BENCH_DATA, Name.c_str());
    std::exit(2);
  }
  std::ostringstream Bytes;
  Bytes << In.rdbuf();
  return Loaded.emplace(Name, Bytes.str()).first->second;
}

qo::Reference<nyPLST::Item> parsed(const std::string &Text) {
  qo::Reference<nyPLST::Item> Root;
  if (!nyPLST::convertFromJSON(Root, Text.data(), Text.size())) {
    std::fprintf(stderr, "convertFromJSON failed on benchmark data\n");
    std::exit(2);
  }
  return Root;
}

// The writer as the generator would do it unaided: yajl_gen_double formats
// with "%.20g". Everything else matches convertToJSON.
void yajlGenerate(yajl_gen G, const nyPLST::Item *I) {
  if (!I) {
    yajl_gen_null(G);
    return;
  }
  switch (I->type()) {
  case nyPLST::BoolType:
    yajl_gen_bool(G, static_cast<const nyPLST::Bool *>(I)->value());
    return;
  case nyPLST::DoubleType:
    yajl_gen_double(G, static_cast<const nyPLST::Double *>(I)->value());
    return;
  case nyPLST::StringType: {
    const auto &S = static_cast<const nyPLST::String *>(I)->value();
    yajl_gen_string(G, reinterpret_cast<const unsigned char *>(S.data()),
                    S.length());
    return;
  }
  case nyPLST::ArrayType:
    yajl_gen_array_open(G);
    for (const auto &E : static_cast<const nyPLST::Array *>(I)->array())
      yajlGenerate(G, E.get());
    yajl_gen_array_close(G);
    return;
  case nyPLST::DictionaryType:
    yajl_gen_map_open(G);
    for (const auto &[K, V] :
         static_cast<const nyPLST::Dictionary *>(I)->dictionary()) {
      yajl_gen_string(G, reinterpret_cast<const unsigned char *>(K.data()),
                      K.length());
      yajlGenerate(G, V.get());
    }
    yajl_gen_map_close(G);
    return;
  }
}

void appendTo(void *Context, const char *Data, std::size_t Length) {
  static_cast<qoString::CString *>(Context)->append(Data, Length);
}

qoString::CString yajlDoubleText(const nyPLST::Item *Root) {
  qoString::CString Out;
  yajl_gen G = yajl_gen_alloc(nullptr);
  yajl_gen_config(G, yajl_gen_beautify, 1);
  yajl_gen_config(G, yajl_gen_print_callback, &appendTo, &Out);
  yajlGenerate(G, Root);
  yajl_gen_free(G);
  return Out;
}

qoString::CString ourText(const qo::Reference<nyPLST::Item> &Root) {
  qoString::CString Out;
  nyPLST::convertToJSON(Out, Root);
  return Out;
}

void requireIdentical(const qoString::CString &Ours,
                      const qoString::CString &Theirs, const char *What) {
  if (Ours == Theirs)
    return;
  std::size_t At = 0;
  while (At < Ours.size() && At < Theirs.size() && Ours[At] == Theirs[At])
    ++At;
  std::fprintf(stderr,
               "FATAL: convertToJSON differs from the yajl_gen_double path on "
               "%s at byte %zu\n",
               What, At);
  std::abort();
}

// Millions of doubles: random bit patterns (subnormals included), everyday
// magnitudes, powers of ten and the extremes.
void checkDoubles(std::size_t Count) {
  std::mt19937_64 Engine(7);
  std::uniform_real_distribution<double> Unit(-1.0, 1.0);
  auto Values = qo::make<nyPLST::Array>();
  Values->array().reserve(Count + 700);
  for (int E = -323; E <= 308; ++E)
    Values->insert(qo::make<nyPLST::Double>(std::pow(10.0, E)));
  for (const double V : {0.0, -0.0, 5e-324, 2.2250738585072014e-308,
                         1.7976931348623157e308, -1.7976931348623157e308})
    Values->insert(qo::make<nyPLST::Double>(V));
  while (static_cast<std::size_t>(Values->size()) < Count) {
    const std::uint64_t Bits = Engine();
    double V;
    std::memcpy(&V, &Bits, sizeof V);
    if (Values->size() % 2)
      V = Unit(Engine) * std::pow(10.0, static_cast<int>(Engine() % 25) - 12);
    if (std::isfinite(V))
      Values->insert(qo::make<nyPLST::Double>(V));
  }
  requireIdentical(ourText(Values), yajlDoubleText(Values.get()),
                   "random doubles");
}

void checkWriterIdentity() {
  for (const char *File : Files) {
    const auto Root = parsed(document(File));
    requireIdentical(ourText(Root), yajlDoubleText(Root.get()), File);
  }
  checkDoubles(4000000);
  std::fprintf(stderr, "writer output identical to yajl_gen_double on all "
                       "files and 4000000 doubles\n");
}

void setThroughput(benchmark::State &State, const std::string &Text) {
  State.SetBytesProcessed(static_cast<std::int64_t>(State.iterations()) *
                          static_cast<std::int64_t>(Text.size()));
}

void readOurs(benchmark::State &State, const char *File) {
  const std::string &Text = document(File);
  for (auto _ : State) {
    qo::Reference<nyPLST::Item> Root;
    if (!nyPLST::convertFromJSON(Root, Text.data(), Text.size()))
      State.SkipWithError("parse failed");
    benchmark::DoNotOptimize(Root.get());
  }
  setThroughput(State, Text);
}

void readYajlTree(benchmark::State &State, const char *File) {
  const std::string &Text = document(File);
  char Error[256];
  for (auto _ : State) {
    // yajl_tree_parse needs a zero-terminated text, which std::string has.
    yajl_val Root = yajl_tree_parse(Text.c_str(), Error, sizeof Error);
    if (!Root)
      State.SkipWithError(Error);
    benchmark::DoNotOptimize(Root);
    yajl_tree_free(Root);
  }
  setThroughput(State, Text);
}

void readRapidJSON(benchmark::State &State, const char *File) {
#ifdef ORBO_HAVE_RAPIDJSON
  const std::string &Text = document(File);
  for (auto _ : State) {
    rapidjson::Document D;
    D.Parse(Text.data(), Text.size());
    if (D.HasParseError())
      State.SkipWithError("parse failed");
    benchmark::DoNotOptimize(&D);
  }
  setThroughput(State, Text);
#else
  (void)File;
  State.SkipWithError("RapidJSON not installed");
#endif
}

void readNlohmann(benchmark::State &State, const char *File) {
#ifdef ORBO_HAVE_NLOHMANN_JSON
  const std::string &Text = document(File);
  for (auto _ : State) {
    auto J = nlohmann::json::parse(Text);
    benchmark::DoNotOptimize(&J);
  }
  setThroughput(State, Text);
#else
  (void)File;
  State.SkipWithError("nlohmann-json not installed");
#endif
}

void writeOurs(benchmark::State &State, const char *File) {
  const std::string &Text = document(File);
  const auto Root = parsed(Text);
  for (auto _ : State) {
    qoString::CString Out;
    nyPLST::convertToJSON(Out, Root);
    benchmark::DoNotOptimize(Out.data());
  }
  setThroughput(State, Text);
}

void writeYajlDouble(benchmark::State &State, const char *File) {
  const std::string &Text = document(File);
  const auto Root = parsed(Text);
  for (auto _ : State) {
    qoString::CString Out = yajlDoubleText(Root.get());
    benchmark::DoNotOptimize(Out.data());
  }
  setThroughput(State, Text);
}

void writeRapidJSON(benchmark::State &State, const char *File) {
#ifdef ORBO_HAVE_RAPIDJSON
  const std::string &Text = document(File);
  rapidjson::Document D;
  D.Parse(Text.data(), Text.size());
  for (auto _ : State) {
    rapidjson::StringBuffer Buffer;
    rapidjson::PrettyWriter<rapidjson::StringBuffer> Writer(Buffer);
    D.Accept(Writer);
    benchmark::DoNotOptimize(Buffer.GetString());
  }
  setThroughput(State, Text);
#else
  (void)File;
  State.SkipWithError("RapidJSON not installed");
#endif
}

void writeNlohmann(benchmark::State &State, const char *File) {
#ifdef ORBO_HAVE_NLOHMANN_JSON
  const std::string &Text = document(File);
  const auto J = nlohmann::json::parse(Text);
  for (auto _ : State) {
    std::string Out = J.dump(4);
    benchmark::DoNotOptimize(Out.data());
  }
  setThroughput(State, Text);
#else
  (void)File;
  State.SkipWithError("nlohmann-json not installed");
#endif
}

void registerAll() {
  using Body = void (*)(benchmark::State &, const char *);
  const std::pair<const char *, Body> Benchmarks[] = {
      {"read/convertFromJSON", &readOurs},
      {"read/yajl_tree_parse", &readYajlTree},
      {"read/RapidJSON", &readRapidJSON},
      {"read/nlohmann", &readNlohmann},
      {"write/convertToJSON", &writeOurs},
      {"write/yajl_gen_double", &writeYajlDouble},
      {"write/RapidJSON_Pretty", &writeRapidJSON},
      {"write/nlohmann_dump4", &writeNlohmann},
  };
  for (const auto &[Name, Run] : Benchmarks)
    for (const char *File : Files)
      benchmark::RegisterBenchmark((std::string(Name) + "/" + File).c_str(),
                                   Run, File)
          ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char **argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv))
    return 1;
  checkWriterIdentity();
  registerAll();
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
