#include "Resident/Program.hpp"

#include <fmt/format.h>
#include <unistd.h>

#include <csignal>
#include <memory>
#include <optional>
#include <tuple>

#include "Foundation/Device.hpp"
#include "Foundation/FileWriting.hpp"
#include "Foundation/Printable.hpp"
#include "Resident/Board.hpp"
#include "Resident/ControlServer.hpp"
#include "Resident/ExtensionAsker.hpp"
#include "Resident/FolderWatch.hpp"
#include "Resident/Links.hpp"
#include "Resident/Listening.hpp"
#include "Resident/Logind.hpp"
#include "Resident/Operations.hpp"
#include "Resident/RendererPictureMaker.hpp"
#include "Session/ChildProcess.hpp"
#include "Session/Places.hpp"

namespace resident {
namespace {

using foundation::ProcessEnvironment;
using surfaces::PictureFolder;

void logLine(const std::string& line) {
  std::ignore =
      foundation::writeAll(STDERR_FILENO, "quorvel-hostd: " + foundation::printable(line) + "\n");
}

widgetruntime::InitializeParameters initializeParameters(const HostOptions& options,
                                                         const session::Places& places,
                                                         const ProcessEnvironment& environment) {
  widgetruntime::InitializeParameters parameters{.host = "quorvel-hostd 1.0"};
  parameters.containerRoot = session::containerRoot(environment);
  if (!options.container.empty()) parameters.container = session::absolutePath(options.container);
  if (!places.infoPlist.empty()) parameters.infoPlist = places.infoPlist.string();
  return parameters;
}

/// The container and the folders of images in it; inotify does not descend.
class ContainerWatch {
 public:
  ContainerWatch(Loop& loop, const std::string& container, const std::function<void()>& onChange)
      : document_(
            loop,
            container,
            [](std::string_view name) {
              return name == session::kDocumentName || name == "widget-cards" ||
                     name == "widget-brands";
            },
            onChange),
        cards_(
            loop, container + "/widget-cards", [](std::string_view) { return true; }, onChange),
        brands_(
            loop, container + "/widget-brands", [](std::string_view) { return true; }, onChange) {}

 private:
  FolderWatch document_;
  FolderWatch cards_;
  FolderWatch brands_;
};

class Program {
 public:
  Program(const HostOptions& options,
          const ProcessEnvironment& environment,
          const session::Places& places,
          const control::Paths& paths,
          Listening listening,
          std::optional<Placements> placements);

  int run();

 private:
  void watchContainer(const std::string& container);
  void watchSession();
  Reloader::DeviceAt deviceAt();

