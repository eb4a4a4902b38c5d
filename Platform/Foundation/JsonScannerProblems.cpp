// Problems: what was expected, what was found, and where, as an RFC 6901 pointer and a position.
#include <fmt/format.h>

#include <algorithm>
#include <ranges>
#include <utility>

#include "Foundation/JsonBytes.hpp"
#include "Foundation/JsonScanner.hpp"
#include "Foundation/Utf8.hpp"

namespace foundation {
namespace {

constexpr std::size_t kMaximumProblems = 100;

/// RFC 6901 writes two characters otherwise. Of an endless key only as much is looked at as any
/// pointer has room for.
void appendPointerToken(std::string& out, std::string_view key) {
  for (const char c : key.substr(0, kMaximumPointer + 1)) {
    if (c == '~') {
      out += "~0";
    } else if (c == '/') {
      out += "~1";
    } else {
      out += c;
    }
  }
}

}  // namespace

void JsonScanner::mismatch(std::string_view expected) {
  const std::string_view found = jsonTypeName(peek());
  const char* const start = at_;
  if (skipValue()) note(start, expected, found);
}

void JsonScanner::note(const char* at, std::string_view expected, std::string_view found) {
  if (noted_.size() == kMaximumProblems) {
    ++leftOut_;
    return;
  }
  // A missing key is noted at the start of its object, after the problems within.
  noted_.insert(
      std::ranges::upper_bound(noted_, at, {}, &Noted::at),
      {at, {.pointer = pointer(), .expected = std::string(expected), .found = std::string(found)}});
}

bool JsonScanner::fail(std::string_view expected) {
  if (stopped_) return false;
  const bool atBadUtf8 = cutAtBadUtf8_ && at_ == end_;
  note(at_, atBadUtf8 ? "UTF-8" : expected, foundAt(at_));
  stopped_ = true;
  return false;
}

std::string JsonScanner::foundAt(const char* at) const {
  if (at == end_ && !cutAtBadUtf8_) return "end of document";
  if (isAsciiDigit(*at)) return "digit";  // never which: it may belong to an amount
  if (*at > 0x20 && *at < 0x7F) return fmt::format("'{}'", *at);
  return fmt::format("byte 0x{:02X}", static_cast<unsigned char>(*at));
}

std::string JsonScanner::pointer() const {
  std::vector<const Descent*> descents;
  for (const Descent* d = innermost_; d != nullptr; d = d->parent_) descents.push_back(d);
  std::string out;
  for (const Descent* descent : descents | std::views::reverse) {
    if (descent->place_ == Descent::Place::between) break;  // only the innermost can be
    if (out.size() > kMaximumPointer) break;
    out += '/';
    if (descent->place_ == Descent::Place::element) {
      out += fmt::format_int(descent->count_ - 1).str();
    } else {
      appendPointerToken(out, descent->key_);
    }
  }
  shortenUtf8(out, kMaximumPointer);
  return out;
}

std::vector<JsonProblem> JsonScanner::takeProblems() {
  std::vector<JsonProblem> problems;
  std::size_t line = 1;
  const char* lineStart = begin_;
  const char* counted = begin_;
  for (Noted& noted : noted_) {
    for (; counted != noted.at; ++counted) {
      if (*counted != '\n') continue;
      ++line;
      lineStart = counted + 1;
    }
    noted.problem.line = line;
    noted.problem.column = static_cast<std::size_t>(noted.at - lineStart) + 1;
    problems.push_back(std::move(noted.problem));
  }
  noted_.clear();
  return problems;
}

}  // namespace foundation
