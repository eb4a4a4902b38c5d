#include "Surfaces/Web/EventSource.hpp"

#include <systemd/sd-event.h>

namespace surfaces {

void EndEventSource::operator()(sd_event_source* source) const {
  sd_event_source_disable_unref(source);
}

}  // namespace surfaces
