#include "Cli/Arguments.hpp"

#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <array>
#include <functional>

#include "Cli/Values.hpp"
#include "Foundation/Locale.hpp"

namespace cli {
namespace {

/// An option whose text `read` turns into a value; `form` is what is expected, in words.
template <class Read, class Store>
CLI::Option* addValue(CLI::App& app,
                      const std::string& flag,
                      const std::string& help,
                      const std::string& placeholder,
                      const std::string& form,
                      Read read,
                      Store store) {
  return app
      .add_option_function<std::string>(
          flag,
          [flag, form, read, store](const std::string& text) {
            auto value = read(text);
            if (!value)
              throw CLI::ValidationError(flag, fmt::format("\"{}\" is not {}", text, form));
            store(*std::move(value));
          },
          help)
      ->type_name(placeholder);
}

template <class Value>
auto into(Value& target) {
  return [&target](auto&& value) { target = std::forward<decltype(value)>(value); };
}

auto within(double least, double most) {
  return [least, most](std::string_view text) {
    auto value = numberFrom(text);
    return value && *value >= least && *value <= most ? value : std::nullopt;
  };
}

void addSource(CLI::App& app, SourceOptions& source) {
  const std::string group = "Extension and data";
  auto* container =
      app.add_option("--container", source.container, "The application group's own folder");
  auto* snapshot = app.add_option("--snapshot", source.snapshot, "One document, wherever it lies");
  container->type_name("DIR")->group(group)->excludes(snapshot);
  snapshot->type_name("FILE")->group(group);
  app.add_flag("--isolated", source.isolated, "Run the extension as a child process")->group(group);
  app.add_option("--extension", source.extension, "The extension's program")
      ->type_name("PATH")
      ->group(group);
  app.add_option("--info-plist", source.infoPlist, "Its property list")
      ->type_name("PATH")
      ->group(group);
}

void addNowAndPlace(CLI::App& app, DeviceOptions& device) {
  const std::string group = "Device";
  addValue(app,
           "--now",
           "The present; else the clock",
           "DATE-TIME",
           "a date-time such as 2025-03-14T09:30:00Z",
           foundation::parseInternetDateTime,
           into(device.now))
      ->group(group);
  addValue(
      app,
      "--time-zone",
      "Such as Europe/Berlin",
      "ZONE",
      "a time zone such as Europe/Berlin",
      [](const std::string& text) {
        return foundation::isKnownTimeZone(text) ? std::optional(text) : std::nullopt;
      },
      into(device.timeZone))
      ->group(group);
  app.add_option("--locale", device.locale, "Such as de_DE")->type_name("LOCALE")->group(group);
}

void addLanguages(CLI::App& app,
                  std::vector<std::string>& languages,
                  const std::string& help,
                  const char* group) {
  app.add_option("--languages", languages, help)
      ->delimiter(',')
      ->allow_extra_args(false)
      ->type_name("LIST")
      ->group(group);
}

void addDevice(CLI::App& app, DeviceOptions& device) {
  addNowAndPlace(app, device);
  addLanguages(app, device.languages, "Preferred languages: de,en", "Device");
}

void addFamily(CLI::App& app, PictureOptions& picture) {
  addValue(
      app,
      "--family",
      "systemSmall, systemMedium, systemLarge, accessoryCircular, accessoryRectangular, "
      "accessoryInline",
      "FAMILY",
      "a family (systemSmall, systemMedium, systemLarge, accessoryCircular, accessoryRectangular, "
      "accessoryInline)",
      widgetruntime::widgetFamilyNamed,
      into(picture.family))
      ->group("Widget");
}

void addConfiguration(CLI::App& app, PictureOptions& picture) {
  app.add_option_function<std::vector<std::string>>(
         "--configure",
         [&picture](const std::vector<std::string>& texts) {
           for (const std::string& text : texts) {
             auto assignment = assignmentFrom(text);
             if (!assignment) {
               throw CLI::ValidationError(
                   "--configure", fmt::format("\"{}\" is not a choice such as style=ring", text));
             }
             picture.configuration.insert_or_assign(std::move(assignment->first),
                                                    std::move(assignment->second));
           }
         },
         "A choice: style=ring or card=ID")
      ->allow_extra_args(false)
      ->type_name("NAME=VALUE")
      ->group("Widget");
}

void addPreview(CLI::App& app, PictureOptions& picture) {
  app.add_flag(
         "--preview", picture.preview, "As in the gallery: the sample where there is no document")
      ->group("Widget");
}

void addSize(CLI::App& app, PictureOptions& picture) {
  addValue(app,
           "--preset",
           "Sizes of a screen: standard, compact, stress",
           "NAME",
           "a preset (standard, compact, stress)",
           presetNamed,
           into(picture.preset))
      ->group("Widget");
  addValue(app,
           "--size",
           "Any other size in points",
           "WxH",
           "a size such as 170x170, at most 2000 a side",
           sizeFrom,
           into(picture.size))
      ->group("Widget");
}

void addAppearance(CLI::App& app, PictureOptions& picture) {
  addValue(app,
           "--appearance",
           "light or dark",
           "NAME",
           "light or dark",
           appearanceNamed,
           into(picture.appearance))
      ->group("Picture");
}

void addMode(CLI::App& app, PictureOptions& picture) {
  addValue(app,
           "--mode",
           "fullColor, accented or vibrant",
           "NAME",
           "a mode (fullColor, accented, vibrant)",
           widgetruntime::renderingModeNamed,
           into(picture.mode))
      ->group("Picture");
}

void addDrawing(CLI::App& app, PictureOptions& picture) {
  const std::string group = "Picture";
  addValue(app,
           "--tint",
           "Of accented parts: #RRGGBB",
           "COLOUR",
           "a colour such as #8A2BE2",
           colorFrom,
           into(picture.tint))
      ->group(group);
  app.add_flag_callback(
         "--no-background",
         [&picture] { picture.background = false; },
         "Leave the container background out")
      ->group(group);
  addValue(app,
           "--redact",
           "privacy, placeholder or both",
           "LIST",
           "privacy, placeholder or both with a comma between them",
           redactionFrom,
           into(picture.redaction))
      ->group(group);
  addValue(app,
           "--scale",
           "Pixels a point, 2 unless given",
           "N",
           "a number from 0.5 to 8",
           within(0.5, 8),
           into(picture.scale))
      ->group(group);
}

void addOutput(CLI::App& app, OutputOptions& output) {
  app.add_option("-o,--out", output.file, "Where to; - is standard output")
      ->type_name("FILE")
      ->group("Output");
}

void addPng(CLI::App& app, OutputOptions& output) {
  addValue(app,
           "--png",
           "fast (to write) or small",
           "NAME",
           "fast or small",
           pngSizeNamed,
           into(output.png))
      ->group("Output");
}

void addFormat(CLI::App& app, Options& options) {
  addValue(app,
           "--format",
           "png, svg, text, tree, placed, accessibility",
           "NAME",
           "a format (png, svg, text, tree, placed, accessibility)",
           formatNamed,
           into(options.format))
      ->group("Output");
}

void addIdPrefix(CLI::App& app, OutputOptions& output) {
  addValue(
      app,
      "--id-prefix",
      "In front of the ids of an SVG, for several in one document",
      "TEXT",
      "a prefix: a letter or _, then letters, digits, _, - and ., at most 64 in all",
      [](const std::string& text) {
        return rendering::isIdPrefix(text) ? std::optional(text) : std::nullopt;
      },
      into(output.idPrefix))
      ->group("Output");
}

void addJson(CLI::App& app, Options& options) {
  app.add_flag("--json", options.json, "For programs")->group("Output");
}

void addPicture(CLI::App& app, Options& options) {
  addFamily(app, options.picture);
  addSize(app, options.picture);
  addConfiguration(app, options.picture);
  addPreview(app, options.picture);
  addAppearance(app, options.picture);
  addMode(app, options.picture);
  addDrawing(app, options.picture);
}

void addKind(CLI::App& app, Options& options) {
  app.add_option("KIND", options.kind, "A widget's kind, as `list` names it")->required();
}

void addCount(
    CLI::App& app, const std::string& flag, int& target, int least, const std::string& help) {
  addValue(
      app,
      flag,
      help,
      "N",
      fmt::format("a whole number from {} to 100000", least),
      [least](const std::string& text) -> std::optional<int> {
        const auto value = numberFrom(text);
        if (!value || *value < least || *value > 100000 || text.find('.') != std::string::npos) {
          return std::nullopt;
        }
        return static_cast<int>(*value);
      },
      into(target))
      ->group("Measuring");
}

struct Command {
  std::string_view name;
  std::string_view summary;
  std::string_view examples;
  void (*describe)(CLI::App&, Options&);
};

void describeList(CLI::App& app, Options& options) {
  addJson(app, options);
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
  const std::string axes = "Axes";
  app.add_flag("--states",
               options.axes.states,
               "Also amounts hidden by the application and by the host, placeholder, no data, no "
               "document")
      ->group(axes);
  app.add_flag("--extremes",
               options.axes.extremes,
               "Also long and foreign names, huge and tiny amounts, one and nine cards, first and "
               "last days of a month")
      ->group(axes);
  app.add_flag("--modes", options.axes.modes, "Also without background, accented and vibrant")
      ->group(axes);
  app.add_flag("--accessories",
               options.axes.accessories,
               "Also accessory families with a layout of their own")
      ->group(axes);
  app.add_flag("--components", options.axes.components, "Also the parts that widgets share")
      ->group(axes);
  app.add_flag("--presets", options.axes.presets, "Also the compact and stress sizes")
      ->group("Axes");
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
  addValue(app,
           "--scale",
           "Pixels a point of the first contact sheet, 2 unless given; the others have half",
           "N",
           "a number from 0.5 to 8",
           within(0.5, 8),
           into(options.picture.scale))
      ->group("Output");
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
    Command{"list", "what the extension offers", "  quorvel-host list --json\n", describeList},
    Command{"render",
            "one widget as a picture, SVG, text or tree",
            "  quorvel-host render QuorvelSpendingWidget --family systemMedium -o spending.png\n"
            "  quorvel-host render QuorvelDueWidget --snapshot widget-snapshot.json --format text\n"
            "  quorvel-host render QuorvelSafeToSpendWidget --configure style=ring --appearance "
            "dark -o ring.png\n",
            describeRender},
    Command{"sheet",
            "every widget on one picture",
            "  quorvel-host sheet -o sheet.png\n"
            "  quorvel-host sheet QuorvelDueWidget --states --languages en,ja,ar -o due.png\n",
            describeSheet},
    Command{"gallery",
            "every widget in every state: a page and contact sheets",
            "  quorvel-host gallery gallery\n"
            "  quorvel-host gallery gallery --snapshot Examples/household.json --now "
            "2025-03-14T09:30:00Z\n",
            describeGallery},
    Command{"timeline",
            "the entries of a widget and when it is asked again",
            "  quorvel-host timeline QuorvelDueWidget --now 2025-03-14T22:59:59Z --time-zone "
            "Europe/Berlin\n",
            describeTimeline},
    Command{"options",
            "the choices that a widget's parameter has",
            "  quorvel-host options QuorvelCardLimitWidget card\n",
            describeOptions},
    Command{"validate",
            "whether documents are accepted, and what is wrong with them",
            "  quorvel-host validate widget-snapshot.json\n",
            describeValidate},
    Command{"sample",
            "a complete document to start from",
            "  quorvel-host sample --lang de -o widget-snapshot.json\n",
            describeSample},
    Command{"perform",
            "run an intent in the extension, then open the application",
            "  quorvel-host perform AddExpenseIntent --no-open\n",
            describePerform},
    Command{"bench",
            "measure drawing, stage by stage",
            "  quorvel-host bench --snapshot widget-snapshot.json --images 200\n",
            describeBench},
    Command{"doctor",
            "what is found, what is missing and what to do",
            "  quorvel-host doctor\n",
            describeDoctor},
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

bool isCommand(std::string_view name) {
  return commandNamed(name) != nullptr;
}

Result<Arguments> readArguments(std::string_view name, std::span<const char* const> words) {
  const Command* command = commandNamed(name);
  if (!command)
    return misused(fmt::format("quorvel-host: there is no command \"{}\" (try --help)", name));
  Arguments arguments;
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
