// How requests reach an extension: one at a time, each with a deadline.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "Foundation/JsonValue.hpp"
#include "Session/SessionError.hpp"

namespace session {

class Transport {
 public:
  Transport() = default;
  Transport(const Transport&) = delete;
  Transport& operator=(const Transport&) = delete;
  virtual ~Transport() = default;

  /// Makes the extension ready to be called; it then knows nothing of earlier calls.
  [[nodiscard]] virtual Result<void> start() = 0;

  /// False before start() and after the extension has gone; calls then fail.
  [[nodiscard]] virtual bool isRunning() = 0;

  /// The answer's result. After an error other than `refused` the extension may have been stopped.
  [[nodiscard]] virtual Result<foundation::JsonDocument> call(
      std::string_view method,
      std::string_view parametersJson,
      std::chrono::milliseconds deadline) = 0;

  /// What the extension has said on its error stream, its last bytes only, without control
  /// characters.
  [[nodiscard]] virtual std::string diagnostics() const { return {}; }
};

}  // namespace session
