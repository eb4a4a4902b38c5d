#include "Cli/Sheet/GalleryPage.hpp"

#include <fmt/format.h>

#include <algorithm>

#include "Cli/Sheet/SheetLayout.hpp"
#include "Foundation/Markup.hpp"

namespace cli {
namespace {

using foundation::escapedMarkup;
using viewkit::Appearance;

constexpr std::string_view kHead = R"(<!doctype html>
<html lang="en">
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>Quorvel widgets</title>
<style>
  :root { --page: #f4f4f2; --text: #17181a; --quiet: #63666b; --line: #dcdcd8; --u: min(1px, .059vw); }
  @media (prefers-color-scheme: dark) {
    :root { --page: #191a1c; --text: #ececea; --quiet: #9a9da3; --line: #303236; }
  }
  @media (max-width: 1100px) { :root { --u: 1px; } }
  body:not(:has(#both:checked)) { --u: 1px; }
  @media (max-width: 420px) { body, body:not(:has(#both:checked)) { --u: .235vw; } }
  html { scroll-padding-top: 4.5rem; }
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
  article { margin: 0 0 1.7rem; }
  .grounds { display: flex; gap: .75rem; }
  .ground { flex: 1 1 0; min-width: 0; border-radius: 18px; padding: clamp(.8rem, 1.4vw, 1.4rem); display: flex; flex-wrap: wrap; gap: calc(20 * var(--u)); align-items: flex-start; }
  .ground > div { display: flex; flex-direction: column; gap: calc(20 * var(--u)); max-width: 100%; }
  .light { background-color: #d7dadf; color: #43474d; }
  .dark { background-color: #0d0e10; color: #adb1b7; }
  .light.wallpaper {
    color: #2b2f36;
    background-image: radial-gradient(60% 90% at 12% 8%, #f6d9c4 0, transparent 70%),
      radial-gradient(70% 80% at 88% 18%, #c8dcf0 0, transparent 70%),
      radial-gradient(80% 90% at 60% 100%, #d5e6d3 0, transparent 75%);
  }
  .dark.wallpaper {
    color: #d3d7de;
    background-image: radial-gradient(60% 90% at 12% 8%, #4a2a35 0, transparent 70%),
      radial-gradient(70% 80% at 88% 18%, #1d3550 0, transparent 70%),
      radial-gradient(80% 90% at 60% 100%, #1f3a33 0, transparent 75%);
  }
  figure { margin: 0; max-width: 100%; }
  figcaption { font-size: .78rem; line-height: 1.3; margin-top: .4rem; }
  img { display: block; max-width: 100%; height: auto; }
  @media (max-width: 1100px) { .grounds { flex-direction: column; } }
  @media (max-width: 640px) { .bar { position: static; } html { scroll-padding-top: .5rem; } }
  body:has(#light:checked) .dark, body:has(#dark:checked) .light { display: none; }
</style>
)";

constexpr std::string_view kShow = R"(<div class="show" role="radiogroup" aria-label="Appearance">
<label><input type="radio" name="show" id="both" checked>Both</label>
<label><input type="radio" name="show" id="light">Light</label>
<label><input type="radio" name="show" id="dark">Dark</label>
</div>
)";

/// The widget's name, and behind it what is special about this row.
std::string heading(const std::string& caption) {
  constexpr std::string_view kDot = " · ";
  const auto dot = caption.find(kDot);
  if (dot == std::string::npos) return escapedMarkup(caption);
  return escapedMarkup(caption.substr(0, dot)) + " <span>" +
         escapedMarkup(caption.substr(dot + kDot.size())) + "</span>";
}

std::string picture(const GallerySection& section,
                    std::size_t row,
                    std::size_t cell,
                    Appearance appearance) {
  const SheetCell& shown = section.rows[row].cells[cell];
  return fmt::format(
      R"html(<figure>
<img loading="lazy" width="{0}" height="{1}" style="width:calc({0}*var(--u))" src="{2}" alt="{3}, {4}">
<figcaption>{4}</figcaption>
</figure>
)html",
      shown.how.size.width,
      shown.how.size.height,
      pictureFile(section, row, cell, appearance),
      escapedMarkup(section.rows[row].caption),
      escapedMarkup(shown.name));
}

/// Whether something is drawn without a ground of its own: it is made to stand on a picture.
bool needsWallpaper(const SheetRow& row) {
  return std::ranges::any_of(row.cells,
                             [](const SheetCell& cell) { return !cell.how.showsBackground; });
}

/// A row's pictures in the columns of the contact sheet. The page's unit, `--u`, lets two columns
/// stand side by side on both grounds, whatever the window's width.
std::string ground(const GallerySection& section, std::size_t row, Appearance appearance) {
  const auto& cells = section.rows[row].cells;
  std::vector<rendering::Size> sizes;
  sizes.reserve(cells.size());
  for (const SheetCell& cell : cells) sizes.push_back(cell.how.size);
  const Packing packing = packRow(sizes, 20);
  std::string text = fmt::format(R"(<div class="ground {}{}"><div>
)",
                                 appearance == Appearance::light ? "light" : "dark",
                                 needsWallpaper(section.rows[row]) ? " wallpaper" : "");
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0 && packing.places[i].x != packing.places[i - 1].x) text += "</div><div>\n";
    text += picture(section, row, i, appearance);
  }
  return text + "</div></div>\n";
}

std::string sectionText(const GallerySection& section) {
  std::string text = fmt::format(R"(<section aria-labelledby="{0}">
<h2 id="{0}">{1}</h2>
<p>{2}</p>
)",
                                 section.id,
                                 escapedMarkup(section.title),
                                 escapedMarkup(section.note));
  for (std::size_t row = 0; row < section.rows.size(); ++row) {
    text += fmt::format(R"(<article>
<h3>{}</h3>
<div class="grounds">
)",
                        heading(section.rows[row].caption));
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
  page += fmt::format(R"(<header>
<h1>Quorvel widgets</h1>
<p>{}</p>
</header>
<main>
<div class="bar">
<nav aria-label="Sections">
)",
                      escapedMarkup(introduction));
  for (const GallerySection& section : sections) {
    page += fmt::format(R"(<a href="#{}">{}</a>
)",
                        section.id,
                        escapedMarkup(section.title));
  }
  page += R"(</nav>
)";
  page += kShow;
  page += R"(</div>
)";
  for (const GallerySection& section : sections) page += sectionText(section);
  return page + R"(</main>
</html>
)";
}

}  // namespace cli
