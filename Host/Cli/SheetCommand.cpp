// `sheet`: kinds x families x light and dark on one picture, and more axes on request.
#include <fmt/format.h>

#include <algorithm>

#include "Cli/Commands.hpp"
#include "Cli/DocumentVariants.hpp"
#include "Cli/MemoryFile.hpp"
#include "Cli/Output.hpp"
#include "Cli/Picture.hpp"
#include "Cli/Sheet.hpp"
#include "Cli/Values.hpp"
#include "Foundation/FileManager.hpp"

namespace cli {
namespace {

using viewkit::RenderingMode;

/// A document variant and the extension that reads it.
struct Reader {
  std::string caption;
  foundation::Device device;
  Guest guest;
};

/// A row's place on the axes of size and mode.
struct Variant {
  std::string caption;
  Preset preset = Preset::standard;
  RenderingMode mode = RenderingMode::fullColor;
};

void join(std::string& text, std::string_view part) {
  if (!part.empty()) text += (text.empty() ? "" : " · ") + std::string(part);
}

std::vector<Variant> variantsOf(const SheetAxes& axes) {
  std::vector<Preset> presets{Preset::standard};
  if (axes.presets) presets.insert(presets.end(), {Preset::compact, Preset::stress});
  std::vector<RenderingMode> modes{RenderingMode::fullColor};
  if (axes.modes) modes.insert(modes.end(), {RenderingMode::accented, RenderingMode::vibrant});
  std::vector<Variant> variants;
  for (const Preset preset : presets) {
    for (const RenderingMode mode : modes) {
      Variant variant{.caption = {}, .preset = preset, .mode = mode};
      if (preset != Preset::standard) join(variant.caption, name(preset));
      if (mode != RenderingMode::fullColor) join(variant.caption, widgetruntime::name(mode));
      variants.push_back(std::move(variant));
    }
  }
  return variants;
}

/// The document that variants are made of: the one that is there, else a sample.
foundation::JsonValue baseDocument(const Guest& guest,
                                   const foundation::Device& device,
                                   const Program& program) {
  if (const auto text = foundation::contentsOfFile(guest.document().string())) {
    if (auto parsed = foundation::parseJson(*text)) return *std::move(parsed);
  }
  return foundation::parseJson(program.sampleDocument(device, {}))
      .value_or(foundation::JsonValue{});
}

/// The extension on the document itself or, where axes ask for more, on each variant of it.
class Readers {
 public:
  Readers(const Options& options, const Program& program)
      : options_(options),
        program_(program),
        device_(deviceFrom(options.device, program.environment)) {}

  Result<std::vector<Reader>> open() {
    auto guest = Guest::open(options_.source, program_);
    if (!guest) return std::unexpected(guest.error());
    std::vector<Reader> readers;
    if (!options_.axes.states && options_.axes.languages.empty()) {
      readers.push_back({{}, device_, *std::move(guest)});
      return readers;
    }
    const auto document = baseDocument(*guest, device_, program_);
    for (const std::string& language : languages()) {
      for (const DocumentState state : states()) {
        auto reader = variant(document, language, state, guest->images().string());
        if (!reader) return std::unexpected(reader.error());
        readers.push_back(*std::move(reader));
      }
    }
    return readers;
  }

 private:
  std::vector<std::string> languages() const {
    return options_.axes.languages.empty() ? std::vector<std::string>{""} : options_.axes.languages;
  }
  std::vector<DocumentState> states() const {
    if (!options_.axes.states) return {DocumentState::asWritten};
    return {DocumentState::asWritten,
            DocumentState::hidden,
            DocumentState::noData,
            DocumentState::noDocument};
  }

  Result<Reader> variant(const foundation::JsonValue& document,
                         const std::string& language,
                         DocumentState state,
                         const std::string& images) {
    auto file = MemoryFile::make(documentText(document, state, language));
    if (!file) return std::unexpected(file.error());
    SourceOptions source = options_.source;
    source.container = images;
    source.snapshot = file->path();
    files_.push_back(*std::move(file));
    auto guest = Guest::open(source, program_);
    if (!guest) return std::unexpected(guest.error());
    foundation::Device device = device_;
    if (!language.empty()) device.preferredLanguages = {language};
    std::string caption = language;
    join(caption, name(state));
    return Reader{std::move(caption), std::move(device), *std::move(guest)};
  }

  const Options& options_;
  const Program& program_;
  foundation::Device device_;
  std::vector<MemoryFile> files_;
};

Result<SheetRow> rowOf(const widgetruntime::WidgetListing& widget,
                       Reader& reader,
                       const Variant& variant,
                       PictureOptions picture) {
  picture.preset = variant.preset;
  picture.mode = variant.mode;
  SheetRow row{.caption = widget.description.displayName, .cells = {}};
  join(row.caption, reader.caption);
  join(row.caption, variant.caption);
  auto families = widget.description.families;
  if (picture.family) families = {*picture.family};
  for (const auto family : families) {
    auto entry = reader.guest.entry(
        entriesParameters(widget.description.kind, family, picture, reader.device),
        picture.redaction.placeholder);
    if (!entry) return std::unexpected(entry.error());
    row.cells.push_back({std::move(entry->trees.front().view),
                         renderOptions(family, picture, reader.device, reader.guest.images())});
  }
  return row;
}

Result<std::vector<widgetruntime::WidgetListing>> chosenWidgets(
    const Guest& guest, const std::vector<std::string>& kinds) {
  if (kinds.empty()) return guest.about().bundle.widgets;
  std::vector<widgetruntime::WidgetListing> chosen;
  for (const std::string& kind : kinds) {
    const auto widget = guest.widget(kind);
    if (!widget) return std::unexpected(widget.error());
    chosen.push_back(**widget);
  }
  return chosen;
}

Result<std::vector<SheetRow>> rowsOf(const Options& options, std::vector<Reader>& readers) {
  const auto widgets = chosenWidgets(readers.front().guest, options.kinds);
  if (!widgets) return std::unexpected(widgets.error());
  std::vector<SheetRow> rows;
  for (const auto& widget : *widgets) {
    for (Reader& reader : readers) {
      for (const Variant& variant : variantsOf(options.axes)) {
        auto row = rowOf(widget, reader, variant, options.picture);
        if (!row) return std::unexpected(row.error());
        rows.push_back(*std::move(row));
      }
    }
  }
  return rows;
}

}  // namespace

Result<void> sheet(const Options& options, const Program& program) {
  if (auto target = checkPictureTarget(options.output.file); !target) return target;
  Readers opened{options, program};
  auto readers = opened.open();
  if (!readers) return std::unexpected(readers.error());
  Reader& first = readers->front();
  if (const std::string problem = documentProblem(first.guest, first.device); !problem.empty()) {
    complain("warning: " + problem + "\n");
  }
  const auto rows = rowsOf(options, *readers);
  if (!rows) return std::unexpected(rows.error());
  const auto picture = drawSheet(*rows, options.picture.scale);
  if (!picture) return std::unexpected(picture.error());
  return write(options.output.file, rendering::encodePng(*picture, options.output.png));
}

}  // namespace cli
