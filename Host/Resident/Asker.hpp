// Asks the extension, away from the loop.
#pragma once

#include <expected>
#include <functional>
#include <optional>
#include <string>

#include "Resident/CircuitBreaker.hpp"
#include "Resident/WorkQueue.hpp"
#include "WidgetRuntime/Messages.hpp"

namespace resident {

struct AskFailure {
  std::string reason;  ///< one line
  std::optional<Pause>
      retryIn;  ///< when the child may be asked again; absent: it runs, and refused
};

template <class T>
using Asked = std::expected<T, AskFailure>;
template <class T>
using Then = std::function<void(Asked<T>)>;

/// Continuations run on the loop. A request that a newer one of the same key replaces before it was
/// sent is dropped with its continuation.
class Asker {
 public:
  Asker() = default;
  Asker(const Asker&) = delete;
  Asker& operator=(const Asker&) = delete;
  virtual ~Asker() = default;

  virtual void initialize(Then<widgetruntime::InitializeAnswer> then) = 0;
  virtual void timeline(Urgency urgency,
                        std::string key,
                        widgetruntime::EntriesParameters parameters,
                        Then<widgetruntime::EntriesAnswer> then) = 0;
  virtual void options(widgetruntime::OptionsParameters parameters,
                       Then<widgetruntime::OptionsAnswer> then) = 0;
  virtual void perform(widgetruntime::PerformParameters parameters,
                       Then<widgetruntime::PerformAnswer> then) = 0;
};

}  // namespace resident
