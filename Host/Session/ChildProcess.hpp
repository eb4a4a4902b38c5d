// An extension as a child process that costs its host at most one request, whatever it does.
//
// The child gets a small environment, no descriptors but its three pipes, no new privileges, a
// bounded data size, no core dumps, no processes of its own and its own process group. It is killed
// with all that it has started, wherever that has gone, and when the thread that started it ends.
// Every wait for it is bounded.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "Foundation/Locale.hpp"
#include "Session/Transport.hpp"

namespace session {

struct ChildProcessOptions {
  std::string program;  ///< a path; nothing is searched
  std::vector<std::string> arguments;
  std::vector<std::string> environment;  ///< "NAME=value"; all that the child sees
  std::size_t maximumData = std::size_t{512} << 20;
  /// From an expired deadline, when a cancellation is sent, to the kill.
  std::chrono::milliseconds grace{100};
};

/// The few variables that an extension may look at, out of the host's own.
[[nodiscard]] std::vector<std::string> childEnvironment(
    const foundation::ProcessEnvironment& environment);

class ChildProcess : public Transport {
 public:
  explicit ChildProcess(ChildProcessOptions options);
  ~ChildProcess() override;

  [[nodiscard]] Result<void> start() override;
  [[nodiscard]] bool isRunning() override;
  [[nodiscard]] Result<foundation::JsonDocument> call(std::string_view method,
                                                      std::string_view parametersJson,
                                                      std::chrono::milliseconds deadline) override;
  [[nodiscard]] std::string diagnostics() const override;

  /// Kills the child and all that it has started, and reaps it. Harmless without a child.
  void stop();
  /// 0 without a child.
  [[nodiscard]] pid_t processId() const;

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace session
