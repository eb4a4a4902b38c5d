// Replies as the HTTP library takes them, with the headers that every answer of the server has.
#pragma once

#include <string>

#include "Surfaces/Web/WebGate.hpp"
#include "Surfaces/Web/WebServer.hpp"

struct MHD_Response;

namespace surfaces {

/// What a browser may do with it; `fileName` is offered for a download, empty: shown.
void addHeaders(MHD_Response* response, const std::string& type, const std::string& fileName);

/// To be destroyed by the caller; null without memory.
[[nodiscard]] MHD_Response* makeResponse(const WebReply& reply);

[[nodiscard]] WebReply replyTo(const Refusal& refusal);

}  // namespace surfaces
