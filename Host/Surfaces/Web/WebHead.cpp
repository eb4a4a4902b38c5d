#include "Surfaces/Web/WebHead.hpp"

#include <microhttpd.h>

#include <cstring>
#include <utility>

namespace surfaces {
namespace {

MHD_Result collectHead(void* to, MHD_ValueKind, const char* name, const char* value) {
  auto& head = *static_cast<RequestHead*>(to);
  const std::string text = value ? value : "";
  const auto is = [&](const char* field) { return strcasecmp(name, field) == 0; };
  if (is("Host")) head.hosts.push_back(text);
  if (is("Origin")) head.origins.push_back(text);
  if (is("Sec-Fetch-Site")) head.fetchSites.push_back(text);
  if (is("Authorization")) head.authorizations.push_back(text);
  if (is("Content-Type")) head.contentTypes.push_back(text);
  if (is("Content-Length")) head.contentLengths.push_back(text);
  if (is("Transfer-Encoding")) head.isChunked = true;
  return MHD_YES;
}

MHD_Result collectQuery(void* to, MHD_ValueKind, const char* name, const char* value) {
  (*static_cast<std::map<std::string, std::string>*>(to))[name] = value ? value : "";
  return MHD_YES;
}

}  // namespace

RequestHead headOf(MHD_Connection* connection, std::string method, std::string target) {
  RequestHead head{.method = std::move(method), .target = std::move(target)};
  MHD_get_connection_values(connection, MHD_HEADER_KIND, &collectHead, &head);
  return head;
}

std::map<std::string, std::string> queryOf(MHD_Connection* connection) {
  std::map<std::string, std::string> query;
  MHD_get_connection_values(connection, MHD_GET_ARGUMENT_KIND, &collectQuery, &query);
  return query;
}

}  // namespace surfaces
