#include "Import/Places.hpp"

#include "Foundation/Bundle.hpp"
#include "Foundation/EnvironmentVariables.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/AppGroup.hpp"

namespace importer {

using foundation::baseDirectory;

namespace {

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
  const quorvel::AppGroup group(bundleNear(programFolder));
  Places places;
  places.appGroup = group.identifier;
  places.urlScheme = group.urlScheme;
  const std::string settings = baseDirectory(environment, "XDG_CONFIG_HOME", ".config");
  if (!settings.empty()) places.settings = settings + "/quorvel-import/ledger.toml";
  const std::string data = baseDirectory(environment, "XDG_DATA_HOME", ".local/share");
  if (!data.empty()) places.container = data + "/" + places.appGroup;
  return places;
}

}  // namespace importer
