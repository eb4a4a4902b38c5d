// What clients of the control socket send, and what a placements file holds: no crash, no hang;
// what is accepted reads back as it is written.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "../Tests/Resident/Fakes.hpp"
#include "Control/LineBuffer.hpp"
#include "Resident/Operations.hpp"
#include "Resident/Placements.hpp"

namespace {

using namespace resident;

widgetruntime::InitializeAnswer offer() {
  widgetruntime::InitializeAnswer answer;
  answer.urlScheme = "quorvel-widget";
  for (const char* kind : {"QuorvelDueWidget", "QuorvelSafeToSpendWidget"}) {
    widgetruntime::WidgetListing listing;
    listing.description.kind = kind;
    listing.description.families = {widgetruntime::WidgetFamily::systemSmall,
                                    widgetruntime::WidgetFamily::systemMedium};
    answer.bundle.widgets.push_back(std::move(listing));
  }
  return answer;
}

/// A host whose extension has started and whose loop never turns: nothing is saved.
struct Host {
  Host() {
    host.openLink = [](const std::string&, auto then) { then(""); };
    watchers.tell = [](auto, const auto&) {};
    operations.openBoard = [] { return std::unexpected{"there is no board"}; };
    host.addSurface(watchers);
    host.start();
    asker.initializing.front()(offer());
  }

  Loop loop;
  ManualClock clock;
  FakeAsker asker;
  FakePictureMaker pictureMaker;
  Resident host{{.loop = loop,
                 .clock = clock,
                 .asker = asker,
                 .pictureMaker = pictureMaker,
                 .file = PlacementsFile{"/nonexistent/placements.json"},
                 .device = [](foundation::Instant now) { return foundation::Device{.now = now}; },
                 .log = [](const std::string&) {}},
                std::nullopt};
  Watchers watchers{host};
  Operations operations{host, asker, watchers};
};

void converse(std::string_view bytes) {
  Host host;
  control::LineBuffer lines;
  lines.append(bytes);
  ControlServer::Client client = 1;
  while (const auto line = lines.next()) {
    const auto request = widgetruntime::readRequest(*line);
    if (!request) continue;
    host.operations.handle(client, request->method, request->parameters, [](auto) {});
    // What was asked is answered, so that requests meet widgets in every state.
    auto asked = std::move(host.asker.timelines);
    host.asker.timelines.clear();
    for (auto& timeline : asked) timeline.then(answerTo(timeline.parameters));
    client = client % 3 + 1;
  }
  for (ControlServer::Client one = 1; one <= 3; ++one) host.watchers.leave(one);
}

void readPlacements(std::string_view bytes) {
  const auto placements = decodePlacements(bytes);
  if (!placements) return;
  const auto again = decodePlacements(encodePlacements(*placements));
  if (!again || *again != *placements) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  converse(bytes);
  readPlacements(bytes);
  return 0;
}
