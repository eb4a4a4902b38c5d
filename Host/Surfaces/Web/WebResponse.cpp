#include "Surfaces/Web/WebResponse.hpp"

#include <microhttpd.h>

#include <array>
#include <utility>

#include "Surfaces/Web/BoardJson.hpp"

namespace surfaces {
namespace {

/// Scripts, styles and pictures of this server alone; no frame, no form, nothing inline.
constexpr std::string_view kPolicy =
    "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self' data:; "
    "connect-src 'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'";

}  // namespace

WebReply replyTo(const Refusal& refusal) {
  return {refusal.status, "application/json", errorJson(refusal.line), {}};
}

void addHeaders(MHD_Response* response, const std::string& type, const std::string& fileName) {
  const std::array<std::pair<const char*, std::string>, 8> headers{{
      {"Content-Type", type},
      {"Content-Security-Policy", std::string(kPolicy)},
      {"Cross-Origin-Resource-Policy", "same-origin"},
      {"Cross-Origin-Opener-Policy", "same-origin"},
      {"X-Content-Type-Options", "nosniff"},
      {"Cache-Control", "no-store"},
      {"Referrer-Policy", "no-referrer"},
      {"Content-Disposition",
       fileName.empty() ? "inline" : "attachment; filename=\"" + fileName + "\""},
  }};
  for (const auto& [name, value] : headers) MHD_add_response_header(response, name, value.c_str());
}

bool queueReply(MHD_Connection* connection, const WebReply& reply) {
  // The library copies the body and does not change it.
  auto* body = const_cast<char*>(reply.body.data());
  MHD_Response* response =
      MHD_create_response_from_buffer(reply.body.size(), body, MHD_RESPMEM_MUST_COPY);
  if (!response) return false;
  addHeaders(response, reply.type, reply.fileName);
  const auto queued = MHD_queue_response(connection, static_cast<unsigned>(reply.status), response);
  MHD_destroy_response(response);
  return queued == MHD_YES;
}

}  // namespace surfaces
