// The extension as commands use it: found, started, asked; its errors as lines for a person.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "Cli/Options/Options.hpp"
#include "Cli/Program.hpp"
#include "Cli/Result.hpp"
#include "Session/Extension.hpp"
#include "Session/Places.hpp"

namespace cli {

inline constexpr std::string_view kDocumentName = "widget-snapshot.json";

[[nodiscard]] session::Places findPlaces(const SourceOptions& source,
                                         const std::filesystem::path& programFolder);

/// Why that file gives no information about the extension; empty when it does.
[[nodiscard]] std::string informationProblem(const std::filesystem::path& infoPlist);

/// What the extension is told when it starts.
[[nodiscard]] widgetruntime::InitializeParameters initializeParameters(const SourceOptions& source,
                                                                       const Program& program);

class Guest {
 public:
  /// `languages` are the device's: the extension names its widgets in the first that it speaks, in
  /// English without any.
  [[nodiscard]] static Result<Guest> open(const SourceOptions& source,
                                          const Program& program,
                                          const std::vector<std::string>& languages = {});

  [[nodiscard]] const widgetruntime::InitializeAnswer& about() const { return about_; }
  /// The widget of that kind, in full or short; refused with the kinds that there are.
  [[nodiscard]] Result<const widgetruntime::WidgetListing*> widget(const std::string& kind) const;

  /// The document that is read; empty without a container.
  [[nodiscard]] const std::filesystem::path& document() const { return document_; }
  /// Where the images of views start; empty without a container.
  [[nodiscard]] const std::filesystem::path& images() const { return images_; }

  /// The one entry of now: of the placeholder when `placeholder`, else of the document.
  [[nodiscard]] Result<widgetruntime::RenderedEntry> entry(
      const widgetruntime::EntriesParameters& parameters, bool placeholder);
  [[nodiscard]] Result<widgetruntime::EntriesAnswer> timeline(
      const widgetruntime::EntriesParameters& parameters);
  [[nodiscard]] Result<widgetruntime::OptionsAnswer> options(
      const widgetruntime::OptionsParameters& parameters);
  [[nodiscard]] Result<widgetruntime::PerformAnswer> perform(
      const widgetruntime::PerformParameters& parameters);
  [[nodiscard]] Result<widgetruntime::DiagnoseAnswer> diagnose(
      const widgetruntime::DiagnoseParameters& parameters);

 private:
  Guest(session::Extension extension, widgetruntime::InitializeAnswer about);

  session::Extension extension_;
  widgetruntime::InitializeAnswer about_;
  std::filesystem::path document_;
  std::filesystem::path images_;
};

}  // namespace cli
