// A source of an sd-event loop that ends with its owner.
#pragma once

#include <memory>

struct sd_event_source;

namespace surfaces {

struct EndEventSource {
  void operator()(sd_event_source* source) const;
};
using EventSource = std::unique_ptr<sd_event_source, EndEventSource>;

}  // namespace surfaces
