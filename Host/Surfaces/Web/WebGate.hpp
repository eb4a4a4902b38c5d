// Who may ask the board's server for what, decided from the head of a request alone.
//
// Any program of any user, and any page of any site that a browser shows, can reach a port on the
// loopback address. So a request must name the server's own random host, must not come from a
// foreign page, and, but for the page itself, must carry the token that only the person's browser
// was given. Cookies are never used: browsers send them to every port of a host.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace surfaces {

inline constexpr std::size_t kMaximumBody = std::size_t{1} << 20;  ///< bytes of a request's body

/// What a client has sent before the body. Every value of a field that was sent, in order.
struct RequestHead {
  std::string method;
  std::string target;  ///< as on the request line, with its query
  std::vector<std::string> hosts;
  std::vector<std::string> origins;
  std::vector<std::string> fetchSites;
  std::vector<std::string> authorizations;
  std::vector<std::string> contentTypes;
  std::vector<std::string> contentLengths;
  bool isChunked = false;
};

struct GateRules {
  std::string host;   ///< "name:port", the only one that is served
  std::string token;  ///< of the bearer
  std::vector<std::string> publicPaths;
};

struct Refusal {
  int status = 400;
  std::string line;  ///< for the person behind the client

  friend bool operator==(const Refusal&, const Refusal&) = default;
};

/// Nothing when the request may go on.
[[nodiscard]] std::optional<Refusal> refuse(const RequestHead& head, const GateRules& rules);

/// The path of an origin-form target: without its query, percent signs not decoded.
[[nodiscard]] std::string_view pathOf(std::string_view target);

/// 128 random bits of the kernel in hexadecimal; nothing when the kernel has none to give.
[[nodiscard]] std::optional<std::string> randomName();

}  // namespace surfaces
