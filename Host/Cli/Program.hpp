// The command line program, apart from the extension that is linked into it.
#pragma once

#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Device.hpp"
#include "WidgetRuntime/Dispatcher.hpp"

namespace cli {

/// Everything that a command knows of the world outside its options.
struct Program {
  /// The extension for commands that run in one process.
  widgetruntime::ExtensionDefinition extension;
  /// A complete document in a language (empty: the device's), encoded.
  std::function<std::string(const foundation::Device&, std::string_view language)> sampleDocument;
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
