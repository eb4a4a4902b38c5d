#include "Cli/GalleryPage.hpp"

#include <fmt/format.h>

#include "Cli/SheetLayout.hpp"

namespace cli {
namespace {

using viewkit::Appearance;

constexpr std::string_view kHead = R"(<!doctype html>
<html lang="en">
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>Quorvel widgets</title>
<style>
  :root { --page: #f4f4f2; --text: #17181a; --quiet: #63666b; --line: #dcdcd8; --u: 1px; }
  @media (prefers-color-scheme: dark) {
    :root { --page: #191a1c; --text: #ececea; --quiet: #9a9da3; --line: #303236; }
  }
  @media (max-width: 1720px) { :root { --u: .86px; } }
  @media (max-width: 1480px) { :root { --u: .8px; } }
  @media (max-width: 900px) { :root { --u: 1px; } }
  html { scroll-behavior: smooth; scroll-padding-top: 4.5rem; }
  body {
    margin: 0 auto; padding: 0 clamp(.75rem, 2.5vw, 3rem) 6rem; max-width: 108rem;
    background: var(--page); color: var(--text); font: 15px/1.5 Inter, system-ui, sans-serif;
  }
  header { padding: 3.5rem 0 1.5rem; }
  h1 { font-size: clamp(1.7rem, 3.4vw, 2.5rem); font-weight: 680; letter-spacing: -.025em; line-height: 1.15; margin: 0 0 .5rem; }
  h2 { font-size: 1.35rem; font-weight: 650; letter-spacing: -.015em; margin: 0; }
  h3 { font-size: .84rem; font-weight: 550; margin: 0 0 .55rem; }
  h3 span { color: var(--quiet); font-weight: 400; }
  p { color: var(--quiet); max-width: 46rem; margin: 0; }
  .bar {
    position: sticky; top: 0; z-index: 1; display: flex; flex-wrap: wrap; gap: .3rem 1.5rem;
    align-items: baseline; justify-content: space-between; padding: .7rem 0;
    background: var(--page); border-bottom: 1px solid var(--line); font-size: .87rem;
  }
  nav, .show { display: flex; flex-wrap: wrap; gap: .3rem 1.15rem; }
  a { color: inherit; text-decoration: none; }
  a:hover { text-decoration: underline; text-underline-offset: .25em; }
  label { color: var(--quiet); cursor: pointer; }
  label:has(:checked) { color: var(--text); font-weight: 600; }
  label:has(:focus-visible), a:focus-visible { outline: 2px solid; outline-offset: 3px; border-radius: 3px; }
  label input { position: absolute; opacity: 0; }
  section { padding-top: 3.2rem; }
  section > p { margin: .3rem 0 1.6rem; }
  article { margin: 0 0 1.7rem; content-visibility: auto; contain-intrinsic-size: auto 26rem; }
  .grounds { display: flex; gap: .75rem; }
  .ground { flex: 1 1 0; min-width: 0; border-radius: 18px; padding: clamp(.8rem, 1.4vw, 1.4rem); display: flex; flex-wrap: wrap; gap: calc(20 * var(--u)); align-items: flex-start; }
  .ground > div { display: flex; flex-direction: column; gap: calc(20 * var(--u)); max-width: 100%; }
  .light { background: #d7dadf; }
  .dark { background: #0d0e10; }
  img { display: block; max-width: 100%; height: auto; }
  @media (max-width: 900px) { .grounds { flex-direction: column; } }
  body:has(#light:checked) .dark, body:has(#dark:checked) .light { display: none; }
</style>
)";

constexpr std::string_view kShow = R"(<div class="show" role="radiogroup" aria-label="Appearance">
<label><input type="radio" name="show" id="both" checked>Both</label>
<label><input type="radio" name="show" id="light">Light</label>
<label><input type="radio" name="show" id="dark">Dark</label>
</div>
)";

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '&') {
      result += "&amp;";
    } else if (c == '<') {
      result += "&lt;";
    } else if (c == '"') {
      result += "&quot;";
    } else {
      result += c;
    }
  }
  return result;
}

/// The widget's name, and behind it what is special about this row.
std::string heading(const std::string& caption) {
  constexpr std::string_view kDot = " · ";
  const auto dot = caption.find(kDot);
  if (dot == std::string::npos) return escaped(caption);
  return escaped(caption.substr(0, dot)) + " <span>" + escaped(caption.substr(dot + kDot.size())) +
         "</span>";
}

std::string picture(const GallerySection& section,
                    std::size_t row,
                    std::size_t cell,
                    Appearance appearance) {
  const SheetCell& shown = section.rows[row].cells[cell];
  return fmt::format(
      "<img loading=\"lazy\" width=\"{0}\" height=\"{1}\" style=\"width:calc({0}*var(--u))\" "
      "src=\"{2}\" alt=\"{3}, {4}\" title=\"{4}\">\n",
      shown.how.size.width,
      shown.how.size.height,
      pictureFile(section, row, cell, appearance),
      escaped(section.rows[row].caption),
      escaped(shown.name));
}

/// A row's pictures in the columns of the contact sheet.
std::string ground(const GallerySection& section, std::size_t row, Appearance appearance) {
  const auto& cells = section.rows[row].cells;
  std::vector<rendering::Size> sizes;
  sizes.reserve(cells.size());
  for (const SheetCell& cell : cells) sizes.push_back(cell.how.size);
  const Packing packing = packRow(sizes, 20);
  std::string text = fmt::format("<div class=\"ground {}\"><div>\n",
                                 appearance == Appearance::light ? "light" : "dark");
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0 && packing.places[i].x != packing.places[i - 1].x) text += "</div><div>\n";
    text += picture(section, row, i, appearance);
  }
  return text + "</div></div>\n";
}

std::string sectionText(const GallerySection& section) {
  std::string text = fmt::format("<section id=\"{}\">\n<h2>{}</h2>\n<p>{}</p>\n",
                                 section.id,
                                 escaped(section.title),
                                 escaped(section.note));
  for (std::size_t row = 0; row < section.rows.size(); ++row) {
    text +=
        "<article>\n<h3>" + heading(section.rows[row].caption) + "</h3>\n<div class=\"grounds\">\n";
    text += ground(section, row, Appearance::light) + ground(section, row, Appearance::dark);
    text += "</div>\n</article>\n";
  }
  return text + "</section>\n";
}

}  // namespace

std::string pictureFile(const GallerySection& section,
                        std::size_t row,
                        std::size_t cell,
                        Appearance appearance) {
  return fmt::format("pictures/{}-{}-{}-{}.svg",
                     section.id,
                     row + 1,
                     cell + 1,
                     appearance == Appearance::light ? "light" : "dark");
}

std::string galleryPage(const std::vector<GallerySection>& sections,
                        const std::string& introduction) {
  std::string page{kHead};
  page += "<header>\n<h1>Quorvel widgets</h1>\n<p>" + escaped(introduction) + "</p>\n</header>\n";
  page += "<div class=\"bar\">\n<nav aria-label=\"Sections\">\n";
  for (const GallerySection& section : sections) {
    page += fmt::format("<a href=\"#{}\">{}</a>\n", section.id, escaped(section.title));
  }
  page += "</nav>\n" + std::string{kShow} + "</div>\n";
  for (const GallerySection& section : sections) page += sectionText(section);
  return page + "</html>\n";
}

}  // namespace cli
