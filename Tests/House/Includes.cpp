#include "Includes.hpp"

#include <algorithm>
#include <filesystem>

namespace house {
namespace {

using Names = std::vector<std::string>;

using Modules = std::vector<Module>;

/// A folder of a module: what it sees beside itself in its module, and what lies below the module.
/// Names of folders end in a slash.
Module innerModule(const std::string& folder,
                   const std::string& includes,
                   Names sees,
                   const Names& below) {
  sees.push_back(includes);
  sees.insert(sees.end(), below.begin(), below.end());
  return {folder.substr(0, folder.size() - 1), std::move(sees), true, {"fmt/"}};
}

Modules platformModules() {
  return {
      {"Platform/Foundation", {"Foundation/"}, true, {"fmt/", "unicode/", "plist/"}},
      {"Platform/ViewKit", {"ViewKit/", "Foundation/"}, false, {"fmt/"}},
      {"Platform/WidgetRuntime", {"WidgetRuntime/", "ViewKit/", "Foundation/"}, true, {"fmt/"}}};
}

Module supportModule(const std::string& folder, Names sees) {
  Module module =
      innerModule(folder, folder, std::move(sees), {"WidgetRuntime/", "ViewKit/", "Foundation/"});
  module.callsSystem = false;
  return module;
}

Modules supportModules() {
  return {
      supportModule("QuorvelWidgets/WidgetSupport/Snapshot/", {}),
      supportModule("QuorvelWidgets/WidgetSupport/Colors/",
                    {"QuorvelWidgets/WidgetSupport/Snapshot/"}),
      supportModule(
          "QuorvelWidgets/WidgetSupport/Texts/",
          {"QuorvelWidgets/WidgetSupport/Colors/", "QuorvelWidgets/WidgetSupport/Snapshot/"}),
      supportModule("QuorvelWidgets/WidgetSupport/Components/", {"QuorvelWidgets/WidgetSupport/"})};
}

// No widget sees another: each folder but those that serve them all is a module of its own.
Modules widgetModules() {
  Modules modules;
  for (const auto& entry : std::filesystem::directory_iterator(
           std::filesystem::path{QUORVEL_SOURCE_DIR} / "QuorvelWidgets")) {
    const std::string name = entry.path().filename();
    if (!entry.is_directory() || name == "WidgetSupport" || name == "Gallery") continue;
    const std::string folder = "QuorvelWidgets/" + name;
    modules.push_back({folder,
                       {folder + "/",
                        "QuorvelWidgets/WidgetSupport/",
                        "WidgetRuntime/",
                        "ViewKit/",
                        "Foundation/"},
                       false,
                       {"fmt/"}});
  }
  return modules;
}

Modules extensionModules() {
  return {{"QuorvelWidgets/Gallery",
           {"QuorvelWidgets/Gallery/",
            "QuorvelWidgets/SafeToSpend/SpentGauge.hpp",
            "QuorvelWidgets/WidgetSupport/",
            "WidgetRuntime/",
            "ViewKit/",
            "Foundation/"},
           false,
           {"fmt/"}},
          {"QuorvelWidgets",
           {"QuorvelWidgets/", "WidgetRuntime/", "ViewKit/", "Foundation/"},
           false,
           {"fmt/"}}};
}

Module renderingModule(const std::string& folder, Names sees, const Names& libraries = {}) {
  constexpr std::string_view kHost = "Host/";
  Module module = innerModule(folder,
                              folder.substr(kHost.size()),
                              std::move(sees),
                              {"ViewKit/",
                               "Foundation/Ascii.hpp",
                               "Foundation/FileDescriptor.hpp",
                               "Foundation/ListSeparator.hpp",
                               "Foundation/Markup.hpp",
                               "Foundation/Names.hpp",
                               "Foundation/Overloaded.hpp"});
  module.libraries.insert(module.libraries.end(), libraries.begin(), libraries.end());
  return module;
}

Modules renderingModules() {
  return {
      renderingModule("Host/Rendering/Graphics/", {}),
      renderingModule("Host/Rendering/Images/",
                      {"Rendering/Graphics/"},
                      {"png.h", "jpeglib.h", "libdeflate.h", "emmintrin.h"}),
      renderingModule("Host/Rendering/Text/",
                      {"Rendering/Images/", "Rendering/Graphics/"},
                      {"unicode/", "hb", "ft2build.h", "freetype/"}),
      renderingModule("Host/Rendering/Symbols/", {"Rendering/Text/", "Rendering/Graphics/"}),
      // Measures text without knowing fonts.
      renderingModule("Host/Rendering/Layout/",
                      {"Rendering/Text/TextMeasurer.hpp", "Rendering/Graphics/"}),
      renderingModule("Host/Rendering/Recording/",
                      {"Rendering/Layout/",
                       "Rendering/Symbols/",
                       "Rendering/Text/",
                       "Rendering/Images/",
                       "Rendering/Graphics/"}),
      renderingModule("Host/Rendering/Painting/",
                      {"Rendering/Recording/",
                       "Rendering/Symbols/",
                       "Rendering/Text/",
                       "Rendering/Images/",
                       "Rendering/Graphics/"},
                      {"ft2build.h", "freetype/"}),
      renderingModule("Host/Rendering/Output/",
                      {"Rendering/Recording/",
                       "Rendering/Layout/",
                       "Rendering/Symbols/",
                       "Rendering/Text/",
                       "Rendering/Images/",
                       "Rendering/Graphics/"},
                      {"unicode/"}),
      {"Host/Rendering", {"Rendering/", "ViewKit/"}, true, {"fmt/"}},
  };
}

Modules hostModules() {
  return {
      {"Host/Session", {"Session/", "WidgetRuntime/", "ViewKit/", "Foundation/"}, true, {"fmt/"}},
      {"Host/Control", {"Control/", "WidgetRuntime/", "Foundation/"}, true, {"fmt/"}},
      {"Host/Opening", {"Opening/", "Foundation/"}, true, {"fmt/"}},
      {"Host/Surfaces/Bar", {"Surfaces/Bar/", "Foundation/"}, false, {"fmt/"}},
      {"Host/Surfaces/Web",
       {"Surfaces/",
        "Control/GridCells.hpp",
        "Rendering/",
        "WidgetRuntime/",
        "ViewKit/",
        "Foundation/"},
       true,
       {"fmt/", "microhttpd.h", "systemd/", "arpa/", "netinet/"}},
      {"Host/Surfaces",
       {"Surfaces/", "Rendering/", "WidgetRuntime/", "ViewKit/", "Foundation/"},
       true,
       {"fmt/"}},
      // What a bar keeps open, so it sees as little as it can.
      {"Host/BarWatch", {"BarWatch/", "Control/", "Surfaces/Bar/", "Foundation/"}, true, {}},
  };
}

Modules programModules() {
  return {
      // The module that owns the event loop.
      {"Host/Resident",
       {"Resident/",
        "Control/",
        "Opening/",
        "Surfaces/",
        "Session/",
        "Rendering/",
        "WidgetRuntime/",
        "ViewKit/",
        "Foundation/"},
       true,
       {"fmt/", "CLI/", "systemd/"}},
      // Writes the document that the extension reads, and knows nothing else of it.
      {"Import",
       {"Import/",
        "QuorvelWidgets/WidgetSupport/Snapshot/AppGroup.hpp",
        "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp",
        "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp",
        "Foundation/"},
       true,
       {"fmt/", "CLI/", "toml++/"}},
      // The one place where extension and host meet.
      {"Host/Cli/main.cpp",
       {"Cli/",
        "Session/",
        "Rendering/",
        "QuorvelWidgets/",
        "WidgetRuntime/",
        "ViewKit/",
        "Foundation/"},
       true,
       {"fmt/"}},
      {"Host/Cli",
       {"Cli/",
        "Control/",
        "Opening/",
        "Surfaces/",
        "Session/",
        "Rendering/",
        "WidgetRuntime/",
        "ViewKit/",
        "Foundation/"},
       true,
       {"fmt/", "CLI/"}},
  };
}

Modules makeModules() {
  Modules all;
  for (const Modules& some : {platformModules(),
                              supportModules(),
                              widgetModules(),
                              extensionModules(),
                              renderingModules(),
                              hostModules(),
                              programModules()}) {
    all.insert(all.end(), some.begin(), some.end());
  }
  return all;
}

const Names& systemHeaders() {
  static const Names names{
      "sys/", "linux/", "dirent.h", "fcntl.h", "poll.h", "signal.h", "spawn.h", "unistd.h"};
  return names;
}

bool beginsWithOneOf(std::string_view text, const Names& beginnings) {
  return std::ranges::any_of(
      beginnings, [&](const std::string& beginning) { return text.starts_with(beginning); });
}

// The streams' static constructors and the cost of locales and regular expressions are paid by
// every start.
bool isSlowStart(std::string_view header) {
  return header == "iostream" || header == "regex" || header == "locale" || header == "format";
}

bool isLibraryHeader(std::string_view header) {
  return header.find_first_of("./") != std::string_view::npos;
}

bool isAllowed(const Module& module, std::string_view path, std::string_view header, bool quoted) {
  if (quoted) return beginsWithOneOf(header, module.sees);
  if (isSlowStart(header)) return false;
  if (!isLibraryHeader(header)) return true;
  if (module.callsSystem && beginsWithOneOf(header, systemHeaders())) return true;
  return path.ends_with(".cpp") && beginsWithOneOf(header, module.libraries);
}

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

}  // namespace

std::span<const Module> modules() {
  static const std::vector<Module> all = makeModules();
  return all;
}

const Module* moduleOf(std::string_view path) {
  for (const Module& module : modules()) {
    if (path == module.folder) return &module;
    if (path.starts_with(module.folder) && path.substr(module.folder.size()).starts_with('/'))
      return &module;
  }
  return nullptr;
}

std::vector<std::string> forbiddenIncludes(std::string_view path, std::string_view text) {
  std::vector<std::string> found;
  const Module* module = moduleOf(path);
  if (!module) return found;
  for (std::size_t number = 1; !text.empty(); ++number) {
    const auto end = std::min(text.find('\n'), text.size());
    std::string_view line = trimmed(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    if (!line.starts_with('#')) continue;
    line = trimmed(line.substr(1));
    if (!line.starts_with("include")) continue;
    line = trimmed(line.substr(7));
    if (line.empty() || (line[0] != '"' && line[0] != '<'))
      continue;  // a macro, such as FreeType's
    const bool quoted = line[0] == '"';
    const std::string_view header = line.substr(1, line.find(quoted ? '"' : '>', 1) - 1);
    if (!isAllowed(*module, path, header, quoted)) {
      found.push_back(std::string(path) + ":" + std::to_string(number) + ": " +
                      std::string(header));
    }
  }
  return found;
}

}  // namespace house
