// `bench`: what an image costs, stage by stage, with amounts that change with every image.
#include <fmt/format.h>
#include <sys/resource.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "Cli/Commands/Commands.hpp"
#include "Cli/Commands/Timings.hpp"
#include "Cli/MemoryFile.hpp"
#include "Cli/Output.hpp"
#include "Cli/Picture.hpp"
#include "Foundation/FileManager.hpp"
#include "Rendering/Images/PngEncoder.hpp"
#include "Session/HostEnvironment.hpp"
#include "ViewKit/TreeJson.hpp"

namespace cli {
namespace {

/// One image's way: the document's text is read and parsed, a view made, encoded and decoded, laid
/// out, drawn, written.
enum Stage : std::size_t { kRead, kView, kEncode, kDecode, kLayout, kPaint, kPng, kStages };
constexpr std::array<std::string_view, kStages> kStageNames{
    "parse", "view", "encode", "decode", "layout", "paint", "png"};
using Times = std::array<double, kStages>;

/// With --isolated the child answers whole requests, which cannot be told apart: all of them count
/// as "parse".
class BenchRunner {
 public:
  BenchRunner(Guest& guest,
              const widgetruntime::Widget* widget,
              widgetruntime::EntriesParameters parameters,
              rendering::RenderOptions how,
              rendering::PngSize png)
      : guest_(guest),
        widget_(widget),
        parameters_(std::move(parameters)),
        how_(std::move(how)),
        png_(png) {}

  Result<Times> image() {
    Times times{};
    StopWatch watch;
    auto view = widget_ ? viewInStages(times, watch) : viewOfChild(times, watch);
    if (!view) return std::unexpected(view.error());
    const auto placed = renderer_.place(*view, how_);
    if (!placed) return refused(placed.error());
    times[kLayout] = watch.lap();
    if (auto done = renderer_.draw(*placed, how_, bitmap_); !done) return refused(done.error());
    times[kPaint] = watch.lap();
    const std::string bytes = rendering::encodePng(bitmap_, png_);
    times[kPng] = watch.lap();
    if (pngBytes_ == 0) pngBytes_ = bytes.size();
    return times;
  }

  /// Of the first image.
  [[nodiscard]] std::size_t pngBytes() const { return pngBytes_; }

 private:
  Result<viewkit::View> viewInStages(Times& times, StopWatch& watch) {
    widgetruntime::Environment environment = parameters_.environments.front();
    environment.locale = parameters_.device.locale;
    environment.timeZone = parameters_.device.timeZone;
    environment.preferredLanguages = parameters_.device.preferredLanguages;
    const auto entry = widget_->snapshot(
        {parameters_.family, parameters_.isPreview, parameters_.device}, parameters_.configuration);
    times[kRead] = watch.lap();
    const viewkit::View made = entry.content(environment).view;
    times[kView] = watch.lap();
    foundation::JsonWriter writer;
    viewkit::writeView(writer, made);
    times[kEncode] = watch.lap();
    const auto json = foundation::parseJson(writer.text());
    if (!json) return refused("the extension: its tree is no JSON");
    auto view = viewkit::readView(*json);
    times[kDecode] = watch.lap();
    if (!view) return refused("the extension: " + view.error());
    return *std::move(view);
  }

  Result<viewkit::View> viewOfChild(Times& times, StopWatch& watch) {
    auto entry = said(guest_.client().snapshot(parameters_));
    times[kRead] = watch.lap();
    if (!entry) return std::unexpected(entry.error());
    return std::move(entry->trees.front().view);
  }

