// `watch`: hands over to the small program that prints a widget's lines for as long as its bar
// runs.
#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

#include "Cli/Commands/Commands.hpp"
#include "Cli/HostRequest.hpp"
#include "Session/Places.hpp"

namespace cli {

Result<void> watch(const Options& options, const Program& program) {
  auto socket = controlSocket(program);
  if (!socket) return std::unexpected(socket.error());
  std::string watcher = session::findProgram("quorvel-watch", program.folder).string();
  if (watcher.empty()) {
    return refused("the program quorvel-watch is not beside " +
                   (program.folder / "quorvel-host").string());
  }
  std::string target = options.host.target;
  std::string format{foundation::nameOf(options.host.format)};
  const std::array<char*, 5> words{
      watcher.data(), socket->data(), target.data(), format.data(), nullptr};
  ::execv(words[0], words.data());
  return refused(fmt::format("{}: {}", watcher, std::strerror(errno)));
}

}  // namespace cli
