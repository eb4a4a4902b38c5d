#include "Resident/ExtensionAsker.hpp"

#include <fmt/format.h>

#include <utility>

namespace resident {

using session::ExtensionClient;
using session::SessionError;

namespace {

/// The child is at fault, not one of its answers.
bool isFaultOfTheChild(SessionError::Kind kind) {
  return kind != SessionError::Kind::refused && kind != SessionError::Kind::unreadable;
}

}  // namespace

struct ExtensionAsker::Child {
  Child(std::unique_ptr<session::Transport> transport,
        widgetruntime::InitializeParameters parameters,
        session::Deadlines deadlines)
      : extension(std::move(transport), std::move(parameters), deadlines) {}

  template <class T, class Call>
  Asked<T> ask(Urgency urgency, Moment asked, const Call& call) {
    for (;;) {
      const Moment now = std::chrono::steady_clock::now();
      const bool isAdmitted =
          urgency == Urgency::person ? breaker.admitsPerson(now, asked) : breaker.admits(now);
      if (!isAdmitted) return std::unexpected(AskFailure{latestReason, breaker.remaining(now)});
      session::Result<T> answer = call(extension);
      if (answer) {
        breaker.succeeded();
        return *std::move(answer);
      }
      if (!isFaultOfTheChild(answer.error().kind)) {
        return std::unexpected(AskFailure{answer.error().message, std::nullopt});
      }
      const Moment failed = std::chrono::steady_clock::now();
      const Pause pause = breaker.failed(failed);
      latestReason = answer.error().message;
      if (breaker.isQuarantined(failed)) latestReason += "; it is not asked for a while";
      if (pause > Pause{}) return std::unexpected(AskFailure{latestReason, pause});
    }
  }

  ExtensionClient extension;
  CircuitBreaker breaker;
  std::string latestReason;
};

ExtensionAsker::ExtensionAsker(Loop& loop,
                               std::unique_ptr<session::Transport> transport,
                               widgetruntime::InitializeParameters parameters,
                               session::Deadlines deadlines)
    : child_(std::make_unique<Child>(std::move(transport), std::move(parameters), deadlines)),
      worker_(loop, "asker") {}

ExtensionAsker::~ExtensionAsker() = default;

template <class T, class Call>
void ExtensionAsker::submit(Urgency urgency, std::string key, Call call, Then<T> then) {
  const Moment asked = std::chrono::steady_clock::now();
  worker_.submit(
      urgency,
      std::move(key),
      [this, urgency, asked, call = std::move(call), then = std::move(then)]() -> Continuation {
        // Shared, since a function must be copyable and an answer is large.
        auto answer = std::make_shared<Asked<T>>(child_->ask<T>(urgency, asked, call));
        return [answer, then] { then(std::move(*answer)); };
      });
}

void ExtensionAsker::initialize(Then<widgetruntime::InitializeAnswer> then) {
  submit<widgetruntime::InitializeAnswer>(
      Urgency::person,
      {},
      [](ExtensionClient& extension) { return extension.initialize(); },
      std::move(then));
}

void ExtensionAsker::timeline(Urgency urgency,
                              std::string key,
                              widgetruntime::EntriesParameters parameters,
                              Then<widgetruntime::EntriesAnswer> then) {
  submit<widgetruntime::EntriesAnswer>(
      urgency,
      std::move(key),
      [parameters = std::move(parameters)](ExtensionClient& extension) {
        return extension.timeline(parameters);
      },
      std::move(then));
}

void ExtensionAsker::options(widgetruntime::OptionsParameters parameters,
                             Then<widgetruntime::OptionsAnswer> then) {
  submit<widgetruntime::OptionsAnswer>(
      Urgency::person,
      {},
      [parameters = std::move(parameters)](ExtensionClient& extension) {
        return extension.options(parameters);
      },
      std::move(then));
}

void ExtensionAsker::perform(widgetruntime::PerformParameters parameters,
                             Then<widgetruntime::PerformAnswer> then) {
  submit<widgetruntime::PerformAnswer>(
      Urgency::person,
      {},
      [parameters = std::move(parameters)](ExtensionClient& extension) {
        return extension.perform(parameters);
      },
      std::move(then));
}

}  // namespace resident
