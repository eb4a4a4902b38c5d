#include "Cli/Sheet/SheetRows.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "Cli/MemoryFile.hpp"
#include "Cli/Output.hpp"
#include "Cli/Picture.hpp"
#include "Cli/Sheet/SheetVariants.hpp"
#include "Foundation/FileManager.hpp"

namespace cli {
namespace {

using widgetruntime::WidgetFamily;
using widgetruntime::WidgetListing;

/// A variant of the document and the extension that reads it.
struct Reader {
  std::string caption;
  Scene scene;
  foundation::Device device;
  Guest guest;
};

/// What a person may place: a family, and a choice where the widget looks different for it.
struct Layout {
  std::string name;
  WidgetFamily family;
  widgetruntime::IntentValues configuration;
};

/// Opens the extension on the document itself or, where axes ask for more, on each variant of it.
class Readers {
 public:
  Readers(const Options& options, const Program& program)
      : options_(options),
        program_(program),
        device_(deviceFrom(options.device, program.environment)) {}

  Result<std::vector<Reader>> open() {
    std::vector<Reader> readers;
    auto guest = Guest::open(options_.source, program_);
    if (!guest) return std::unexpected(guest.error());
    if (const std::string problem = documentProblem(*guest, device_); !problem.empty()) {
      complain("warning: " + problem + "\n");
    }
    const auto scenes = scenesOf(options_.axes, program_.states);
    const bool isPlain = scenes.size() == 1 && options_.axes.languages.empty();
    if (isPlain) {
      readers.push_back({{}, {}, device_, *std::move(guest)});
      return readers;
    }
    findDocument(*guest);
    for (const std::string& language : languages()) {
      for (const Scene& scene : scenes) {
        auto reader = variant(scene, language, guest->images().string());
        if (!reader) return std::unexpected(reader.error());
        readers.push_back(*std::move(reader));
      }
    }
    return readers;
  }

 private:
  std::vector<std::string> languages() const {
    const auto& asked = options_.axes.languages;
    if (asked.empty()) return {""};
    return asked == std::vector<std::string>{"all"} ? program_.languages : asked;
  }

  void findDocument(const Guest& guest) {
    if (!options_.demonstration) document_ = foundation::contentsOfFile(guest.document().string());
  }

  /// The document that is there, else a sample; days other than today have a sample of their own.
  std::string documentOf(const Scene& scene,
                         const foundation::Device& device,
                         const std::string& language) const {
    if (!scene.hasDocument) return {};
    const std::string document =
        document_ && scene.day.empty()
            ? *document_
            : program_.sampleDocument(device, language.empty() ? options_.language : language);
    return program_.documentInState(document, scene.state, language);
  }

  Result<Reader> variant(const Scene& scene,
                         const std::string& language,
                         const std::string& images) {
    foundation::Device device = device_;
    if (!language.empty()) device.preferredLanguages = {language};
    if (!scene.day.empty()) {
      device.now = foundation::parseInternetDateTime(std::string(scene.day) + "T12:00:00Z")
                       .value_or(device.now);
    }
    auto file = MemoryFile::make(documentOf(scene, device, language));
    if (!file) return std::unexpected(file.error());
    SourceOptions source = options_.source;
    source.container = images;
    source.snapshot = file->path();
    files_.push_back(*std::move(file));
    auto guest = Guest::open(source, program_);
    if (!guest) return std::unexpected(guest.error());
    std::string caption = language;
    join(caption, scene.caption);
    return Reader{std::move(caption), scene, std::move(device), *std::move(guest)};
  }

