#include "Cli/HostRequest.hpp"

#include "Control/Paths.hpp"

namespace cli {

Result<std::string> controlSocket(const Program& program) {
  const control::Paths paths = control::pathsFrom(program.environment);
  if (paths.runtime.empty()) {
    return refused("XDG_RUNTIME_DIR is not set, so no resident host can be found");
  }
  return paths.socket();
}

Result<foundation::JsonDocument> askHost(const Program& program,
                                         std::string_view method,
                                         std::string_view parametersJson) {
  const auto socket = controlSocket(program);
  if (!socket) return std::unexpected(socket.error());
  auto client = control::Client::connect(*socket);
  if (!client && client.error().isMissing) return refused(std::string(kStartAdvice));
  if (!client) return refused(client.error().line);
  auto result = client->call(method, parametersJson);
  if (!result) return refused(result.error().line);
  return *std::move(result);
}

}  // namespace cli
