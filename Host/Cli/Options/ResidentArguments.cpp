#include "Cli/Options/ResidentArguments.hpp"

#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include "Cli/Options/ArgumentParts.hpp"

namespace cli {
namespace {

void addId(CLI::App& app, Options& options) {
  app.add_option("ID", options.host.target, "A placed widget's id, as `status` names it")
      ->required();
}

CLI::Option* addTarget(CLI::App& app, Options& options) {
  return app.add_option(
      "TARGET", options.host.target, "An id such as w1, or a kind such as safe-to-spend");
}

}  // namespace

void describeStatus(CLI::App& app, Options& options) {
  addJson(app, options);
}

void describeReload(CLI::App& app, Options& options) {
  addTarget(app, options);
}

void describeHide(CLI::App& app, Options& options) {
  app.add_option_function<std::string>(
         "HOW",
         [&options](const std::string& how) {
           const auto hide = foundation::named<control::Hide>(how);
           if (!hide) {
             throw CLI::ValidationError("HOW", fmt::format("\"{}\" is not on, off or toggle", how));
           }
           options.host.hide = *hide;
         },
         "on, off or toggle")
      ->required();
}

void describeAdd(CLI::App& app, Options& options) {
  addKind(app, options);
  addFamily(app, options.picture);
  addConfiguration(app, options.picture);
}

void describeRemove(CLI::App& app, Options& options) {
  addId(app, options);
}

void describeConfigure(CLI::App& app, Options& options) {
  addId(app, options);
  addFamily(app, options.picture);
  addConfiguration(app, options.picture);
}

void describeMove(CLI::App& app, Options& options) {
  addId(app, options);
  app.add_option("COLUMN", options.host.column, "Counted from 0")->required();
  app.add_option("ROW", options.host.row, "Counted from 0")->required();
  app.add_option("--output", options.host.output, "A desktop's output; else the board's cell")
      ->type_name("NAME");
}

void describeOpen(CLI::App& app, Options& options) {
  addTarget(app, options)->required();
  app.add_option("--region", options.host.region, "An element's link, counted from 0")
      ->type_name("N");
}

void describeBoard(CLI::App& app, Options& options) {
  app.add_flag_callback(
      "--no-open", [&options] { options.open = false; }, "Print the page's address instead");
}

void describeWatch(CLI::App& app, Options& options) {
  addTarget(app, options)->required();
  app.add_option_function<std::string>(
         "--format",
         [&options](const std::string& name) {
           const auto format = foundation::named<surfaces::BarFormat>(name);
           if (!format) {
             throw CLI::ValidationError(
                 "--format",
                 fmt::format(
                     "\"{}\" is not a format (waybar, i3bar, i3blocks, polybar, plain, json)",
                     name));
           }
           options.host.format = *format;
         },
         "waybar, i3bar, i3blocks, polybar, plain (unless given) or json")
      ->type_name("NAME")
      ->group("Output");
}

}  // namespace cli
