#include "Import/Places.hpp"

#include "Foundation/Bundle.hpp"

namespace importer {
namespace {

// The extension's own, where no property list says otherwise.
constexpr std::string_view kAppGroup = "group.app.quorvel.widgets";
constexpr std::string_view kUrlScheme = "quorvel-widget";

/// An XDG folder: the variable where it is an absolute path, else below the home folder.
std::string folder(const foundation::ProcessEnvironment& environment,
                   const std::string& variable,
                   const std::string& belowHome) {
  std::string set = valueOf(environment, variable);
  if (set.starts_with('/')) return set;
  const std::string home = valueOf(environment, "HOME");
  return home.empty() ? std::string{} : home + "/" + belowHome;
}

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

std::string valueOf(const foundation::ProcessEnvironment& environment, const std::string& name) {
  const auto found = environment.find(name);
  return found == environment.end() ? std::string{} : found->second;
}

Places findPlaces(const foundation::ProcessEnvironment& environment,
                  const std::filesystem::path& programFolder) {
  const auto bundle = bundleNear(programFolder);
  Places places;
  places.appGroup = setting(bundle, "QuorvelAppGroup", kAppGroup);
  places.urlScheme = setting(bundle, "QuorvelURLScheme", kUrlScheme);
  const std::string settings = folder(environment, "XDG_CONFIG_HOME", ".config");
  if (!settings.empty()) places.settings = settings + "/quorvel-import/ledger.toml";
  const std::string data = folder(environment, "XDG_DATA_HOME", ".local/share");
  if (!data.empty()) places.container = data + "/" + places.appGroup;
  return places;
}

}  // namespace importer
