// The real extension, but for what $HOME/behaviour says: "die", "hang", "flood" or "garble" when it
// is asked for a timeline, or, with a word behind it, at every request that holds this word.
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>

#include "QuorvelWidgets/QuorvelWidgetsExtension.hpp"
#include "WidgetRuntime/Dispatcher.hpp"
#include "WidgetRuntime/Framing.hpp"
#include "WidgetRuntime/Messages.hpp"

namespace {

void put(int descriptor, const std::string& text) {
  std::size_t at = 0;
  while (at < text.size()) {
    const ssize_t count = ::write(descriptor, text.data() + at, text.size() - at);
    if (count <= 0) ::_exit(9);
    at += static_cast<std::size_t>(count);
  }
}

void misbehave(const std::string& request) {
  std::ifstream file(std::string(std::getenv("HOME")) + "/behaviour");
  std::string behaviour;
  std::string word{widgetruntime::method::kTimeline};
  file >> behaviour >> word;
  if (request.find(word) == std::string::npos) return;
  if (behaviour == "die") ::_exit(3);
  if (behaviour == "garble") put(STDOUT_FILENO, "Content-Length: 3\r\n\r\n{}}");
  while (behaviour == "hang") ::pause();
  while (behaviour == "flood") put(STDERR_FILENO, std::string(65536, 'x'));
}

}  // namespace

int main() {
  widgetruntime::Dispatcher dispatcher{quorvel::quorvelWidgetsExtension()};
  widgetruntime::FrameDecoder decoder{widgetruntime::kMaximumMessage};
  char bytes[65536];
  for (;;) {
    const auto request = decoder.next();
    if (!request) return 8;
    if (*request) {
      misbehave(**request);
      const std::string answer = dispatcher.handle(**request);
      if (!answer.empty()) put(STDOUT_FILENO, widgetruntime::encodeFrame(answer));
      continue;
    }
    const ssize_t count = ::read(STDIN_FILENO, bytes, sizeof bytes);
    if (count <= 0) return 0;
    decoder.append({bytes, static_cast<std::size_t>(count)});
  }
}
