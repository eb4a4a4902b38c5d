#include "Surfaces/Web/WebGate.hpp"

#include <sys/random.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

#include "Foundation/Ascii.hpp"

namespace surfaces {
namespace {

constexpr std::string_view kBearer = "Bearer ";

/// Takes as long for every wrong token, so that none is guessed letter by letter.
bool equalsInConstantTime(std::string_view a, std::string_view b) {
  unsigned difference = a.size() == b.size() ? 0 : 1;
  for (std::size_t i = 0; i < a.size() && !b.empty(); ++i)
    difference |= static_cast<unsigned char>(a[i]) ^ static_cast<unsigned char>(b[i % b.size()]);
  return difference == 0;
}

std::string lower(std::string_view text) {
  std::string lowered(text);
  for (char& c : lowered)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return lowered;
}

bool isJson(std::string_view contentType) {
  const auto end = std::min(contentType.find(';'), contentType.size());
  std::string type = lower(contentType.substr(0, end));
  while (type.ends_with(' ')) type.pop_back();
  return type == "application/json";
}

std::optional<Refusal> refuseTarget(const RequestHead& head) {
  if (!head.target.starts_with('/') || head.target.starts_with("//"))
    return Refusal{400, "Only paths of this server can be asked for."};
  const std::string_view path = pathOf(head.target);
  const bool isPlain = std::ranges::all_of(path, [](char c) {
    return foundation::isAsciiLetterOrDigit(c) || c == '/' || c == '.' || c == '-' || c == '_';
  });
  if (!isPlain || path.find("..") != std::string_view::npos)
    return Refusal{404, "There is nothing here."};
  return std::nullopt;
}

/// Where the request comes from: the host it names and the page that sends it.
std::optional<Refusal> refuseSource(const RequestHead& head, const GateRules& rules) {
  if (head.hosts.size() != 1) return Refusal{400, "A request names one host."};
  if (lower(head.hosts.front()) != rules.host)
    return Refusal{421, "This server answers to another name."};
  for (const std::string& site : head.fetchSites)
    if (site != "same-origin" && site != "none")
      return Refusal{403, "Another site's page may not ask."};
  for (const std::string& origin : head.origins)
    if (lower(origin) != "http://" + rules.host)
      return Refusal{403, "Another site's page may not ask."};
  return std::nullopt;
}

std::optional<Refusal> refuseBody(const RequestHead& head) {
  if (head.method != "POST") {
    const bool hasBody = head.isChunked ||
                         std::ranges::any_of(head.contentLengths, [](auto& n) { return n != "0"; });
    return hasBody ? std::optional(Refusal{400, "A question has no body."}) : std::nullopt;
  }
  if (head.isChunked || head.contentLengths.size() != 1)
    return Refusal{411, "A request says how long it is."};
  const std::string& text = head.contentLengths.front();
  std::uint64_t length = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), length);
  if (read.ec != std::errc{} || read.ptr != text.data() + text.size())
    return Refusal{400, "The length is no number."};
  if (length > kMaximumBody) return Refusal{413, "A request has at most 1 MiB."};
  // A form of a foreign page can send no JSON without asking first.
  if (head.contentTypes.size() != 1 || !isJson(head.contentTypes.front()))
    return Refusal{415, "A request is JSON."};
  return std::nullopt;
}

}  // namespace

std::string_view pathOf(std::string_view target) {
  return target.substr(0, target.find('?'));
}

std::optional<Refusal> refuse(const RequestHead& head, const GateRules& rules) {
  if (auto refusal = refuseTarget(head)) return refusal;
  if (auto refusal = refuseSource(head, rules)) return refusal;
  if (head.method != "GET" && head.method != "HEAD" && head.method != "POST")
    return Refusal{405, "Only GET and POST are understood."};
  const bool isPublic =
      std::ranges::find(rules.publicPaths, pathOf(head.target)) != rules.publicPaths.end();
  const bool hasToken =
      head.authorizations.size() == 1 && head.authorizations.front().starts_with(kBearer) &&
      equalsInConstantTime(std::string_view(head.authorizations.front()).substr(kBearer.size()),
                           rules.token);
  if (!isPublic && (rules.token.empty() || !hasToken))
    return Refusal{401, "This page is out of date: `quorvel-host board` opens the board anew."};
  return refuseBody(head);
}

std::optional<std::string> randomName() {
  std::array<unsigned char, 16> bytes{};
  if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
    return std::nullopt;
  std::string name;
  for (const unsigned char byte : bytes) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    name += kDigits[byte >> 4];
    name += kDigits[byte & 15];
  }
  return name;
}

}  // namespace surfaces
