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

template <class T>
Result<T> said(session::Result<T> answer) {
  if (answer) return *std::move(answer);
  return refused("the extension: " + answer.error().message);
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

Guest::Guest(session::Extension extension, widgetruntime::InitializeAnswer about)
    : extension_(std::move(extension)), about_(std::move(about)) {}

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
  session::Extension extension{*std::move(connection), parameters};
  auto about = said(extension.initialize());
  if (!about) return std::unexpected(about.error());
  Guest guest{std::move(extension), *std::move(about)};
  guest.images_ = guest.about_.container;
  if (!guest.images_.empty()) guest.document_ = guest.images_ / kDocumentName;
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

Result<widgetruntime::RenderedEntry> Guest::entry(
    const widgetruntime::EntriesParameters& parameters, bool placeholder) {
  auto answer =
      said(placeholder ? extension_.placeholder(parameters) : extension_.snapshot(parameters));
  if (!answer) return std::unexpected(answer.error());
  if (answer->entries.size() != 1 ||
      answer->entries.front().trees.size() != parameters.environments.size()) {
    return refused("the extension: it answered another number of trees than it was asked for");
  }
  return std::move(answer->entries.front());
}

Result<widgetruntime::EntriesAnswer> Guest::timeline(
    const widgetruntime::EntriesParameters& parameters) {
  return said(extension_.timeline(parameters));
}

Result<widgetruntime::OptionsAnswer> Guest::options(
    const widgetruntime::OptionsParameters& parameters) {
  return said(extension_.options(parameters));
}

Result<widgetruntime::PerformAnswer> Guest::perform(
    const widgetruntime::PerformParameters& parameters) {
  return said(extension_.perform(parameters));
}

Result<widgetruntime::DiagnoseAnswer> Guest::diagnose(
    const widgetruntime::DiagnoseParameters& parameters) {
  return said(extension_.diagnose(parameters));
}

}  // namespace cli
