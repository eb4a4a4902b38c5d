#include "Cli/Options/Arguments.hpp"

#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <array>
#include <functional>

#include "Cli/Commands/Commands.hpp"
#include "Cli/Options/ArgumentParts.hpp"
#include "Cli/Options/ResidentArguments.hpp"
#include "Cli/Options/Values.hpp"
#include "Foundation/Locale.hpp"

namespace cli {
namespace {

struct Command {
  std::string_view name;
  std::string_view summary;
  std::string_view examples;
  void (*describe)(CLI::App&, Options&);
  Result<void> (*run)(const Options&, const Program&);
};

void describeList(CLI::App& app, Options& options) {
  addJson(app, options);
  addLanguages(app, options.device.languages, "Of the names, by preference: de,en", "Device");
  addSource(app, options.source);
}

void describeRender(CLI::App& app, Options& options) {
  addKind(app, options);
  addPicture(app, options);
  addFormat(app, options);
  addIdPrefix(app, options.output);
  addPng(app, options.output);
  addOutput(app, options.output);
  addDevice(app, options.device);
  addSource(app, options.source);
}

void describeSheet(CLI::App& app, Options& options) {
  app.add_option("KIND", options.kinds, "These kinds only");
  const auto addAxis = [&](const char* flag, bool& axis, const char* also) {
    app.add_flag(flag, axis, std::string("Also ") + also)->group("Axes");
  };
  addAxis("--states",
          options.axes.states,
          "amounts hidden by the application and by the host, placeholder, no data, no document");
  addAxis("--extremes",
          options.axes.extremes,
          "long and foreign names, huge and tiny amounts, one and nine cards, first and last days "
          "of a month");
  addAxis("--modes", options.axes.modes, "without background, accented and vibrant");
  addAxis(
      "--accessories", options.axes.accessories, "accessory families with a layout of their own");
  addAxis("--components", options.axes.components, "the parts that widgets share");
  addAxis("--presets", options.axes.presets, "the compact and stress sizes");
  addLanguages(app, options.axes.languages, "Each of these: de,ja,ar; or all", "Axes");
  addFamily(app, options.picture);
  addConfiguration(app, options.picture);
  addPreview(app, options.picture);
  addDrawing(app, options.picture);
  addPng(app, options.output);
  addOutput(app, options.output);
  addNowAndPlace(app, options.device);
  addSource(app, options.source);
}

void describeGallery(CLI::App& app, Options& options) {
  app.add_option("DIR", options.folder, "Where to; it is made when it is not there")->required();
  app.add_option("--lang", options.language, "Of the sample document, such as de")
      ->type_name("CODE")
      ->group("Extension and data");
  app.add_option("--beside", options.beside, "A second document, drawn in the first section")
      ->type_name("FILE")
      ->group("Extension and data");
  addScale(app,
           options.picture,
           "Pixels per point of the first contact sheet, 2 unless given; the others have half",
           "Output");
  addPng(app, options.output);
  addNowAndPlace(app, options.device);
  addSource(app, options.source);
}

void describeTimeline(CLI::App& app, Options& options) {
  addKind(app, options);
  addJson(app, options);
  addFamily(app, options.picture);
  addConfiguration(app, options.picture);
  addDevice(app, options.device);
  addSource(app, options.source);
}

void describeOptions(CLI::App& app, Options& options) {
  addKind(app, options);
  app.add_option("PARAMETER", options.parameter, "A parameter, as `list` names it")->required();
  addJson(app, options);
  addSource(app, options.source);
}

void describeValidate(CLI::App& app, Options& options) {
  app.add_option("FILE", options.files, "Documents")->required();
  addJson(app, options);
  addDevice(app, options.device);
  addSource(app, options.source);
}

void describeSample(CLI::App& app, Options& options) {
  app.add_option("--lang", options.language, "Of the document's texts, such as de")
      ->type_name("CODE");
  addOutput(app, options.output);
  addDevice(app, options.device);
}

void describePerform(CLI::App& app, Options& options) {
  app.add_option("INTENT", options.intent, "An intent, as `list` names it")->required();
  auto* keep = app.add_flag_callback(
      "--no-open", [&options] { options.open = false; }, "Print the link instead");
  app.add_option("--open-with", options.openWith, "Hand the link to this program")
      ->type_name("CMD")
      ->excludes(keep);
  addSource(app, options.source);
}

void describeBench(CLI::App& app, Options& options) {
  options.kind = "QuorvelSpendingWidget";
  app.add_option("--kind", options.kind, "What to draw: QuorvelSpendingWidget unless given")
      ->type_name("KIND")
      ->group("Measuring");
  addCount(app, "--images", options.images, 1, "Images that count, 200 unless given");
  addCount(app, "--warmup", options.warmup, 0, "Images before them, 60 unless given");
  addPicture(app, options);
  addPng(app, options.output);
  addDevice(app, options.device);
  addSource(app, options.source);
}

void describeDoctor(CLI::App& app, Options& options) {
  addJson(app, options);
  addSource(app, options.source);
}

constexpr std::array kCommands{
    Command{
        "list", "what the extension offers", "  quorvel-host list --json\n", describeList, list},
    Command{"render",
            "one widget as a picture, SVG, text or tree",
            "  quorvel-host render QuorvelSpendingWidget --family systemMedium -o spending.png\n"
            "  quorvel-host render QuorvelDueWidget --snapshot widget-snapshot.json --format text\n"
            "  quorvel-host render QuorvelSafeToSpendWidget --configure style=ring --appearance "
            "dark -o ring.png\n",
            describeRender,
            render},
    Command{"sheet",
            "every widget on one picture",
            "  quorvel-host sheet -o sheet.png\n"
            "  quorvel-host sheet QuorvelDueWidget --states --languages en,ja,ar -o due.png\n",
            describeSheet,
            sheet},
    Command{"gallery",
            "every widget in every state: a page and contact sheets",
            "  quorvel-host gallery gallery\n"
            "  quorvel-host gallery gallery --snapshot Examples/household.json --now "
            "2025-03-14T09:30:00Z\n",
            describeGallery,
            gallery},
    Command{"timeline",
            "the entries of a widget and when it is asked again",
            "  quorvel-host timeline QuorvelDueWidget --now 2025-03-14T22:59:59Z --time-zone "
            "Europe/Berlin\n",
            describeTimeline,
            timeline},
    Command{"options",
            "the choices that a widget's parameter has",
            "  quorvel-host options QuorvelCardLimitWidget card\n",
            describeOptions,
            choices},
    Command{"validate",
            "whether documents are accepted, and what is wrong with them",
            "  quorvel-host validate widget-snapshot.json\n",
            describeValidate,
            validate},
    Command{"sample",
            "a complete document to start from",
            "  quorvel-host sample --lang de -o widget-snapshot.json\n",
            describeSample,
            sample},
    Command{"perform",
            "run an intent in the extension, then open the application",
            "  quorvel-host perform AddExpenseIntent --no-open\n",
            describePerform,
            perform},
    Command{"status",
            "what the resident host shows, and the state of each widget",
            "  quorvel-host status\n",
            describeStatus,
            status},
    Command{"reload",
            "ask the extension anew, for one widget or for all",
            "  quorvel-host reload\n"
            "  quorvel-host reload net-worth\n",
            describeReload,
            reload},
    Command{"hide",
            "hide amounts, or show them again",
            "  quorvel-host hide toggle\n",
            describeHide,
            hide},
    Command{"add",
            "place one more widget; its id is printed",
            "  quorvel-host add safe-to-spend --configure style=ring\n",
            describeAdd,
            add},
    Command{"remove",
            "take a widget away",
            "  quorvel-host remove w6\n",
            describeRemove,
            removePlacement},
    Command{"configure",
            "give a placed widget another family or other choices",
            "  quorvel-host configure w1 --family systemMedium\n",
            describeConfigure,
            configure},
    Command{"move",
            "put a widget into another cell",
            "  quorvel-host move w1 0 2\n"
            "  quorvel-host move w1 0 2 --output DP-1\n",
            describeMove,
            move},
    Command{"open", "open what a widget links to", "  quorvel-host open due\n", describeOpen, open},
    Command{"board",
            "open the page on which the widgets live",
            "  quorvel-host board\n",
            describeBoard,
            board},
    Command{"watch",
            "a widget's line for a status bar, whenever it changes",
            "  quorvel-host watch safe-to-spend --format waybar\n",
            describeWatch,
            watch},
    Command{"bench",
            "measure drawing, stage by stage",
            "  quorvel-host bench --snapshot widget-snapshot.json --images 200\n",
            describeBench,
            bench},
    Command{"doctor",
            "what is found, what is missing and what to do",
            "  quorvel-host doctor\n",
            describeDoctor,
            doctor},
};

const Command* commandNamed(std::string_view name) {
  for (const Command& command : kCommands) {
    if (command.name == name) return &command;
  }
  return nullptr;
}

std::string helpOf(CLI::App& app, const Command& command) {
  return app.help() + "\nExamples:\n" + std::string(command.examples);
}

}  // namespace

std::string overview() {
  std::string text =
      "quorvel-host: draws and explains the widgets of an extension\n\nusage: quorvel-host COMMAND "
      "...\n\n";
  for (const Command& command : kCommands)
    text += fmt::format("  {:<10}{}\n", command.name, command.summary);
  text += "\n`quorvel-host COMMAND --help` shows a command's options and examples.\n";
  return text;
}

Result<Arguments> readArguments(std::string_view name, std::span<const char* const> words) {
  const Command* command = commandNamed(name);
  if (!command)
    return misused(fmt::format("quorvel-host: there is no command \"{}\" (try --help)", name));
  Arguments arguments{.run = command->run};
  CLI::App app{std::string(command->summary), fmt::format("quorvel-host {}", name)};
  app.get_formatter()->column_width(28);
  command->describe(app, arguments.options);
  // CLI11 takes the words last first.
  std::vector<std::string> reversed(words.rbegin(), words.rend());
  try {
    app.parse(std::move(reversed));
  } catch (const CLI::CallForHelp&) {
    arguments.help = helpOf(app, *command);
  } catch (const CLI::ParseError& error) {
    return misused(fmt::format("quorvel-host {}: {} (try --help)", name, error.what()));
  }
  return arguments;
}

}  // namespace cli
