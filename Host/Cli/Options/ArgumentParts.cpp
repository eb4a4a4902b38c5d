#include "Cli/Options/ArgumentParts.hpp"

#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <array>
#include <functional>

#include "Cli/Options/Values.hpp"
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

}  // namespace

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
      foundation::named<widgetruntime::WidgetFamily>,
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
           foundation::named<Preset>,
           into(picture.preset))
      ->group("Widget");
  addValue(app,
           "--size",
           "Any other size in points",
           "WxH",
           "a size such as 170x170, at most 2000 per side",
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
           foundation::named<viewkit::Appearance>,
           into(picture.appearance))
      ->group("Picture");
}

void addMode(CLI::App& app, PictureOptions& picture) {
  addValue(app,
           "--mode",
           "fullColor, accented or vibrant",
           "NAME",
           "a mode (fullColor, accented, vibrant)",
           foundation::named<viewkit::RenderingMode>,
           into(picture.mode))
      ->group("Picture");
}

void addScale(CLI::App& app,
              PictureOptions& picture,
              const std::string& help,
              const std::string& group) {
  addValue(app, "--scale", help, "N", "a number from 0.5 to 8", within(0.5, 8), into(picture.scale))
      ->group(group);
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
  addScale(app, picture, "Pixels per point, 2 unless given", group);
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
           foundation::named<Format>,
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
  app.add_option(
         "KIND", options.kind, "A widget's kind, as `list` names it, or short: safe-to-spend")
      ->required();
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

}  // namespace cli
