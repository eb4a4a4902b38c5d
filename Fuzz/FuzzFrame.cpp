// Bytes as an extension may receive them, through frames and dispatcher; and as a host may, through
// frames and answers.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "../Tests/WidgetRuntime/FakeExtension.hpp"
#include "WidgetRuntime/Framing.hpp"
#include "WidgetRuntime/JsonRpc.hpp"
#include "WidgetRuntime/Messages.hpp"

namespace {

constexpr std::string_view kInitialize =
    R"({"jsonrpc":"2.0","id":0,"method":"initialize","params":{"protocolVersion":1}})";

void require(bool holds) {
  if (!holds) std::abort();
}

// Whatever the request was, its answer is one that a host can read.
void asExtension(widgetruntime::Dispatcher& dispatcher, std::string_view message) {
  const std::string answer = dispatcher.handle(message);
  require(answer.empty() || widgetruntime::readAnswer(answer).has_value());
}

void asHost(std::string_view message) {
  const auto answer = widgetruntime::readAnswer(message);
  if (!answer || !answer->result) return;
  const auto entries = widgetruntime::read<widgetruntime::EntriesAnswer>(*answer->result);
  if (entries) {
    const auto again = foundation::parseJson(widgetruntime::encode(*entries));
    require(again.has_value());
    const auto same = widgetruntime::read<widgetruntime::EntriesAnswer>(*again);
    require(same && same->entries == entries->entries && same->policy == entries->policy);
  }
  (void)widgetruntime::read<widgetruntime::InitializeAnswer>(*answer->result);
  (void)widgetruntime::read<widgetruntime::OptionsAnswer>(*answer->result);
  (void)widgetruntime::read<widgetruntime::DiagnoseAnswer>(*answer->result);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view stream(reinterpret_cast<const char*>(data), size);
  widgetruntime::Dispatcher dispatcher(testsupport::fake::definition());
  require(!dispatcher.handle(kInitialize).empty());
  widgetruntime::FrameDecoder decoder(widgetruntime::kMaximumMessage);
  // The first byte says where the stream is cut.
  const std::size_t cut = size == 0 ? 0 : data[0] % size;
  for (const std::string_view piece : {stream.substr(0, cut), stream.substr(cut)}) {
    decoder.append(piece);
    while (true) {
      const auto message = decoder.next();
      if (!message || !*message) break;
      asExtension(dispatcher, **message);
      asHost(**message);
    }
  }
  // Most inputs are no frames: they are messages, then.
  asExtension(dispatcher, stream);
  asHost(stream);
  return 0;
}
