#include "Surfaces/Bar/BarLine.hpp"

#include <algorithm>
#include <array>

#include "Foundation/JsonWriter.hpp"
#include "Foundation/Markup.hpp"

namespace surfaces {
namespace {

using foundation::escapedMarkup;  // Waybar reads its texts as Pango markup
using foundation::JsonWriter;

/// Legible on a dark bar and on a light one; empty: the bar's own colour.
std::string_view colorOf(const BarLine& line) {
  if (line.state == "critical") return "#D9534F";
  if (line.state == "warning") return "#C98500";
  return {};
}

/// Where there is no text, the widget's name stands.
std::string shownText(const BarLine& line) {
  std::string text = line.text;
  if (text.empty()) text = line.status == "failed" ? line.kind + ": no answer" : line.kind;
  std::ranges::replace(text, '\n', ' ');
  return text;
}

std::string fullTooltip(const BarLine& line) {
  if (line.reason.empty()) return line.tooltip;
  const bool needsBreak = !line.tooltip.empty() && !line.tooltip.ends_with('\n');
  return line.tooltip + (needsBreak ? "\n" : "") + line.status + ": " + line.reason;
}

/// No text may begin a tag of polybar's: a zero-width space parts the two characters. It has no
/// glyph for the isolates around amounts and knows no direction, so they are left out.
std::string forItsFonts(std::string_view text) {
  constexpr std::array<std::string_view, 4> kIsolates{"\u2066", "\u2067", "\u2068", "\u2069"};
  std::string out;
  while (!text.empty()) {
    const auto isolate = std::ranges::find_if(
        kIsolates, [&](std::string_view mark) { return text.starts_with(mark); });
    if (isolate == kIsolates.end()) out += text.front();
    if (text.starts_with("%{")) out += "\u200B";
    text.remove_prefix(isolate == kIsolates.end() ? 1 : isolate->size());
  }
  return out;
}

std::string forWaybar(const BarLine& line) {
  JsonWriter json;
  json.beginObject().member("text", escapedMarkup(shownText(line)));
  json.member("tooltip", escapedMarkup(fullTooltip(line))).member("alt", line.state);
  json.key("class").beginArray().value(line.state);
  if (line.isHidden) json.value("hidden");
  if (line.status != "live") json.value(line.status);
  json.endArray().endObject();
  return json.take() + "\n";
}

void beginBlock(JsonWriter& json, const BarLine& line) {
  json.beginObject().member("full_text", shownText(line));
  if (const auto color = colorOf(line); !color.empty()) json.member("color", color);
  json.member("urgent", line.state == "critical");
}

std::string forI3bar(const BarLine& line) {
  JsonWriter json;
  json.beginArray();
  beginBlock(json, line);
  json.member("name", "quorvel").member("instance", line.kind).endObject().endArray();
  return json.take() + ",\n";
}

std::string forI3blocks(const BarLine& line) {
  JsonWriter json;
  beginBlock(json, line);
  return json.endObject().take() + "\n";
}

std::string forPolybar(const BarLine& line) {
  const std::string text = forItsFonts(shownText(line));
  const auto color = colorOf(line);
  if (color.empty()) return text + "\n";
  return "%{F" + std::string(color) + "}" + text + "%{F-}\n";
}

}  // namespace

std::string format(const BarLine& line, BarFormat format) {
  switch (format) {
    case BarFormat::waybar:
      return forWaybar(line);
    case BarFormat::i3bar:
      return forI3bar(line);
    case BarFormat::i3blocks:
      return forI3blocks(line);
    case BarFormat::polybar:
      return forPolybar(line);
    case BarFormat::plain:
      return shownText(line) + "\n";
    case BarFormat::json:
      break;
  }
  return line.json + "\n";
}

std::string opening(BarFormat format) {
  return format == BarFormat::i3bar ? "{\"version\":1,\"click_events\":true}\n[\n" : "";
}

}  // namespace surfaces
