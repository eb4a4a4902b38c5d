// `gallery`: every widget in every state that a person should look at, as a page and as sheets.
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "Cli/Commands/Commands.hpp"
#include "Cli/MemoryFile.hpp"
#include "Cli/Output.hpp"
#include "Cli/Picture.hpp"
#include "Cli/Sheet/GalleryPage.hpp"
#include "Cli/Sheet/SheetRows.hpp"
#include "Rendering/Images/PngEncoder.hpp"

namespace cli {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFirst = "widgets";

struct Chapter {
  std::string_view id;
  std::string_view title;
  std::string_view note;
  SheetAxes axes;
};

std::vector<Chapter> chapters() {
  return {
      {kFirst,
       "Widgets",
       "Every kind in its families and looks, and the accessory layouts.",
       {.accessories = true}},
      {"states",
       "States",
       "Amounts hidden by the application and by the host, the placeholder, and what a person sees "
       "before there are data.",
       {.states = true, .accessories = true}},
      {"languages",
       "Languages",
       "The thirteen languages; Arabic runs from right to left.",
       {.accessories = true, .languages = {"all"}}},
      {"modes",
       "Modes",
       "Where the host leaves out the background, or draws in tints.",
       {.modes = true, .accessories = true}},
      {"presets",
       "Presets",
       "The sizes of three screens, down to the narrowest.",
       {.presets = true, .accessories = true}},
      {"extremes",
       "Extremes",
       "What documents and calendars can bring. Only pictures that differ from the usual one.",
       {.extremes = true}},
  };
}

Result<GallerySection> sectionOf(const Chapter& chapter, Options options, const Program& program) {
  options.axes = chapter.axes;
  auto rows = sheetRows(options, program);
  if (!rows) return std::unexpected(rows.error());
  return GallerySection{std::string(chapter.id),
                        std::string(chapter.title),
                        std::string(chapter.note),
                        *std::move(rows)};
}

/// The widgets of a second document, each behind those of the first.
Result<void> addRowsBeside(GallerySection& section, Options options, const Program& program) {
  options.source.snapshot = options.beside;
  options.source.container.clear();
  options.demonstration = false;
  options.axes = {};
  auto rows = sheetRows(options, program);
  if (!rows) return std::unexpected(rows.error());
  const std::string name = fs::path(options.beside).parent_path().filename().string();
  for (SheetRow& row : *rows) {
    row.caption += ", " + (name.empty() ? options.beside : name);
    section.rows.push_back(std::move(row));
  }
  return {};
}

Result<std::vector<GallerySection>> sectionsOf(const Options& options, const Program& program) {
  std::vector<GallerySection> sections;
  for (const Chapter& chapter : chapters()) {
    auto section = sectionOf(chapter, options, program);
    if (!section) return std::unexpected(section.error());
    if (chapter.id == kFirst && !options.beside.empty()) {
      if (auto added = addRowsBeside(*section, options, program); !added)
        return std::unexpected(added.error());
    }
    sections.push_back(*std::move(section));
  }
  sections.push_back({"components",
                      "Components",
                      "The parts that the widgets share, in their states.",
                      componentRows(options, program)});
  return sections;
}

std::string titleOf(const SheetRow& row, const SheetCell& cell) {
  return fmt::format("{}, {}", row.caption, cell.name);
}

Result<void> writePictures(const GallerySection& section,
                           const fs::path& folder,
                           rendering::Renderer& renderer) {
  for (std::size_t row = 0; row < section.rows.size(); ++row) {
    const auto& cells = section.rows[row].cells;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      for (const auto appearance : {viewkit::Appearance::light, viewkit::Appearance::dark}) {
        rendering::RenderOptions how = cells[i].how;
        how.appearance = appearance;
        const auto svg =
            renderer.svg(cells[i].view, how, {.title = titleOf(section.rows[row], cells[i])});
        if (!svg) return refused(svg.error());
        auto done = write(folder / pictureFile(section, row, i, appearance), *svg);
        if (!done) return done;
      }
    }
  }
  return {};
}

/// As few sheets as the limit of a sheet allows; their names are appended. The first section's is
/// there to be shown around, the others to be looked over: half the pixels per point will do.
Result<void> writeSheets(const GallerySection& section,
                         const Options& options,
                         std::vector<std::string>& names) {
  const auto& rows = section.rows;
  const bool isFirst = section.id == kFirst;
  const double scale = options.picture.scale / (isFirst ? 1 : 2);
  std::vector<std::vector<SheetRow>> sheets = splitIntoSheets(rows, scale);
  for (std::size_t i = 0; i < sheets.size(); ++i) {
    std::string name = isFirst ? "sheet" : "sheet-" + section.id;
    if (sheets.size() > 1) name += fmt::format("-{}", i + 1);
    names.push_back(fs::path(options.folder) / (name + ".png"));
    const auto picture = drawSheet(sheets[i], scale);
    if (!picture) return std::unexpected(picture.error());
    auto done = write(names.back(), rendering::encodePng(*picture, options.output.png));
    if (!done) return done;
  }
  return {};
}

}  // namespace

Result<void> gallery(const Options& options, const Program& program) {
  Options own = options;
  own.demonstration = options.source.snapshot.empty() && options.source.container.empty();
  const auto device = deviceFrom(options.device, program.environment);
  auto sample = MemoryFile::make(program.sampleDocument(device, options.language));
  if (!sample) return std::unexpected(sample.error());
  if (own.demonstration) own.source.snapshot = sample->path();
  const fs::path pictures = fs::path(options.folder) / "pictures";
  std::error_code error;
  fs::create_directories(pictures, error);
  if (error) return refused(fmt::format("cannot make {}: {}", pictures.string(), error.message()));

  auto sections = sectionsOf(own, program);
  if (!sections) return std::unexpected(sections.error());
  rendering::Renderer renderer;
  std::vector<std::string> sheets;
  for (const GallerySection& section : *sections) {
    if (auto done = writePictures(section, options.folder, renderer); !done) return done;
    if (auto done = writeSheets(section, own, sheets); !done) return done;
  }
  const std::string page = fs::path(options.folder) / "index.html";
  const std::string drawn = own.demonstration ? "a sample document" : "the document";
  const std::string introduction =
      fmt::format("Drawn from {} as of {}.",
                  drawn,
                  foundation::formatInternetDateTime(device.now).substr(0, 10));
  if (auto done = write(page, galleryPage(*sections, introduction)); !done) return done;
  std::string report;
  for (const std::string& sheet : sheets) report += "contact sheet  " + sheet + "\n";
  return print(report + "page           " + page + "\n");
}

}  // namespace cli