  const Options& options_;
  const Program& program_;
  foundation::Device device_;
  std::optional<std::string> document_;
  std::vector<MemoryFile> files_;
};

std::string_view shortName(WidgetFamily family) {
  switch (family) {
    case WidgetFamily::systemSmall:
      return "Small";
    case WidgetFamily::systemMedium:
      return "Medium";
    case WidgetFamily::systemLarge:
      return "Large";
    case WidgetFamily::accessoryCircular:
      return "Circular";
    case WidgetFamily::accessoryRectangular:
      return "Rectangular";
    case WidgetFamily::accessoryInline:
      return "Inline";
  }
  return {};
}

bool shows(const SheetRow& row, const SheetCell& cell) {
  return std::ranges::any_of(row.cells, [&](const SheetCell& other) {
    return other.how.size == cell.how.size && other.view == cell.view;
  });
}

/// Draws the rows of one widget.
class RowMaker {
 public:
  RowMaker(const Options& options, const WidgetListing& widget)
      : options_(options), widget_(widget) {}

  /// The layouts that a person may place, but for choices that make no difference.
  Result<void> findLayouts(Reader& reader) {
    const auto& asked = options_.picture.family;
    const std::vector<WidgetFamily> families =
        asked ? std::vector<WidgetFamily>{*asked} : widget_.description.families;
    for (const WidgetFamily family : families) {
      if (auto done = findLooks(reader, family); !done) return done;
    }
    if (!options_.axes.accessories || options_.picture.family) return {};
    return findAccessories(reader);
  }

  /// One row, and one more for accessories; none when the scene changes nothing.
  Result<std::vector<SheetRow>> rows(Reader& reader, const Setting& setting) {
    std::string caption = widget_.description.displayName;
    join(caption, reader.caption);
    join(caption, setting.caption);
    SheetRow system{caption, {}};
    join(caption, "accessories");
    SheetRow accessories{caption, {}};
    for (std::size_t i = 0; i < layouts_.size(); ++i) {
      auto cell = cellOf(reader, layouts_[i], setting);
      if (!cell) return std::unexpected(cell.error());
      if (reader.scene.isExtreme && cell->view == seen_[i]) continue;
      SheetRow& row = widgetruntime::isAccessory(layouts_[i].family) ? accessories : system;
      if (!shows(row, *cell)) row.cells.push_back(*std::move(cell));
    }
    std::vector<SheetRow> rows;
    if (!system.cells.empty()) rows.push_back(std::move(system));
    if (!accessories.cells.empty()) rows.push_back(std::move(accessories));
    return rows;
  }

 private:
  Result<void> findLooks(Reader& reader, WidgetFamily family) {
    const widgetruntime::IntentParameter* choice = nullptr;
    if (widget_.configuration && options_.picture.configuration.empty()) {
      for (const auto& parameter : widget_.configuration->parameters) {
        if (!parameter.cases.empty()) choice = &parameter;
      }
    }
    if (!choice) return addLayout(reader, family, {}, "");
    for (const auto& option : choice->cases) {
      auto done = addLayout(reader, family, {{choice->name, option.id}}, option.title);
      if (!done) return done;
    }
    return {};
  }

  /// A widget without accessory layouts shows the same in all three families.
  Result<void> findAccessories(Reader& reader) {
    std::vector<SheetCell> cells;
    std::vector<Layout> layouts;
    for (const WidgetFamily family : widgetruntime::kAllFamilies) {
      if (!widgetruntime::isAccessory(family)) continue;
      layouts.push_back({std::string(shortName(family)), family, {}});
      auto cell = cellOf(reader, layouts.back(), {});
      if (!cell) return std::unexpected(cell.error());
      cells.push_back(*std::move(cell));
    }
    if (cells[0].view == cells[1].view && cells[1].view == cells[2].view) return {};
    for (std::size_t i = 0; i < cells.size(); ++i) {
      seen_.push_back(std::move(cells[i].view));
      layouts_.push_back(std::move(layouts[i]));
    }
    return {};
  }

  Result<void> addLayout(Reader& reader,
                         WidgetFamily family,
                         widgetruntime::IntentValues configuration,
                         const std::string& choice) {
    Layout layout{std::string(shortName(family)), family, std::move(configuration)};
    auto cell = cellOf(reader, layout, {});
    if (!cell) return std::unexpected(cell.error());
    if (std::ranges::find(seen_, cell->view) != seen_.end()) return {};
    if (!choice.empty() && family == WidgetFamily::systemSmall) layout.name += ", " + choice;
    seen_.push_back(std::move(cell->view));
    layouts_.push_back(std::move(layout));
    return {};
  }

