// A document's way from text to records, beside simdjson's bare parse of the same text: what
// walking and storing cost over knowing that the text is JSON.
//
//     cmake --preset release -DQUORVEL_BENCHMARKS=ON && cmake --build --preset release
//     build/release/bin/SnapshotDecodeBenchmark DOCUMENT [--benchmark_... options]
//
// The document is also measured grown to about 22 KB, 200 KB, 2 MB, 20 MB and 50 MB: its lists are
// repeated. What a byte costs should not depend on the size.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <simdjson.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "Foundation/FileManager.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"

namespace {

template <class T>
void repeat(std::vector<T>& list, std::size_t times) {
  const std::vector<T> once = list;
  list.reserve(once.size() * times);
  for (std::size_t i = 1; i < times; ++i) list.insert(list.end(), once.begin(), once.end());
}

/// The document's lists repeated so often, without any white space.
std::string grown(const quorvel::WidgetSnapshot& document, std::size_t times) {
  quorvel::WidgetSnapshot large = document;
  repeat(large.dues, times);
  repeat(large.cards, times);
  if (large.netWorth) repeat(large.netWorth->history, times);
  if (large.spending && large.spending->earlier) repeat(*large.spending->earlier, times);
  return quorvel::encodeWidgetSnapshot(large);
}

/// The bytes of memory that the process has touched and still holds.
double residentBytes() {
  std::ifstream file("/proc/self/statm");
  double total = 0;
  double resident = 0;
  file >> total >> resident;
  return resident * static_cast<double>(::sysconf(_SC_PAGESIZE));
}

void setBytes(benchmark::State& state, const std::string& text) {
  const auto bytes = static_cast<std::int64_t>(text.size());
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * bytes);
  state.counters["bytes"] = static_cast<double>(bytes);
}

void decode(benchmark::State& state, const std::string& text) {
  for (auto _ : state) {
    auto snapshot = quorvel::decodeWidgetSnapshot(text);
    if (!snapshot) return state.SkipWithError("the document is refused");
    benchmark::DoNotOptimize(snapshot);
  }
  setBytes(state, text);
}

/// As many copies as make 50 MB, all kept, so that documents of each size take memory that was
/// never touched before.
void decodeAndKeep(benchmark::State& state, const std::string& text) {
  const std::size_t copies = std::max<std::size_t>(50'000'000 / text.size(), 1);
  double kept = 0;
  for (auto _ : state) {
    state.PauseTiming();
    ::malloc_trim(0);
    std::vector<quorvel::WidgetSnapshot> all;
    all.reserve(copies);
    const double before = residentBytes();
    state.ResumeTiming();
    for (std::size_t i = 0; i < copies; ++i) {
      all.push_back(*quorvel::decodeWidgetSnapshot(text));
    }
    state.PauseTiming();
    kept = residentBytes() - before;
    all = {};
    state.ResumeTiming();
  }
  const std::size_t bytes = copies * text.size();
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
  state.counters["kept_per_byte"] = kept / static_cast<double>(bytes);
}

/// The parser is kept, as its makers advise, and so is the padding that it asks for.
void bareParse(benchmark::State& state, const std::string& text) {
  const simdjson::padded_string padded(text);
  simdjson::dom::parser parser;
  for (auto _ : state) {
    simdjson::dom::element root;
    if (parser.parse(padded).get(root) != simdjson::SUCCESS) {
      return state.SkipWithError("the document is no JSON");
    }
    benchmark::DoNotOptimize(root);
  }
  setBytes(state, text);
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  const auto text = argc > 1 ? foundation::contentsOfFile(argv[1]) : std::nullopt;
  const auto document = quorvel::decodeWidgetSnapshot(text ? *text : "");
  if (!document) {
    std::fputs("usage: SnapshotDecodeBenchmark DOCUMENT [--benchmark_... options]\n", stderr);
    return 2;
  }
  std::vector<std::string> texts{*text};
  const std::size_t once = grown(*document, 1).size();
  for (const std::size_t bytes : {22'000ul, 200'000ul, 2'000'000ul, 20'000'000ul, 50'000'000ul}) {
    texts.push_back(grown(*document, std::max<std::size_t>(bytes / once, 1)));
  }
  for (const std::string& each : texts) {
    const std::string name = &each == &texts.front() ? "asWritten" : std::to_string(each.size());
    benchmark::RegisterBenchmark(("decode/" + name).c_str(), decode, each);
    benchmark::RegisterBenchmark(("bareParse/" + name).c_str(), bareParse, each);
    benchmark::RegisterBenchmark(("decodeAndKeep/" + name).c_str(), decodeAndKeep, each);
  }
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
