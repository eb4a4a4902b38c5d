// The extension as commands find it: started, with what it offers and where its files are.
//
//     auto guest = Guest::open(options.source, program);
//     const auto timeline = said(guest->client().timeline(parameters));
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>

#include "Cli/Options/Options.hpp"
#include "Cli/Program.hpp"
#include "Cli/Result.hpp"
#include "Session/ExtensionClient.hpp"
#include "Session/Places.hpp"

namespace cli {

[[nodiscard]] session::Places findPlaces(const SourceOptions& source,
                                         const std::filesystem::path& programFolder);

/// Why that file gives no information about the extension; empty when it does.
[[nodiscard]] std::string informationProblem(const std::filesystem::path& infoPlist);

/// What the extension is told when it starts.
[[nodiscard]] widgetruntime::InitializeParameters initializeParameters(const SourceOptions& source,
                                                                       const Program& program);

/// An answer, or the extension's error as a line for a person.
template <class T>
[[nodiscard]] Result<T> said(session::Result<T> answer) {
  if (answer) return *std::move(answer);
  return refused("the extension: " + answer.error().message);
}

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

  /// What asks the extension; `said` turns its errors into lines.
  [[nodiscard]] session::ExtensionClient& client() { return client_; }

 private:
  Guest(session::ExtensionClient client, widgetruntime::InitializeAnswer about);

  session::ExtensionClient client_;
  widgetruntime::InitializeAnswer about_;
  std::filesystem::path document_;
  std::filesystem::path images_;
};

}  // namespace cli
