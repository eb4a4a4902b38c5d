// The axes of a contact sheet: what a row may differ in from the picture as it usually is.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Cli/Options/Options.hpp"
#include "Cli/Program.hpp"

namespace cli {

/// What the document says, on which day, and what the host hides of it.
struct Scene {
  std::string_view caption;
  std::string_view state;  ///< of the document; empty: as it is written
  viewkit::RedactionReasons redaction;
  std::string_view day;  ///< "2025-02-28": the sample of that day; empty: the present
  bool hasDocument = true;
  bool isExtreme = false;  ///< of interest only where it changes something
};

/// How the host draws: its sizes and its colours.
struct Setting {
  std::string caption;
  Preset preset = Preset::standard;
  viewkit::RenderingMode mode = viewkit::RenderingMode::fullColor;
  bool background = true;
  std::optional<viewkit::Rgb> tint;
};

/// The usual one first.
[[nodiscard]] std::vector<Scene> scenesOf(const SheetAxes& axes,
                                          const std::vector<DocumentState>& states);
[[nodiscard]] std::vector<Setting> settingsOf(const SheetAxes& axes);

/// Adds a part to a caption, behind a dot.
void join(std::string& caption, std::string_view part);

}  // namespace cli
