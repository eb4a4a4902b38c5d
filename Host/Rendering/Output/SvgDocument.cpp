#include "Rendering/Output/SvgDocument.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "Foundation/Markup.hpp"
#include "Rendering/Output/SvgText.hpp"

namespace rendering {

namespace {

constexpr std::string_view kEndOfGroup = "</g>\n";

/// A control character has no form in XML.
std::string withoutControls(std::string text) {
  std::erase_if(text, [](char c) { return static_cast<unsigned char>(c) < ' '; });
  return text;
}

}  // namespace

SvgDocument::SvgDocument(const SvgNaming& naming, Size size) : naming_(naming), size_(size) {
  pieces_.resize(2);
  levels_.emplace_back();
}

void SvgDocument::append(std::string_view text) {
  pieces_.back() += text;
  length_ += text.size();
}

std::string SvgDocument::newId(char kind) {
  return fmt::format("{}{}{}", naming_.idPrefix, kind, nextId_++);
}

void SvgDocument::define(std::string_view element) {
  (definitions_ += element) += '\n';
  length_ += element.size() + 1;
}

void SvgDocument::add(std::string_view element) {
  append(element);
  append("\n");
  levels_.back().isEmpty = false;
}

void SvgDocument::push(std::string_view tag, Level level) {
  level.endings = pieces_.size();
  level.masks = level.endings + 2;
  pieces_.resize(level.endings + 2);
  append(tag);
  append("\n");
  pieces_.resize(level.endings + 4);
  levels_.push_back(std::move(level));
}

void SvgDocument::open(std::string_view tag, std::string clipId) {
  push(tag, {.clip = std::move(clipId)});
}

void SvgDocument::openIsolated(std::string_view tag) {
  push(tag, {.isIsolated = true});
}

void SvgDocument::close() {
  levels_.pop_back();
  levels_.back().isEmpty = false;
  append(kEndOfGroup);
}

std::string SvgDocument::clip(std::string_view pathData) {
  std::string id = newId('c');
  define(fmt::format(R"(<clipPath id="{}"><path d="{}"/></clipPath>)", id, pathData));
  return id;
}

void SvgDocument::cutOut(std::string_view pathData) {
  const std::string id = newId('m');
  std::string hole = fmt::format(R"(<path d="{}"/>)", pathData);
  for (std::size_t i = levels_.size(); i-- > 0;) {
    const Level& level = levels_[i];
    if (!level.clip.empty()) {
      hole = fmt::format(R"svg(<g clip-path="url(#{})">{}</g>)svg", level.clip, hole);
    }
    if (level.isIsolated) break;
  }
  define(fmt::format(
      R"(<mask id="{0}" maskUnits="userSpaceOnUse" x="0" y="0" width="{1}" height="{2}">)"
      R"(<rect width="{1}" height="{2}" fill="#FFFFFF"/>{3}</mask>)",
      id,
      svg::number(size_.width),
      svg::number(size_.height),
      hole));
  const std::string mask = fmt::format("<g mask=\"url(#{})\">\n", id);
  std::size_t end = pieces_.size() - 1;
  for (std::size_t i = levels_.size(); i-- > 0;) {
    const Level& level = levels_[i];
    if (!level.isEmpty) {
      pieces_[level.masks].insert(0, mask);
      pieces_[end] += kEndOfGroup;
      length_ += mask.size() + kEndOfGroup.size();
    }
    if (level.isIsolated) break;
    end = level.endings;
  }
}

/// The end of the opening tag and the title, which is what a screen reader says of the whole: the
/// outlines inside say nothing.
std::string SvgDocument::nameOfPicture() const {
  if (naming_.title.empty()) return ">\n";
  return fmt::format(R"( role="img" aria-labelledby="{0}title">
<title id="{0}title">{1}</title>
)",
                     naming_.idPrefix,
                     withoutControls(foundation::escapedMarkup(naming_.title)));
}

std::string SvgDocument::finish() {
  while (levels_.size() > 1) close();
  std::string out = fmt::format(
      R"(<svg xmlns="http://www.w3.org/2000/svg" width="{0}" height="{1}" viewBox="0 0 {0} {1}")"
      "{2}<defs>\n{3}</defs>\n",
      svg::number(size_.width),
      svg::number(size_.height),
      nameOfPicture(),
      definitions_);
  for (const std::string& piece : pieces_) out += piece;
  return out + "</svg>\n";
}

}  // namespace rendering