  Result<SheetCell> cellOf(Reader& reader, const Layout& layout, const Setting& setting) {
    PictureOptions picture = options_.picture;
    picture.preset = setting.preset;
    picture.mode = setting.mode;
    picture.background &= setting.background;
    if (setting.tint) picture.tint = setting.tint;
    picture.redaction.privacy |= reader.scene.redaction.privacy;
    picture.redaction.placeholder |= reader.scene.redaction.placeholder;
    for (const auto& [name, value] : layout.configuration) {
      picture.configuration.insert_or_assign(name, value);
    }
    session::ExtensionClient& client = reader.guest.client();
    const auto parameters =
        entriesParameters(widget_.description.kind, layout.family, picture, reader.device);
    auto entry = said(picture.redaction.placeholder ? client.placeholder(parameters)
                                                    : client.snapshot(parameters));
    if (!entry) return std::unexpected(entry.error());
    return SheetCell{layout.name,
                     std::move(entry->trees.front().view),
                     renderOptions(layout.family, picture, reader.device, reader.guest.images())};
  }

  const Options& options_;
  const WidgetListing& widget_;
  std::vector<Layout> layouts_;
  std::vector<viewkit::View> seen_;  ///< of each layout, as it usually is
};

Result<std::vector<WidgetListing>> chosenWidgets(const Options& options, const Guest& guest) {
  if (options.kinds.empty()) return guest.about().bundle.widgets;
  std::vector<WidgetListing> chosen;
  for (const std::string& kind : options.kinds) {
    const auto widget = guest.widget(kind);
    if (!widget) return std::unexpected(widget.error());
    chosen.push_back(**widget);
  }
  return chosen;
}

}  // namespace

Result<std::vector<SheetRow>> sheetRows(const Options& options, const Program& program) {
  Readers opened{options, program};
  auto readers = opened.open();
  if (!readers) return std::unexpected(readers.error());
  const auto widgets = chosenWidgets(options, readers->front().guest);
  if (!widgets) return std::unexpected(widgets.error());
  std::vector<SheetRow> rows;
  for (const WidgetListing& widget : *widgets) {
    RowMaker maker{options, widget};
    if (auto found = maker.findLayouts(readers->front()); !found) {
      return std::unexpected(found.error());
    }
    for (Reader& reader : *readers) {
      for (const Setting& setting : settingsOf(options.axes)) {
        auto made = maker.rows(reader, setting);
        if (!made) return std::unexpected(made.error());
        std::ranges::move(*made, std::back_inserter(rows));
      }
    }
  }
  return rows;
}

std::vector<SheetRow> componentRows(const Options& options, const Program& program) {
  std::vector<SheetRow> rows;
  rendering::Renderer renderer;
  for (const Setting& setting : settingsOf({.modes = true})) {
    widgetruntime::Environment environment;
    environment.widgetRenderingMode = setting.mode;
    environment.showsWidgetContainerBackground =
        setting.background && setting.mode == viewkit::RenderingMode::fullColor;
    SheetCell cell{"Components", program.componentSheet(environment), {}};
    cell.how.size = {program.componentSheetWidth, 4000};
    cell.how.scale = options.picture.scale;
    cell.how.mode = setting.mode;
    cell.how.tint = setting.tint;
    cell.how.showsBackground = environment.showsWidgetContainerBackground;
    if (const auto placed = renderer.place(cell.view, cell.how)) {
      cell.how.size.height = std::ceil(placed->root.frame.height);
    }
    std::string caption = "Components";
    join(caption, setting.caption);
    rows.push_back({std::move(caption), {std::move(cell)}});
  }
  return rows;
}

}  // namespace cli
