#include "Resident/HostOptions.hpp"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <vector>

namespace resident {

std::expected<HostOptions, OptionsEnd> readOptions(std::span<const char* const> words) {
  HostOptions options;
  CLI::App app{"keeps widgets up to date, for bars, the board and whatever else shows them",
               "quorvel-hostd"};
  app.add_option("--container", options.container, "The application group's own folder")
      ->type_name("DIR");
  app.add_option("--extension", options.extension, "The extension's program")->type_name("PATH");
  app.add_option("--info-plist", options.infoPlist, "Its property list")->type_name("PATH");
  app.add_option("--pictures",
                 options.pictures,
                 "Keep each placed widget as ID.png in this folder; amounts show unless hidden")
      ->type_name("DIR");
  app.add_option(
         "--scale", options.look.scale, "Pixels per point of these pictures, 2 unless given")
      ->check(CLI::Range(0.5, 8.0))
      ->type_name("N");
  app.add_flag_callback(
      "--dark",
      [&options] { options.look.appearance = viewkit::Appearance::dark; },
      "Draw these pictures dark");
  // CLI11 takes the words last first.
  std::vector<std::string> reversed(words.rbegin(), words.rend());
  try {
    app.parse(std::move(reversed));
  } catch (const CLI::CallForHelp&) {
    return std::unexpected(OptionsEnd{0, app.help()});
  } catch (const CLI::ParseError& error) {
    return std::unexpected(OptionsEnd{2, std::string(error.what()) + " (try --help)"});
  }
  return options;
}

}  // namespace resident
