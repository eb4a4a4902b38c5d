#include "Cli/Sheet/SheetVariants.hpp"

#include <array>

#include "Cli/Options/Values.hpp"

namespace cli {
namespace {

using viewkit::RenderingMode;

constexpr viewkit::Rgb kTint = 0x2F8F6B;

constexpr std::array kHostStates{
    Scene{.caption = "hidden by the host", .redaction = {.privacy = true}},
    Scene{.caption = "placeholder", .redaction = {.placeholder = true}},
    Scene{.caption = "no document", .hasDocument = false},
};

constexpr std::array kDays{
    Scene{.caption = "first day of a month", .day = "2025-03-01", .isExtreme = true},
    Scene{.caption = "last day of a month of 31", .day = "2025-03-31", .isExtreme = true},
    Scene{.caption = "a month of 28 days", .day = "2025-02-17", .isExtreme = true},
};

}  // namespace

void join(std::string& caption, std::string_view part) {
  if (part.empty()) return;
  if (!caption.empty()) caption += " · ";
  caption += part;
}

std::vector<Scene> scenesOf(const SheetAxes& axes, const std::vector<DocumentState>& states) {
  std::vector<Scene> scenes{Scene{}};
  const auto addStates = [&](bool usual) {
    for (const DocumentState& state : states) {
      if (state.isUsual != usual) continue;
      scenes.push_back({.caption = state.caption, .state = state.name, .isExtreme = !usual});
    }
  };
  if (axes.states) {
    addStates(/*usual=*/true);
    scenes.insert(scenes.end(), kHostStates.begin(), kHostStates.end());
  }
  if (axes.extremes) {
    addStates(/*usual=*/false);
    scenes.insert(scenes.end(), kDays.begin(), kDays.end());
  }
  return scenes;
}

std::vector<Setting> settingsOf(const SheetAxes& axes) {
  std::vector<Preset> presets{Preset::standard};
  if (axes.presets) presets.insert(presets.end(), {Preset::compact, Preset::stress});
  std::vector<Setting> looks{Setting{}};
  if (axes.modes) {
    looks.push_back({.caption = "without background", .background = false});
    looks.push_back({.caption = "accented", .mode = RenderingMode::accented});
    looks.push_back(
        {.caption = "accented with a tint", .mode = RenderingMode::accented, .tint = kTint});
    looks.push_back({.caption = "vibrant", .mode = RenderingMode::vibrant});
  }
  std::vector<Setting> settings;
  for (const Preset preset : presets) {
    for (const Setting& look : looks) {
      Setting setting = look;
      setting.preset = preset;
      setting.caption = preset == Preset::standard ? "" : foundation::nameOf(preset);
      join(setting.caption, look.caption);
      settings.push_back(std::move(setting));
    }
  }
  return settings;
}

}  // namespace cli
