// An extension as its host sees it: typed requests, answers decoded from bytes within limits.
//
//     ExtensionClient extension{std::make_unique<ChildProcess>(std::move(options)),
//                               {.host = "quorvel-host 1.0"}};
//     const auto bundle = extension.initialize();
//     const auto timeline = extension.timeline(parameters);
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "Session/SessionError.hpp"
#include "Session/Transport.hpp"
#include "WidgetRuntime/Messages.hpp"

namespace session {

/// On the monotonic clock.
struct Deadlines {
  std::chrono::milliseconds initialize{2000};
  std::chrono::milliseconds request{1000};
  std::chrono::milliseconds timeline{5000};
};

/// Every call starts the extension when it is not running, at most once, and tells it `parameters`
/// first. A call that fails is not repeated.
class ExtensionClient {
 public:
  ExtensionClient(std::unique_ptr<Transport> transport,
                  widgetruntime::InitializeParameters parameters,
                  Deadlines deadlines = {});

  /// What the extension offers; asked for once per start.
  [[nodiscard]] Result<widgetruntime::InitializeAnswer> initialize();

  /// Entries have one tree per environment, in the order asked for.
  [[nodiscard]] Result<widgetruntime::RenderedEntry> placeholder(
      const widgetruntime::EntriesParameters& parameters);
  [[nodiscard]] Result<widgetruntime::RenderedEntry> snapshot(
      const widgetruntime::EntriesParameters& parameters);
  /// With a policy.
  [[nodiscard]] Result<widgetruntime::EntriesAnswer> timeline(
      const widgetruntime::EntriesParameters& parameters);
  [[nodiscard]] Result<widgetruntime::OptionsAnswer> options(
      const widgetruntime::OptionsParameters& parameters);
  [[nodiscard]] Result<widgetruntime::PerformAnswer> perform(
      const widgetruntime::PerformParameters& parameters);
  [[nodiscard]] Result<widgetruntime::DiagnoseAnswer> diagnose(
      const widgetruntime::DiagnoseParameters& parameters);

  [[nodiscard]] Transport& transport() { return *transport_; }

 private:
  /// Starts what does not run.
  [[nodiscard]] Result<const widgetruntime::InitializeAnswer*> prepare();
  template <class Answer>
  [[nodiscard]] Result<Answer> ask(std::string_view method,
                                   const std::string& parametersJson,
                                   std::chrono::milliseconds deadline);
  [[nodiscard]] Result<widgetruntime::EntriesAnswer> entries(
      std::string_view method,
      const widgetruntime::EntriesParameters& parameters,
      std::chrono::milliseconds deadline);
  [[nodiscard]] Result<widgetruntime::RenderedEntry> singleEntry(
      std::string_view method, const widgetruntime::EntriesParameters& parameters);

  std::unique_ptr<Transport> transport_;
  widgetruntime::InitializeParameters parameters_;
  Deadlines deadlines_;
  std::optional<widgetruntime::InitializeAnswer> initialized_;
};

}  // namespace session
