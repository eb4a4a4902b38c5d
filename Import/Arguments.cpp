#include "Import/Arguments.hpp"

#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <array>
#include <string_view>

#include "Import/Explain.hpp"

namespace importer {
namespace {

struct Command {
  std::string_view name;
  std::string_view does;
};
constexpr std::array kCommands{
    Command{"hledger", "makes the widgets' document from a journal"},
    Command{"check", "says what is found, what is missing and what each widget will show"},
    Command{"explain", "the postings and balances behind every figure, as tables"},
    Command{"init", "writes settings to start from, with the journal's accounts"},
    Command{"open", "opens what a widget's link stands for"},
};

void addJournal(CLI::App& app, Options& options) {
  app.add_option("-f,--file", options.file, "The journal; else $LEDGER_FILE or ~/.hledger.journal")
      ->type_name("JOURNAL");
  app.add_option("--config",
                 options.config,
                 "The settings; else quorvel-import/ledger.toml below ~/.config")
      ->type_name("FILE");
}

void addContainer(CLI::App& app, Options& options) {
  app.add_option("--container", options.container, "The folder of the document")->type_name("DIR");
}

void addFigure(CLI::App& app, Options& options) {
  app.add_option("FIGURE", options.figure, fmt::format("One of {}", fmt::join(kFigures, ", ")))
      ->check([](const std::string& word) {
        const bool isFigure = std::ranges::find(kFigures, word) != std::end(kFigures);
        return isFigure
                   ? std::string{}
                   : fmt::format("\"{}\" is not a figure ({})", word, fmt::join(kFigures, ", "));
      });
}

void addOptions(CLI::App& app, std::string_view command, Options& options) {
  addJournal(app, options);
  if (command == "explain") {
    addFigure(app, options);
    return;
  }
  if (command != "check") addContainer(app, options);
  if (command == "hledger")
    app.add_flag(
        "--watch", options.watch, "Stay, and make it anew on every change and at midnight");
  if (command == "hledger")
    app.add_flag("--force", options.force, "Replace a document that somebody else wrote");
  if (command == "init") app.add_flag("--force", options.force, "Replace the settings");
  if (command == "open")
    app.add_option("URL", options.url, "Such as quorvel-widget://open/budget")->required();
}

}  // namespace

std::string overview() {
  std::string text =
      "usage: quorvel-import COMMAND [OPTION...]\n\nWidgets for a plain-text ledger.\n\n";
  for (const auto& [name, does] : kCommands) text += fmt::format("  {:<9} {}\n", name, does);
  return text + "\n`quorvel-import COMMAND --help` shows a command's options.\n";
}

Result<Arguments> readArguments(std::span<const char* const> words) {
  const std::string_view name = words.front();
  const auto* command = std::ranges::find(kCommands, name, &Command::name);
  if (command == kCommands.end()) {
    return misused(
        fmt::format("quorvel-import: no command \"{}\"; `quorvel-import --help` lists them", name));
  }
  Arguments arguments{.command = std::string(name), .options = {}, .help = {}};
  CLI::App app(std::string(command->does), "quorvel-import " + arguments.command);
  app.get_formatter()->column_width(26);
  addOptions(app, name, arguments.options);
  std::vector<std::string> rest(words.begin() + 1, words.end());
  std::ranges::reverse(rest);  // CLI11 takes them from the back
  try {
    app.parse(std::move(rest));
  } catch (const CLI::CallForHelp&) {
    arguments.help = app.help();
  } catch (const CLI::ParseError& error) {
    return misused(fmt::format("quorvel-import {}: {}", name, error.what()));
  }
  return arguments;
}

}  // namespace importer
