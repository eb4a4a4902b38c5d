#include "Cli/Guest.hpp"

#include <fmt/format.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <memory>

#include "Control/KindName.hpp"
#include "Foundation/FileManager.hpp"
#include "Foundation/PropertyList.hpp"
#include "Session/ChildProcess.hpp"
#include "Session/InProcess.hpp"

namespace cli {
namespace {

namespace fs = std::filesystem;

Result<void> checkDocument(const std::string& file) {
  struct stat status {};
  if (::stat(file.c_str(), &status) != 0)
    return refused(fmt::format("cannot read {}: {}", file, std::strerror(errno)));
  if (!S_ISREG(status.st_mode))
    return refused(fmt::format("cannot read {}: not a regular file", file));
  return {};
}

std::unique_ptr<session::Transport> inProcess(const Program& program) {
  return std::make_unique<session::InProcess>(
      [definition = program.extension]() -> session::InProcess::Handler {
        auto dispatcher = std::make_shared<widgetruntime::Dispatcher>(definition);
        return [dispatcher](std::string_view request) { return dispatcher->handle(request); };
      });
}

Result<std::unique_ptr<session::Transport>> transport(const SourceOptions& source,
                                                      const Program& program) {
  if (!source.isolated) return inProcess(program);
  const fs::path extension = findPlaces(source, program.folder).extension;
  if (extension.empty()) {
    return refused(fmt::format(
        "the extension's program quorvel-widgets is not beside {}; name it with --extension",
        (program.folder / "quorvel-host").string()));
  }
  return std::make_unique<session::ChildProcess>(
      session::ChildProcessOptions{.program = extension.string(),
                                   .environment = session::childEnvironment(program.environment)});
}

}  // namespace

session::Places findPlaces(const SourceOptions& source, const fs::path& programFolder) {
  return session::findPlaces(source.extension, source.infoPlist, programFolder);
}

widgetruntime::InitializeParameters initializeParameters(const SourceOptions& source,
                                                         const Program& program) {
  widgetruntime::InitializeParameters parameters;
  parameters.host = "quorvel-host 1.0";
  if (!source.container.empty()) parameters.container = session::absolutePath(source.container);
  if (!source.snapshot.empty()) parameters.snapshotFile = session::absolutePath(source.snapshot);
  // A document of its own has nothing to do with the application's container.
  if (source.snapshot.empty()) {
    parameters.containerRoot = session::containerRoot(program.environment);
  }
  const fs::path infoPlist = findPlaces(source, program.folder).infoPlist;
  if (!infoPlist.empty()) parameters.infoPlist = infoPlist.string();
  return parameters;
}

Guest::Guest(session::ExtensionClient client, widgetruntime::InitializeAnswer about)
    : client_(std::move(client)), about_(std::move(about)) {}

std::string informationProblem(const fs::path& infoPlist) {
  if (infoPlist.empty()) return "there is none";
  const auto bytes = foundation::readFile(infoPlist.string(), foundation::kMaximumPropertyList);
  if (!bytes) return std::string(foundation::describe(bytes.error()));
  const auto list = foundation::parsePropertyList(*bytes);
  return list && list->dictionary() ? std::string{} : "no property list";
}

Result<Guest> Guest::open(const SourceOptions& source,
                          const Program& program,
                          const std::vector<std::string>& languages) {
  if (!source.infoPlist.empty()) {
    if (const auto problem = informationProblem(source.infoPlist); !problem.empty())
      return refused(fmt::format("cannot read {}: {}", source.infoPlist, problem));
  }
  if (!source.snapshot.empty()) {
    if (auto readable = checkDocument(source.snapshot); !readable)
      return std::unexpected(readable.error());
  }
  auto connection = transport(source, program);
  if (!connection) return std::unexpected(connection.error());
  auto parameters = initializeParameters(source, program);
  parameters.preferredLanguages = languages;
  session::ExtensionClient client{*std::move(connection), parameters};
  auto about = said(client.initialize());
  if (!about) return std::unexpected(about.error());
  Guest guest{std::move(client), *std::move(about)};
  guest.images_ = guest.about_.container;
  if (!guest.images_.empty()) guest.document_ = guest.images_ / session::kDocumentName;
  if (parameters.snapshotFile) {
    guest.document_ = *parameters.snapshotFile;
    if (guest.images_.empty()) guest.images_ = guest.document_.parent_path();
  }
  return guest;
}

Result<const widgetruntime::WidgetListing*> Guest::widget(const std::string& kind) const {
  std::string kinds;
  for (const auto& listing : about_.bundle.widgets) {
    if (control::namesKind(kind, listing.description.kind)) return &listing;
    kinds += (kinds.empty() ? "" : ", ") + listing.description.kind;
  }
  return refused(fmt::format("there is no widget \"{}\" (there are: {})", kind, kinds));
}

}  // namespace cli