  Guest& guest_;
  const widgetruntime::Widget* widget_;
  widgetruntime::EntriesParameters parameters_;
  rendering::RenderOptions how_;
  rendering::PngSize png_;
  rendering::Renderer renderer_;
  rendering::Bitmap bitmap_;
  std::size_t pngBytes_ = 0;
};

double cpuMilliseconds() {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  const auto of = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
  };
  return of(usage.ru_utime) + of(usage.ru_stime);
}

/// The process's own high-water mark; getrusage() would report that of a larger parent.
long peakKilobytes() {
  const std::unique_ptr<FILE, int (*)(FILE*)> status(
      std::fopen("/proc/self/status", "re"),
      [](FILE* file) { return file ? std::fclose(file) : 0; });
  std::array<char, 256> line{};
  long kilobytes = 0;
  while (status && kilobytes == 0 && std::fgets(line.data(), line.size(), status.get())) {
    if (std::string_view(line.data()).starts_with("VmHWM:"))
      kilobytes = std::strtol(line.data() + 6, nullptr, 10);
  }
  return kilobytes;
}

struct Measured {
  std::vector<Times> images;
  double cpu = 0;  ///< milliseconds per image
  std::size_t pngBytes = 0;
};

std::string summaryText(std::string_view key,
                        const std::vector<Times>& images,
                        std::initializer_list<Stage> stages) {
  std::vector<double> samples;
  samples.reserve(images.size());
  for (const Times& times : images) {
    double sum = 0;
    for (const Stage stage : stages) sum += times[stage];
    samples.push_back(sum);
  }
  const Summary summary = summaryOf(std::move(samples));
  return fmt::format(R"("{}":{{"min":{:.4f},"median":{:.4f},"p95":{:.4f}}})",
                     key,
                     summary.least,
                     summary.median,
                     summary.p95);
}

/// In the keys of comparisons with other renderers, in which this host is a peer among peers.
std::string report(const Measured& measured, std::string_view kind, std::string_view family) {
  std::string text = fmt::format(
      R"({{"peer":"ours","kind":"{}","family":"{}","n":{},)", kind, family, measured.images.size());
  text +=
      summaryText(
          "total_ms", measured.images, {kRead, kView, kEncode, kDecode, kLayout, kPaint, kPng}) +
      ",";
  text += summaryText("draw_ms", measured.images, {kView, kLayout, kPaint});
  text += fmt::format(R"(,"cpu_ms":{:.4f},"png_bytes":{},"peak_rss_kb":{})",
                      measured.cpu,
                      measured.pngBytes,
                      peakKilobytes());
  for (std::size_t i = 0; i < kStages; ++i) {
    text +=
        "," +
        summaryText(fmt::format("{}_ms", kStageNames[i]), measured.images, {static_cast<Stage>(i)});
  }
  return text + "}\n";
}

Result<Measured> measure(BenchRunner& runner,
                         MemoryFile& file,
                         const std::string& document,
                         const Options& options,
                         const Program& program) {
  Measured measured;
  measured.images.reserve(static_cast<std::size_t>(options.images));
  for (int i = -options.warmup; i < options.images; ++i) {
    // The amounts are edited outside of what is measured.
    const auto changed = program.documentWithOtherAmounts(document, i + options.warmup);
    if (!changed) return refused("the document cannot be read");
    if (auto done = file.replace(*changed); !done) return std::unexpected(done.error());
    const double before = cpuMilliseconds();
    const auto times = runner.image();
    if (!times) return std::unexpected(times.error());
    if (i < 0) continue;
    measured.cpu += cpuMilliseconds() - before;
    measured.images.push_back(*times);
  }
  measured.cpu /= options.images;
  measured.pngBytes = runner.pngBytes();
  return measured;
}

}  // namespace

Result<void> bench(const Options& options, const Program& program) {
  const auto device = deviceFrom(options.device, program.environment);
  auto base = Guest::open(options.source, program);
  if (!base) return std::unexpected(base.error());
  const auto text = foundation::contentsOfFile(base->document().string());
  const std::string document = text ? *text : program.sampleDocument(device, {});
  if (!program.documentWithOtherAmounts(document, 0)) {
    return refused(documentProblem(*base, device));
  }
  auto file = MemoryFile::make({});
  if (!file) return std::unexpected(file.error());
  SourceOptions source = options.source;
  source.snapshot = file->path();
  source.container = base->images().string();
  auto guest = Guest::open(source, program);
  if (!guest) return std::unexpected(guest.error());
  const auto listing = guest->widget(options.kind);
  if (!listing) return std::unexpected(listing.error());
  if (auto known = checkConfiguration(**listing, options.picture.configuration); !known)
    return known;

  const auto bundle = program.extension.makeBundle(initializeParameters(source, program));
  const widgetruntime::Widget* widget = nullptr;
  for (const auto& offered : bundle.widgets) {
    if (offered.description.kind == (*listing)->description.kind && !source.isolated)
      widget = &offered;
  }
  const auto family =
      options.picture.family.value_or(session::defaultFamily((*listing)->description.families));
  BenchRunner runner{
      *guest,
      widget,
      entriesParameters((*listing)->description.kind, family, options.picture, device),
      renderOptions(family, options.picture, device, guest->images()),
      options.output.png};
  const auto measured = measure(runner, *file, document, options, program);
  if (!measured) return std::unexpected(measured.error());
  return print(report(*measured, (*listing)->description.kind, widgetruntime::nameOf(family)));
}

}  // namespace cli
