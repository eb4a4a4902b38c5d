// Replies as the HTTP library takes them, with the headers that every answer of the server has.
#pragma once

#include <string>

#include "Surfaces/Web/WebGate.hpp"
#include "Surfaces/Web/WebServer.hpp"

struct MHD_Connection;
struct MHD_Response;

namespace surfaces {

/// What a browser may do with it; `fileName` is offered for a download, empty: shown.
void addHeaders(MHD_Response* response, const std::string& type, const std::string& fileName);

/// Hands the connection its answer; false without memory.
[[nodiscard]] bool queueReply(MHD_Connection* connection, const WebReply& reply);

[[nodiscard]] WebReply replyTo(const Refusal& refusal);

}  // namespace surfaces
