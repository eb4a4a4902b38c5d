#include "Import/Places.hpp"

#include "Foundation/Bundle.hpp"
#include "Foundation/EnvironmentVariables.hpp"

namespace importer {

using foundation::baseDirectory;

namespace {

// The extension's own, where no property list says otherwise.
constexpr std::string_view kAppGroup = "group.app.quorvel.widgets";
constexpr std::string_view kUrlScheme = "quorvel-widget";

std::string setting(const foundation::Bundle& bundle,
                    std::string_view key,
                    std::string_view fallback) {
  const auto* value = bundle.objectForInfoDictionaryKey(key);
  const std::string* text = value ? value->string() : nullptr;
  return text && !text->empty() ? *text : std::string(fallback);
}

foundation::Bundle bundleNear(const std::filesystem::path& programFolder) {
  for (const char* candidate : {"Info.plist", QUORVEL_DATA "/Info.plist"}) {
    const auto path = (programFolder / candidate).lexically_normal();
    std::error_code ignored;
    if (std::filesystem::exists(path, ignored))
      return foundation::Bundle::withInformationAt(path.string());
  }
  return {};
}

}  // namespace

Places findPlaces(const foundation::ProcessEnvironment& environment,
                  const std::filesystem::path& programFolder) {
  const auto bundle = bundleNear(programFolder);
  Places places;
  places.appGroup = setting(bundle, "QuorvelAppGroup", kAppGroup);
  places.urlScheme = setting(bundle, "QuorvelURLScheme", kUrlScheme);
  const std::string settings = baseDirectory(environment, "XDG_CONFIG_HOME", ".config");
  if (!settings.empty()) places.settings = settings + "/quorvel-import/ledger.toml";
  const std::string data = baseDirectory(environment, "XDG_DATA_HOME", ".local/share");
  if (!data.empty()) places.container = data + "/" + places.appGroup;
  return places;
}

}  // namespace importer
