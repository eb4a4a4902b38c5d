// The walk itself: objects, arrays and what is skipped; strings, numbers and problems have sources
// of their own.
#include "Foundation/JsonScanner.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>

#include "Foundation/JsonBytes.hpp"
#include "Foundation/Utf8.hpp"

namespace foundation {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

JsonScanner::JsonScanner(std::string_view text, std::size_t maximumDepth, std::size_t maximumString)
    : maximumDepth_(std::min(maximumDepth, kMaximumDepth)), maximumString_(maximumString) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  const std::size_t wellFormed = firstInvalidUtf8(text);
  cutAtBadUtf8_ = wellFormed < text.size();
  text = text.substr(0, wellFormed);
  begin_ = at_ = text.data();
  end_ = begin_ + text.size();
}

bool JsonScanner::open() {
  if (stopped_) return false;
  if (depth_ == maximumDepth_) return fail(fmt::format("at most {} levels", maximumDepth_));
  ++depth_;
  ++at_;
  return true;
}

inline bool JsonScanner::isKey(std::string_view guess) const {
  const std::size_t room = static_cast<std::size_t>(end_ - at_);
  return !guess.empty() && room > guess.size() + 1 && at_[guess.size() + 1] == '"' &&
         std::memcmp(at_ + 1, guess.data(), guess.size()) == 0;
}

inline bool JsonScanner::next(bool isFirst, char closing) {
  if (stopped_) return false;
  const char c = peek();
  if (!isFirst && c == ',') {
    ++at_;
    return true;
  }
  if (c == closing) {
    ++at_;
    --depth_;
    return false;
  }
  return isFirst || fail(closing == '}' ? "comma or end of object" : "comma or end of array");
}

inline bool JsonScanner::colon() {
  if (peek() != ':') return fail("colon");
  ++at_;
  return true;
}

bool JsonScanner::nextElement(Descent& array) {
  array.place_ = Descent::Place::between;
  if (!next(array.count_ == 0, ']')) return false;
  array.place_ = Descent::Place::element;
  ++array.count_;
  return true;
}

bool JsonScanner::nextMember(Descent& object, std::string_view guess) {
  object.place_ = Descent::Place::between;
  if (!next(object.count_ == 0, '}') || !atKey()) return false;
  ++object.count_;

  if (isKey(guess)) {
    object.setKey(guess);
    at_ += guess.size() + 2;
    return colon();
  }
  const char* const quote = at_++;
  const char* const stop = plainEnd(at_, end_);
  if (stop != end_ && *stop == '"') {
    object.setKey({at_, stop});
    at_ = stop + 1;
  } else {
    bool isText = true;
    object.unescaped_.clear();
    if (!unescape(object.unescaped_, isText)) return false;
    object.setKey(object.unescaped_);
    if (!isText) note(quote, "string", "lone surrogate");
  }
  return isWithinString(object.key().size(), quote) && colon();
}

bool JsonScanner::literal(std::string_view name) {
  if (stopped_) return false;
  for (const char c : name) {
    if (at_ == end_ || *at_ != c) return fail(name);
    ++at_;
  }
  return true;
}

std::size_t JsonScanner::expectedElements(std::size_t count) const {
  if (count == 0) return 1;
  const auto taken = static_cast<double>(at_ - innermost_->begin_);
  const double scale = static_cast<double>(end_ - innermost_->begin_) / taken;
  return static_cast<std::size_t>(static_cast<double>(count) * std::clamp(scale, 1.5, 8.0)) + 1;
}

bool JsonScanner::skipContainer() {
  const bool isObject = *at_ == '{';
  if (!open()) return false;
  for (bool isFirst = true; next(isFirst, isObject ? '}' : ']'); isFirst = false) {
    if (isObject && (!atKey() || !skipString() || !colon())) return false;
    if (!skipValue()) return false;
  }
  return !stopped_;
}

bool JsonScanner::skipValue() {
  if (stopped_) return false;
  const char first = peek();
  switch (first) {
    case '"':
      return skipString();
    case '{':
    case '[':
      return skipContainer();
    case 't':
      return literal("true");
    case 'f':
      return literal("false");
    case 'n':
      return literal("null");
    default:
      break;
  }
  return jsonTypeName(first).empty() ? fail("value") : skipNumber();
}

bool JsonScanner::finish() {
  if (stopped_) return false;
  peek();
  return at_ == end_ && !cutAtBadUtf8_ ? true : fail("end of document");
}

}  // namespace foundation
