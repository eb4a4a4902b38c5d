#include "Cli/Sheet/SheetVariants.hpp"

#include <array>

#include "Cli/Options/Values.hpp"

namespace cli {
namespace {

using viewkit::RenderingMode;

constexpr viewkit::Rgb kTint = 0x2F8F6B;

constexpr std::array kStates{
    Scene{.caption = "amounts hidden by the application", .state = DocumentState::hidden},
    Scene{.caption = "hidden by the host", .redaction = {.privacy = true}},
    Scene{.caption = "placeholder", .redaction = {.placeholder = true}},
    Scene{.caption = "no data", .state = DocumentState::noData},
    Scene{.caption = "no document", .state = DocumentState::noDocument},
};

constexpr Scene extreme(DocumentState state) {
  return {.caption = {}, .state = state, .redaction = {}, .day = {}, .isExtreme = true};
}
constexpr Scene dayScene(std::string_view caption, std::string_view day) {
  return {.caption = caption, .day = day, .isExtreme = true};
}

constexpr std::array kExtremes{
    extreme(DocumentState::longNames),
    extreme(DocumentState::emojiNames),
    extreme(DocumentState::thaiNames),
    extreme(DocumentState::hebrewNames),
    extreme(DocumentState::hugeAmounts),
    extreme(DocumentState::tinyAmounts),
    extreme(DocumentState::longCurrency),
    extreme(DocumentState::overBudget),
    extreme(DocumentState::belowZero),
    extreme(DocumentState::oneOfEach),
    extreme(DocumentState::nineCards),
    extreme(DocumentState::noHistory),
    extreme(DocumentState::sixtyMonths),
    extreme(DocumentState::lightFaces),
    dayScene("first day of a month", "2025-03-01"),
    dayScene("last day of a month of 31", "2025-03-31"),
    dayScene("a month of 28 days", "2025-02-17"),
};

}  // namespace

void join(std::string& caption, std::string_view part) {
  if (part.empty()) return;
  if (!caption.empty()) caption += " · ";
  caption += part;
}

std::vector<Scene> scenesOf(const SheetAxes& axes) {
  std::vector<Scene> scenes{Scene{}};
  if (axes.states) scenes.insert(scenes.end(), kStates.begin(), kStates.end());
  if (axes.extremes) scenes.insert(scenes.end(), kExtremes.begin(), kExtremes.end());
  for (Scene& scene : scenes) {
    if (scene.caption.empty()) scene.caption = name(scene.state);
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
      setting.caption = preset == Preset::standard ? "" : name(preset);
      join(setting.caption, look.caption);
      settings.push_back(std::move(setting));
    }
  }
  return settings;
}

}  // namespace cli
