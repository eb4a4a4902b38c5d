// `init`: settings to start from, and the folder that the widgets look into.
#include <fcntl.h>
#include <fmt/format.h>

#include <cerrno>
#include <filesystem>

#include "Foundation/FileDescriptor.hpp"
#include "Foundation/FileWriting.hpp"
#include "Foundation/Printable.hpp"
#include "Import/CommandContext.hpp"
#include "Import/Commands.hpp"
#include "Import/Result.hpp"
#include "Import/SettingsTemplate.hpp"

namespace importer {
namespace {

namespace fs = std::filesystem;

Result<void> writeSettings(const std::string& file, const std::string& text, bool replaces) {
  const int ifThere = replaces ? O_TRUNC : O_EXCL;
  const foundation::FileDescriptor target(
      ::open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | ifThere, 0600));
  if (!target && errno == EEXIST)
    return refused(fmt::format("{}: there are settings already; --force replaces them", file));
  const std::error_code error = target ? foundation::writeAll(target.get(), text)
                                       : std::error_code{errno, std::generic_category()};
  if (!error) return {};
  return refused(
      fmt::format("{}: cannot write: {}; --config names another file", file, error.message()));
}

}  // namespace

Result<void> init(const Options& options, const Program& program) {
  const CommandContext context = makePlaces(options, program);
  if (context.settingsFile.empty() || context.container.empty())
    return refused(
        "there is no home folder; name a file with --config and a folder with --container");
  const Settings none;
  const auto journal = readAccounts(context.request, none);
  if (!journal) return std::unexpected(journal.error());
  for (const fs::path& folder :
       {fs::path(context.settingsFile).parent_path(), fs::path(context.container)}) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (error)
      return refused(fmt::format("{}: cannot make it: {}", folder.string(), error.message()));
  }
  if (auto written = writeSettings(
          context.settingsFile, settingsTemplate(journal->accounts.types), options.force);
      !written)
    return written;
  return print(fmt::format("settings   {}\ncontainer  {}\n",
                           foundation::printable(context.settingsFile),
                           foundation::printable(context.container)));
}

}  // namespace importer
