// An extension in the same process: the same encoded bytes, without a child.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "Session/Transport.hpp"

namespace session {

/// Deadlines do not hold here: nothing can stop a function that does not return.
class InProcess : public Transport {
 public:
  /// JSON-RPC request in, answer out; a Dispatcher's `handle`.
  using Handler = std::function<std::string(std::string_view request)>;
  /// `connect` makes the handler of a fresh extension; called by every start().
  explicit InProcess(std::function<Handler()> connect);

  [[nodiscard]] Result<void> start() override;
  [[nodiscard]] bool isRunning() override { return handler_ != nullptr; }
  [[nodiscard]] Result<foundation::JsonDocument> call(std::string_view method,
                                                      std::string_view parametersJson,
                                                      std::chrono::milliseconds deadline) override;

 private:
  std::function<Handler()> connect_;
  Handler handler_;
  std::int64_t lastId_ = 0;
};

}  // namespace session
