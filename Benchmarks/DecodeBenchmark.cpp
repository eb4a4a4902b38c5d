// A document's way from text to records, beside simdjson's bare parse of the same text: what
// walking and storing cost over knowing that the text is JSON.
//
//     cmake --preset release -DQUORVEL_BENCHMARKS=ON && cmake --build --preset release
//     build/release/bin/DecodeBenchmark DOCUMENT [--benchmark_... options]
//
// The document is also measured grown to about 200 KB, 2 MB, 20 MB and 50 MB: its lists are
// repeated.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <simdjson.h>

#include <cstdio>
#include <string>
#include <vector>

#include "Foundation/FileManager.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetSnapshot.hpp"

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

std::size_t heapInUse() {
  const auto info = ::mallinfo2();
  return info.uordblks + info.hblkhd;
}

void setBytes(benchmark::State& state, const std::string& text) {
  const auto bytes = static_cast<std::int64_t>(text.size());
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * bytes);
  state.counters["bytes"] = static_cast<double>(bytes);
}

void decode(benchmark::State& state, const std::string& text) {
  const std::size_t before = heapInUse();
  std::size_t kept = 0;
  for (auto _ : state) {
    auto snapshot = quorvel::decodeWidgetSnapshot(text);
    if (!snapshot) return state.SkipWithError("the document is refused");
    benchmark::DoNotOptimize(snapshot);
    if (kept == 0) kept = heapInUse() - before;
  }
  setBytes(state, text);
  state.counters["kept_per_byte"] = static_cast<double>(kept) / static_cast<double>(text.size());
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
    std::fputs("usage: DecodeBenchmark DOCUMENT [--benchmark_... options]\n", stderr);
    return 2;
  }
  std::vector<std::string> texts{*text};
  const std::size_t once = grown(*document, 1).size();
  for (const std::size_t bytes : {once, 200'000ul, 2'000'000ul, 20'000'000ul, 50'000'000ul}) {
    texts.push_back(grown(*document, std::max<std::size_t>(bytes / once, 1)));
  }
  for (const std::string& each : texts) {
    const std::string name = &each == &texts.front() ? "asWritten" : std::to_string(each.size());
    benchmark::RegisterBenchmark(("decode/" + name).c_str(), decode, each);
    benchmark::RegisterBenchmark(("bareParse/" + name).c_str(), bareParse, each);
  }
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
