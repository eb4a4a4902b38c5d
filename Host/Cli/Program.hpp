// The command line program, apart from the extension that is linked into it.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Device.hpp"
#include "WidgetRuntime/Dispatcher.hpp"

namespace cli {

/// A state into which the extension's document can be put.
struct DocumentState {
  std::string_view name;
  std::string_view caption;
  bool isUsual = false;  ///< a person meets it sooner or later
};

/// Everything that a command knows of the world outside its options.
struct Program {
  /// The extension for commands that run in one process.
  widgetruntime::ExtensionDefinition extension;
  /// A complete document in a language (empty: the device's), encoded.
  std::function<std::string(const foundation::Device&, std::string_view language)> sampleDocument;
  std::vector<DocumentState> states;
  /// A document in one of these states and a language, either empty: as it is.
  std::function<std::string(
      std::string_view document, std::string_view state, std::string_view language)>
      documentInState;
  /// A document with amounts that differ for each step; nothing for one that cannot be read.
  std::function<std::optional<std::string>(std::string_view document, int step)>
      documentWithOtherAmounts;
  /// The components that the widgets share, on one view of that width.
  std::function<viewkit::View(const widgetruntime::Environment&)> componentSheet;
  double componentSheetWidth = 0;
  std::vector<std::string> languages;  ///< codes of those that the extension speaks
  foundation::ProcessEnvironment environment;
  std::filesystem::path folder;  ///< that holds the program
};

/// `words` without the program's name. The exit status: 0 done, 1 refused, 2 usage.
[[nodiscard]] int run(std::span<const char* const> words, const Program& program);

}  // namespace cli
