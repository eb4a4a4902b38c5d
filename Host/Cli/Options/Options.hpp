// What a person may ask for on the command line, as plain values.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Control/Requests.hpp"
#include "Foundation/Instant.hpp"
#include "Foundation/Names.hpp"
#include "Rendering/Images/PngEncoder.hpp"
#include "Rendering/Renderer.hpp"
#include "Surfaces/Bar/BarLine.hpp"
#include "Surfaces/WidgetSize.hpp"
#include "WidgetRuntime/Environment.hpp"
#include "WidgetRuntime/Intents.hpp"

namespace cli {

enum class Format { png, svg, text, tree, placed, accessibility };
constexpr auto namesOf(Format) {
  return foundation::names("png", "svg", "text", "tree", "placed", "accessibility");
}

using surfaces::Preset;

/// Where the extension and its data are. Empty: the usual place.
struct SourceOptions {
  std::string container;  ///< the application group's own folder
  std::string snapshot;   ///< one document in place of the container's
  std::string extension;
  std::string infoPlist;
  bool isolated = false;  ///< the extension runs as a child process
};

/// What the extension is told about the device. Absent: as this machine says.
struct DeviceOptions {
  std::optional<foundation::Instant> now;
  std::string timeZone;
  std::string locale;
  std::vector<std::string> languages;
};

struct PictureOptions {
  std::optional<widgetruntime::WidgetFamily> family;
  Preset preset = Preset::standard;
  std::optional<rendering::Size> size;  ///< points; wins over the preset
  viewkit::Appearance appearance = viewkit::Appearance::light;
  viewkit::RenderingMode mode = viewkit::RenderingMode::fullColor;
  std::optional<viewkit::Rgb> tint;
  bool background = true;
  viewkit::RedactionReasons redaction;
  bool preview = false;
  widgetruntime::IntentValues configuration;
  double scale = 2;
};

struct OutputOptions {
  std::string file = "-";
  rendering::PngSize png = rendering::PngSize::fast;
  std::string idPrefix;  ///< of the ids in an SVG document
};

/// Axes of a contact sheet besides kinds, families and appearances.
struct SheetAxes {
  bool states = false;
  bool extremes = false;
  bool modes = false;
  bool presets = false;
  bool accessories = false;
  bool components = false;
  std::vector<std::string> languages;  ///< "all" alone: those that the extension speaks
};

/// What is asked of the resident host, as it was typed.
struct HostOptions {
  std::string target;  ///< an id or a kind
  control::Hide hide = control::Hide::toggle;
  std::string column;
  std::string row;
  std::string output;  ///< of a desktop; empty: the board
  std::string region;
  surfaces::BarFormat format = surfaces::BarFormat::plain;
};

struct Options {
  SourceOptions source;
  DeviceOptions device;
  PictureOptions picture;
  OutputOptions output;
  Format format = Format::png;
  SheetAxes axes;
  HostOptions host;
  bool json = false;

  std::string kind;
  std::string parameter;
  std::string intent;
  std::vector<std::string> kinds;
  std::vector<std::string> files;

  std::string language;        ///< of a sample document
  std::string folder;          ///< that a gallery is written to
  std::string beside;          ///< a second document, drawn in a gallery's first section
  bool demonstration = false;  ///< samples stand in for the document
  bool open = true;
  std::string openWith;
  int images = 200;
  int warmup = 60;
};

}  // namespace cli
