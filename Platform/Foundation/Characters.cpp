// Unicode classes and breaks, with a short way for plain ASCII.
#include "Foundation/Characters.hpp"

#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>

#include <algorithm>
#include <memory>

#include "Foundation/Utf8.hpp"

namespace foundation {
namespace {

/// Every byte is a cluster; CR LF would be one of two bytes.
bool isPlain(std::string_view text) {
  return std::ranges::all_of(
      text, [](char c) { return static_cast<unsigned char>(c) < 0x80 && c != '\r'; });
}

/// Made once for each thread, since it is slow to make and not safe to share.
icu::BreakIterator* clusterIterator() {
  thread_local const std::unique_ptr<icu::BreakIterator> kept = [] {
    UErrorCode status = U_ZERO_ERROR;
    return std::unique_ptr<icu::BreakIterator>(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  }();
  return kept.get();
}

/// Calls `take` with each cluster until it returns false.
template <class Take>
void forEachCluster(std::string_view text, Take take) {
  icu::BreakIterator* const iterator = isPlain(text) ? nullptr : clusterIterator();
  if (iterator == nullptr) {
    for (std::size_t i = 0; i < text.size() && take(text.substr(i, 1)); ++i) {
    }
    return;
  }
  UErrorCode status = U_ZERO_ERROR;
  UText view = UTEXT_INITIALIZER;
  utext_openUTF8(&view, text.data(), static_cast<std::int64_t>(text.size()), &status);
  iterator->setText(&view, status);
  if (U_SUCCESS(status)) {
    auto start = static_cast<std::size_t>(iterator->first());
    for (std::int32_t next = iterator->next(); next != icu::BreakIterator::DONE;
         next = iterator->next()) {
      const auto end = static_cast<std::size_t>(next);
      if (!take(text.substr(start, end - start))) break;
      start = end;
    }
  }
  utext_close(&view);
}

UChar32 firstScalar(std::string_view text) {
  return static_cast<UChar32>(utf8Step(text).scalar);
}

/// Tab and the space separators, with the zero-width space that the platform counts among them.
bool isSpace(char32_t scalar) {
  return scalar == '\t' || scalar == ' ' || scalar == 0xA0 || scalar == 0x1680 ||
         (scalar >= 0x2000 && scalar <= 0x200B) || scalar == 0x202F || scalar == 0x205F ||
         scalar == 0x3000;
}

bool isLineBreak(char32_t scalar) {
  return (scalar >= 0x0A && scalar <= 0x0D) || scalar == 0x85 || scalar == 0x2028 ||
         scalar == 0x2029;
}

template <class Skips>
std::string_view skippingFront(std::string_view text, Skips skips) {
  while (!text.empty()) {
    const Utf8Step step = utf8Step(text);
    if (!step.valid || !skips(step.scalar)) break;
    text.remove_prefix(step.length);
  }
  return text;
}

/// The last scalar; of a text that ends in no scalar, its last byte.
Utf8Step lastStep(std::string_view text) {
  const std::size_t most = std::min<std::size_t>(text.size(), 4);
  for (std::size_t length = 1; length <= most; ++length) {
    const Utf8Step step = utf8Step(text.substr(text.size() - length));
    if (step.valid && step.length == length) return step;
  }
  return {.length = 1};
}

}  // namespace

std::vector<std::string_view> graphemeClusters(std::string_view text) {
  std::vector<std::string_view> clusters;
  forEachCluster(text, [&](std::string_view cluster) {
    clusters.push_back(cluster);
    return true;
  });
  return clusters;
}

std::size_t graphemeCount(std::string_view text) {
  std::size_t count = 0;
  forEachCluster(text, [&](std::string_view) {
    ++count;
    return true;
  });
  return count;
}

bool isLetter(std::string_view cluster) {
  return u_hasBinaryProperty(firstScalar(cluster), UCHAR_ALPHABETIC) != 0;
}

bool isNumber(std::string_view cluster) {
  return u_getIntPropertyValue(firstScalar(cluster), UCHAR_NUMERIC_TYPE) != U_NT_NONE;
}

bool isEmoji(std::string_view cluster) {
  constexpr std::string_view kPictureSelector = "\uFE0F";
  constexpr UChar32 kPictographs = 0x1F000;
  const UChar32 first = firstScalar(cluster);
  return cluster.find(kPictureSelector) != std::string_view::npos ||
         u_hasBinaryProperty(first, UCHAR_EMOJI_PRESENTATION) != 0 ||
         u_hasBinaryProperty(first, UCHAR_REGIONAL_INDICATOR) != 0 ||
         (first >= kPictographs && u_hasBinaryProperty(first, UCHAR_EXTENDED_PICTOGRAPHIC) != 0);
}

std::string uppercasedFirstCharacter(std::string_view text) {
  std::string_view first;
  forEachCluster(text, [&](std::string_view cluster) {
    first = cluster;
    return false;
  });
  std::string upper;
  icu::StringByteSink<std::string> sink(&upper);
  UErrorCode status = U_ZERO_ERROR;
  icu::CaseMap::utf8ToUpper(
      "", 0, {first.data(), static_cast<std::int32_t>(first.size())}, sink, nullptr, status);
  return upper;
}

std::string_view trimmingSpaces(std::string_view text) {
  text = skippingFront(text, isSpace);
  while (!text.empty()) {
    const Utf8Step last = lastStep(text);
    if (!last.valid || !isSpace(last.scalar)) break;
    text.remove_suffix(last.length);
  }
  return text;
}

std::string_view skippingSpacesAndLineBreaks(std::string_view text) {
  return skippingFront(text,
                       [](char32_t scalar) { return isSpace(scalar) || isLineBreak(scalar); });
}

}  // namespace foundation