  ProcessEnvironment environment_;
  std::string socketToRemove_;
  foundation::FileDescriptor lock_;
  Loop loop_;
  Watch terminate_;
  Watch interrupt_;
  SystemClock clock_;
  ExtensionAsker asker_;
  RendererPictureMaker pictureMaker_;
  Links links_;
  std::unique_ptr<PictureFolder> pictures_;
  Resident host_;
  Watchers watchers_;
  Operations operations_;
  Board board_;
  ControlServer server_;
  FolderWatch zone_;
  std::optional<ContainerWatch> container_;
  std::optional<Logind> logind_;
};

Program::Program(const HostOptions& options,
                 const ProcessEnvironment& environment,
                 const session::Places& places,
                 const control::Paths& paths,
                 Listening listening,
                 std::optional<Placements> placements)
    : environment_(environment),
      socketToRemove_(listening.isOurs ? paths.socket() : std::string{}),
      lock_(std::move(listening.lock)),
      terminate_(loop_.onSignal(SIGTERM, [this] { loop_.quit(); })),
      interrupt_(loop_.onSignal(SIGINT, [this] { loop_.quit(); })),
      clock_(loop_),
      asker_(loop_,
             std::make_unique<session::ChildProcess>(session::ChildProcessOptions{
                 .program = places.extension.string(),
                 .environment = session::childEnvironment(environment)}),
             initializeParameters(options, places, environment)),
      pictureMaker_(loop_, paths.pictures()),
      links_(loop_),
      host_({.loop = loop_,
             .clock = clock_,
             .asker = asker_,
             .pictureMaker = pictureMaker_,
             .file = PlacementsFile{paths.placements()},
             .device = deviceAt(),
             .log = logLine},
            std::move(placements)),
      watchers_(host_),
      operations_(host_, asker_, watchers_),
      board_({.loop = loop_,
              .host = host_,
              .asker = asker_,
              .pictureMaker = pictureMaker_,
              .device = deviceAt()}),
      server_(loop_,
              std::move(listening.listener),
              ::getuid(),
              [this](auto client, const auto& method, const auto& parameters, auto reply) {
                operations_.handle(client, method, parameters, std::move(reply));
              }),
      zone_(
          loop_,
          "/etc",
          [](std::string_view name) { return name == "localtime" || name == "timezone"; },
          [this] { host_.zoneChanged(); }) {
  if (!options.pictures.empty()) {
    pictures_ = std::make_unique<PictureFolder>(options.pictures, options.look);
    host_.addSurface(*pictures_);
  }
  host_.addSurface(watchers_);
  host_.openLink = [this](const auto& link, auto then) { links_.open(link, std::move(then)); };
  host_.onOffer = [this](const auto& offer) { watchContainer(offer.container); };
  host_.onPlacements = [this] {
    watchers_.refresh();
    board_.tellState();
  };
  host_.onPrivacy = [this] { board_.tellState(); };
  operations_.openBoard = [this] { return board_.open(); };
  watchers_.tell = [this](auto client, const auto& json) {
    server_.notify(client, "summary", json);
  };
  server_.onGone = [this](auto client) { watchers_.leave(client); };
}

int Program::run() {
  host_.start();
  watchSession();
  sayReady();
  loop_.run();
  host_.finish();
  if (!socketToRemove_.empty()) ::unlink(socketToRemove_.c_str());
  // Nobody waits for an extension that hangs: it ends with this process.
  if (!asker_.isIdle()) ::_exit(0);
  return 0;
}

Reloader::DeviceAt Program::deviceAt() {
  return [this](foundation::Instant now) {
    return foundation::Device{.now = now,
                              .timeZone = foundation::currentTimeZone(environment_),
                              .locale = foundation::currentLocale(environment_),
                              .preferredLanguages = foundation::preferredLanguages(environment_)};
  };
}

void Program::watchContainer(const std::string& container) {
  if (container.empty()) return;
  container_.emplace(loop_, container, [this] { host_.documentChanged(); });
}

void Program::watchSession() {
  logind_.emplace(
      loop_,
      SessionEvents{
          .onLocked =
              [this](bool locked) {
                host_.sessionProblem.clear();
                host_.withPrivacy([&](Privacy& privacy) { privacy.setLocked(locked); });
              },
          .onGoingToSleep =
              [this] { host_.withPrivacy([](Privacy& privacy) { privacy.setGoingToSleep(); }); },
          .onScreenSaver =
              [this](bool active) {
                host_.withPrivacy([&](Privacy& privacy) { privacy.setScreenSaver(active); });
              },
          .onWithoutSession =
              [this](const std::string& why) {
                host_.sessionProblem = why;
                host_.withPrivacy([](Privacy& privacy) { privacy.setWithoutSession(); });
              }});
}

}  // namespace

int run(const HostOptions& options,
        const ProcessEnvironment& environment,
        const std::filesystem::path& programFolder) {
  const session::Places places =
      session::findPlaces(options.extension, options.infoPlist, programFolder);
  if (places.extension.empty()) {
    logLine(
        fmt::format("the extension's program quorvel-widgets is not beside {}; name it with "
                    "--extension",
                    (programFolder / "quorvel-hostd").string()));
    return 1;
  }
  const control::Paths paths = control::pathsFrom(environment);
  if (paths.config.empty()) {
    logLine("neither HOME nor XDG_CONFIG_HOME is set, so there is no place for placements");
    return 1;
  }
  auto listening = listenAt(paths);
  if (!listening) {
    logLine(listening.error());
    return 1;
  }
  auto loaded = PlacementsFile{paths.placements()}.load();
  if (!loaded) {
    logLine(loaded.error());
    return 1;
  }
  if (!loaded->warning.empty()) logLine(loaded->warning);
  Program program{
      options, environment, places, paths, *std::move(listening), std::move(loaded->placements)};
  return program.run();
}

}  // namespace resident
