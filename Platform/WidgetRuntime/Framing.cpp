#include "WidgetRuntime/Framing.hpp"

#include <fmt/format.h>

#include <charconv>
#include <utility>

#include "Foundation/Ascii.hpp"

namespace widgetruntime {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kHeaderEnd = "\r\n\r\n";
constexpr std::string_view kLength = "content-length";

bool isNameCharacter(char c) {
  return foundation::isAsciiLetterOrDigit(c) || c == '-';
}

// Header names do not tell upper from lower case.
bool equalsIgnoringCase(std::string_view text, std::string_view lower) {
  if (text.size() != lower.size()) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i] >= 'A' && text[i] <= 'Z' ? static_cast<char>(text[i] + 32) : text[i];
    if (c != lower[i]) return false;
  }
  return true;
}

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

std::optional<std::size_t> decimal(std::string_view text) {
  std::size_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return value;
}

struct HeaderField {
  std::string_view name;
  std::string_view value;
};

std::optional<HeaderField> parseField(std::string_view line) {
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos || colon == 0) return std::nullopt;
  for (const char c : line.substr(0, colon)) {
    if (!isNameCharacter(c)) return std::nullopt;
  }
  return HeaderField{line.substr(0, colon), trimmed(line.substr(colon + 1))};
}

// Exactly one length; other well-formed fields are passed over.
std::expected<std::size_t, std::string> parseLength(std::string_view header) {
  std::optional<std::size_t> length;
  while (!header.empty()) {
    const std::size_t end = header.find(kLineEnd);
    const auto field = parseField(header.substr(0, end));
    header.remove_prefix(end + kLineEnd.size());
    if (!field) return std::unexpected("a header line is not \"name: value\"");
    if (!equalsIgnoringCase(field->name, kLength)) continue;
    if (length) return std::unexpected("two Content-Length headers");
    length = decimal(field->value);
    if (!length) return std::unexpected("Content-Length is no number of bytes");
  }
  if (!length) return std::unexpected("no Content-Length header");
  return *length;
}

}  // namespace

std::string encodeFrame(std::string_view body) {
  return fmt::format("Content-Length: {}\r\n\r\n{}", body.size(), body);
}

FrameDecoder::FrameDecoder(std::size_t maximumMessage) : maximumMessage_(maximumMessage) {}

void FrameDecoder::append(std::string_view bytes) {
  if (error_) return;
  if (position_ > 0 && position_ >= buffer_.size() / 2) {
    buffer_.erase(0, position_);
    position_ = 0;
  }
  buffer_ += bytes;
}

std::expected<std::optional<std::string>, FrameError> FrameDecoder::fail(std::string message) {
  error_ = FrameError{std::move(message)};
  buffer_ = {};
  position_ = 0;
  return std::unexpected(*error_);
}

std::expected<std::optional<std::size_t>, FrameError> FrameDecoder::readHeader() {
  const std::string_view rest = std::string_view{buffer_}.substr(position_);
  const std::size_t end = rest.substr(0, kMaximumHeader).find(kHeaderEnd);
  if (end == std::string_view::npos) {
    if (rest.size() < kMaximumHeader) return std::nullopt;
    return std::unexpected(FrameError{fmt::format("no end of header in {} bytes", kMaximumHeader)});
  }
  const auto length = parseLength(rest.substr(0, end + kLineEnd.size()));
  if (!length) return std::unexpected(FrameError{length.error()});
  if (*length > maximumMessage_) {
    return std::unexpected(
        FrameError{fmt::format("{} bytes, {} are allowed", *length, maximumMessage_)});
  }
  position_ += end + kHeaderEnd.size();
  return *length;
}

std::expected<std::optional<std::string>, FrameError> FrameDecoder::next() {
  if (error_) return std::unexpected(*error_);
  if (!bodyLength_) {
    const auto length = readHeader();
    if (!length) return fail(length.error().message);
    bodyLength_ = *length;
  }
  if (!bodyLength_ || pending() < *bodyLength_) return std::nullopt;
  std::string body = buffer_.substr(position_, *bodyLength_);
  position_ += *bodyLength_;
  bodyLength_.reset();
  if (position_ == buffer_.size()) {
    buffer_.clear();
    position_ = 0;
  }
  return body;
}

}  // namespace widgetruntime
