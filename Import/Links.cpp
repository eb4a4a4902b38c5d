#include "Import/Links.hpp"

#include <fmt/format.h>
#include <sys/wait.h>

#include <algorithm>
#include <cerrno>

#include "Foundation/Spawn.hpp"
#include "Foundation/UserDefaults.hpp"

namespace importer {

Result<std::string> destinationOf(std::string_view url, std::string_view urlScheme) {
  const std::string start = std::string(urlScheme) + "://";
  if (!url.starts_with(start))
    return refused(fmt::format("\"{}\" is no {}:// link", url, urlScheme));
  std::string_view path = url.substr(start.size());
  if (path.starts_with("open")) path.remove_prefix(4);
  if (path.starts_with('/')) path.remove_prefix(1);
  if (path.ends_with('/')) path.remove_suffix(1);
  if (path.starts_with("card/")) path = "cards";
  const bool isKnown =
      path.empty() || std::ranges::find(kDestinations, path) != std::end(kDestinations);
  if (isKnown) return std::string(path);
  return refused(fmt::format("\"{}\" leads nowhere; known are {}, each behind {}open/",
                             url,
                             fmt::join(kDestinations, ", "),
                             start));
}

Result<bool> takePendingAddExpense(const std::string& container, const std::string& appGroup) {
  const auto files = foundation::FileManager::withContainer(container);
  const auto suite = foundation::UserDefaults::initWithSuiteName(appGroup, files);
  if (!suite || !suite->boolForKey(kPendingAddExpenseKey)) return false;
  if (suite->setBool(false, std::string(kPendingAddExpenseKey))) return true;
  return refused(
      fmt::format("{}: cannot clear {}; the file must be a property list that you may write",
                  suite->path(),
                  kPendingAddExpenseKey));
}

std::optional<std::string> commandFor(std::string_view destination, const Settings& settings) {
  const auto found = settings.open.find(std::string(destination));
  return found == settings.open.end() ? std::nullopt : std::optional(found->second);
}

Result<void> runCommand(const std::string& command, const std::string& argument) {
  const auto child = foundation::spawn({"/bin/sh", "-c", command, "quorvel-import", argument});
  if (!child) return refused("cannot run /bin/sh: " + child.error().message());
  int status = 0;
  while (::waitpid(*child, &status, 0) < 0 && errno == EINTR) {
  }
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return {};
  return refused(fmt::format("`{}` failed (status {}); [open] in the settings names another",
                             command,
                             WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status)));
}

}  // namespace importer
