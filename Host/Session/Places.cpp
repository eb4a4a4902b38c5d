#include "Session/Places.hpp"

#include <initializer_list>
#include <utility>

#include "Foundation/EnvironmentVariables.hpp"

namespace session {
namespace {

namespace fs = std::filesystem;

fs::path firstThatExists(std::initializer_list<fs::path> candidates) {
  for (const fs::path& candidate : candidates) {
    std::error_code ignored;
    if (fs::exists(candidate, ignored)) return candidate;
  }
  return {};
}

}  // namespace

Places findPlaces(const std::string& extension,
                  const std::string& infoPlist,
                  const fs::path& programFolder) {
  Places places;
  places.extension = !extension.empty() ? fs::path(absolutePath(extension))
                                        : findProgram("quorvel-widgets", programFolder);
  const fs::path beside = places.extension.empty() ? programFolder : places.extension.parent_path();
  places.infoPlist =
      !infoPlist.empty()
          ? fs::path(absolutePath(infoPlist))
          : firstThatExists({beside / "Info.plist",
                             programFolder / "Info.plist",
                             (programFolder / QUORVEL_DATA / "Info.plist").lexically_normal()});
  return places;
}

fs::path findProgram(std::string_view name, const fs::path& programFolder) {
  return firstThatExists(
      {programFolder / name, (programFolder / QUORVEL_LIBEXEC / name).lexically_normal()});
}

std::optional<std::string> containerRoot(const foundation::ProcessEnvironment& environment) {
  std::string folder = foundation::baseDirectory(environment, "XDG_DATA_HOME", ".local/share");
  return folder.empty() ? std::nullopt : std::optional(std::move(folder));
}

std::string absolutePath(const std::string& path) {
  std::error_code ignored;
  const fs::path full = fs::absolute(path, ignored);
  return full.empty() ? path : full.lexically_normal().string();
}

}  // namespace session
