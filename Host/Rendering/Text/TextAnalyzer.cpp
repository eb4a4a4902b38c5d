// The long way: graphemes, bidirectional levels, scripts, coverage and line breaks of any text.
#include <unicode/ubidi.h>
#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/uscript.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <map>
#include <optional>
#include <string>

#include "Rendering/Text/TextAnalysis.hpp"

namespace rendering {

namespace {

struct BreakCloser {
  void operator()(UBreakIterator* iterator) const { ubrk_close(iterator); }
};
using Breaks = std::unique_ptr<UBreakIterator, BreakCloser>;

struct BidiCloser {
  void operator()(UBiDi* bidi) const { ubidi_close(bidi); }
};

Breaks openBreaks(UBreakIteratorType type, const std::string& locale) {
  UErrorCode error = U_ZERO_ERROR;
  return Breaks(ubrk_open(type, locale.c_str(), nullptr, 0, &error));
}

/// Calls `visit` with each boundary after the start.
template <class Visit>
void eachBoundary(UBreakIterator* iterator, const std::u16string& text, Visit visit) {
  UErrorCode error = U_ZERO_ERROR;
  ubrk_setText(iterator, text.data(), static_cast<std::int32_t>(text.size()), &error);
  if (U_FAILURE(error)) return;
  ubrk_first(iterator);
  for (std::int32_t at = ubrk_next(iterator); at != UBRK_DONE; at = ubrk_next(iterator)) visit(at);
}

std::optional<FontFamily> familyOf(UScriptCode script) {
  switch (script) {
    case USCRIPT_ARABIC:
      return FontFamily::arabic;
    case USCRIPT_DEVANAGARI:
      return FontFamily::devanagari;
    case USCRIPT_HAN:
    case USCRIPT_HIRAGANA:
    case USCRIPT_KATAKANA:
    case USCRIPT_HANGUL:
    case USCRIPT_BOPOMOFO:
    case USCRIPT_COMMON:
      return FontFamily::cjk;  // symbols and punctuation that Latin lacks
    case USCRIPT_THAI:
      return FontFamily::thai;
    case USCRIPT_BENGALI:
      return FontFamily::bengali;
    case USCRIPT_TAMIL:
      return FontFamily::tamil;
    case USCRIPT_TELUGU:
      return FontFamily::telugu;
    case USCRIPT_GUJARATI:
      return FontFamily::gujarati;
    case USCRIPT_GURMUKHI:
      return FontFamily::gurmukhi;
    case USCRIPT_KANNADA:
      return FontFamily::kannada;
    case USCRIPT_MALAYALAM:
      return FontFamily::malayalam;
    case USCRIPT_SINHALA:
      return FontFamily::sinhala;
    case USCRIPT_KHMER:
      return FontFamily::khmer;
    case USCRIPT_LAO:
      return FontFamily::lao;
    case USCRIPT_MYANMAR:
      return FontFamily::myanmar;
    case USCRIPT_HEBREW:
      return FontFamily::hebrew;
    case USCRIPT_ARMENIAN:
      return FontFamily::armenian;
    case USCRIPT_GEORGIAN:
      return FontFamily::georgian;
    default:
      return std::nullopt;
  }
}

std::uint32_t scriptTag(UScriptCode script) {
  const char* name = uscript_getShortName(script);
  std::uint32_t tag = 0;
  for (int i = 0; i < 4; ++i) tag = tag << 8 | static_cast<unsigned char>(name[i]);
  return tag;
}

bool isIgnorable(UChar32 c) {
  return u_hasBinaryProperty(c, UCHAR_DEFAULT_IGNORABLE_CODE_POINT) || u_iscntrl(c);
}

/// White space on which a line may end; no-break spaces keep their width.
bool isBreakingSpace(UChar32 c) {
  return u_isUWhiteSpace(c) && c != 0xA0 && c != 0x2007 && c != 0x202F;
}

bool isLineFeed(char16_t c) {
  return (c >= 0x0A && c <= 0x0D) || c == 0x85 || c == 0x2028 || c == 0x2029;
}

bool isEmoji(UChar32 c) {
  return c == 0xFE0F || c == 0x20E3 || u_hasBinaryProperty(c, UCHAR_EMOJI_PRESENTATION) ||
         u_hasBinaryProperty(c, UCHAR_REGIONAL_INDICATOR) ||
         u_hasBinaryProperty(c, UCHAR_EXTENDED_PICTOGRAPHIC);
}

constexpr UChar32 kTextSelector = 0xFE0E;
constexpr UChar32 kPictureSelector = 0xFE0F;

/// Of the emoji those that are pictures unless a selector says otherwise.
bool isPicture(UChar32 c) {
  return c == kPictureSelector || u_hasBinaryProperty(c, UCHAR_EMOJI_PRESENTATION) ||
         u_hasBinaryProperty(c, UCHAR_REGIONAL_INDICATOR);
}

}  // namespace

struct TextAnalyzer::State {
  Breaks graphemes;
  std::map<std::string, Breaks, std::less<>> lines;
  std::unique_ptr<UBiDi, BidiCloser> bidi;
  std::u16string text;
  std::vector<std::uint32_t> bytes;  ///< byte offset of each unit of `text`, and of the end

  void decode(std::string_view source) {
    text.clear();
    bytes.clear();
    const auto length = static_cast<std::int32_t>(source.size());
    for (std::int32_t at = 0; at < length;) {
      const auto begin = static_cast<std::uint32_t>(at);
      UChar32 c = 0;
// The macro narrows on purpose.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
      U8_NEXT_OR_FFFD(source.data(), at, length, c);
#pragma GCC diagnostic pop
      if (U_IS_BMP(c)) {
        text.push_back(static_cast<char16_t>(c));
      } else {
        text.push_back(U16_LEAD(c));
        text.push_back(U16_TRAIL(c));
        bytes.push_back(begin);
      }
      bytes.push_back(begin);
    }
    bytes.push_back(static_cast<std::uint32_t>(length));
  }

  UBreakIterator* lineBreaks(std::string_view language) {
    const auto found = lines.find(language);
    if (found != lines.end()) return found->second.get();
    std::string locale(language);
    std::ranges::replace(locale, '-', '_');
    // Japanese and Korean readers stumble over lines that end within a phrase; the phrases of both
    // come with "ja".
    if (language == "ja" || language == "ko") locale = "ja@lw=phrase";
    Breaks opened = openBreaks(UBRK_LINE, locale);
    return lines.emplace(std::string(language), std::move(opened)).first->second.get();
  }

  void setLevels(viewkit::LayoutDirection direction) {
    if (!bidi) bidi.reset(ubidi_open());
    UErrorCode error = U_ZERO_ERROR;
    const UBiDiLevel base = direction == viewkit::LayoutDirection::rightToLeft ? 1 : 0;
    ubidi_setPara(
        bidi.get(), text.data(), static_cast<std::int32_t>(text.size()), base, nullptr, &error);
  }
};

TextAnalyzer::TextAnalyzer(FontLibrary& fonts) : fonts_(fonts), state_(new State) {}
TextAnalyzer::~TextAnalyzer() = default;

namespace {

/// One cluster's characters, judged together.
struct ClusterFacts {
  std::u32string drawn;  ///< without ignorables
  UScriptCode script = USCRIPT_COMMON;
  bool emoji = false;
  bool picture = false;  ///< an emoji that is not a mere sign of the text
  bool space = false;
};

/// The script whose font draws a character. One that several scripts share (the Arabic tatweel, the
/// danda) belongs to the first of them for which a font is always there.
UScriptCode drawingScript(UChar32 c) {
  UErrorCode error = U_ZERO_ERROR;
  const UScriptCode script = uscript_getScript(c, &error);
  if (U_FAILURE(error) || script != USCRIPT_COMMON) return script;
  UScriptCode shared[32];
  const std::int32_t count = uscript_getScriptExtensions(c, shared, 32, &error);
  if (U_FAILURE(error)) return script;
  for (const UScriptCode candidate : {USCRIPT_ARABIC, USCRIPT_DEVANAGARI, USCRIPT_HAN}) {
    if (std::find(shared, shared + count, candidate) != shared + count) return candidate;
  }
  return script;
}

ClusterFacts factsOf(const std::u16string& text, std::int32_t begin, std::int32_t end) {
  ClusterFacts facts;
  facts.space = true;
  for (std::int32_t at = begin; at < end;) {
    UChar32 c = 0;
    U16_NEXT(text.data(), at, end, c);
    facts.space = facts.space && isBreakingSpace(c);
    facts.emoji = facts.emoji || isEmoji(c);
    facts.picture = (facts.picture || isPicture(c)) && c != kTextSelector;
    if (!isIgnorable(c)) facts.drawn.push_back(static_cast<char32_t>(c));
    const UScriptCode script = drawingScript(c);
    if (facts.script == USCRIPT_COMMON && script != USCRIPT_INHERITED) facts.script = script;
  }
  return facts;
}

bool coversAll(const Font* font, const std::u32string& characters) {
  return font && std::ranges::all_of(characters, [&](char32_t c) { return font->covers(c); });
}

/// The family that draws the characters: pictures first where they are asked for, Latin, the
/// script's own; failing these, one that has at least the first of them.
std::optional<FontFamily> familyFor(FontLibrary& fonts,
                                    viewkit::FontWeight weight,
                                    const ClusterFacts& facts) {
  const auto pictures = [&]() -> std::optional<FontFamily> {
    const Font* font = fonts.font(FontFamily::emoji, weight);
    return coversAll(font, facts.drawn) ? std::optional(FontFamily::emoji) : std::nullopt;
  };
  if (facts.picture) {
    if (const auto family = pictures()) return family;
  }
  const Font* latin = fonts.font(FontFamily::latin, weight);
  if (coversAll(latin, facts.drawn)) return FontFamily::latin;
  // No other font here has these; do not open a large one to learn it.
  if (facts.emoji && facts.drawn.front() >= 0x1F000) return pictures();
  const auto own = familyOf(facts.script);
  const Font* font = own ? fonts.font(*own, weight) : nullptr;
  if (coversAll(font, facts.drawn)) return own;
  if (facts.emoji) return pictures();
  if (font && font->covers(facts.drawn.front())) return own;
  if (latin && latin->covers(facts.drawn.front())) return FontFamily::latin;
  return std::nullopt;
}

/// Ignorables and uncovered clusters take the font of the cluster before them, at the start of the
/// one behind.
void settleNeighbours(std::vector<AnalyzedCluster>& clusters) {
  const auto copy = [](AnalyzedCluster& to, const AnalyzedCluster& from) {
    to.family = from.family;
    to.script = from.script;
  };
  std::size_t firstDrawn = 0;
  while (firstDrawn < clusters.size() && !clusters[firstDrawn].drawn) ++firstDrawn;
  if (firstDrawn == clusters.size()) return;
  for (std::size_t i = 0; i < firstDrawn; ++i) copy(clusters[i], clusters[firstDrawn]);
  for (std::size_t i = firstDrawn + 1; i < clusters.size(); ++i) {
    if (!clusters[i].drawn) copy(clusters[i], clusters[i - 1]);
  }
}

/// Where an emoji is not drawn, one of the spaces around it goes too: the one behind it, at the end
/// of the text the one before it.
void dropSpacesBesideEmoji(std::vector<AnalyzedCluster>& clusters) {
  std::vector<AnalyzedCluster*> seen;
  bool anyGone = false;
  for (AnalyzedCluster& cluster : clusters) {
    if (!cluster.ignorable) seen.push_back(&cluster);
    anyGone = anyGone || (!cluster.drawn && !cluster.ignorable && !cluster.isSpace);
  }
  if (!anyGone) return;
  const auto isGone = [&](std::size_t i) {
    return seen[i]->dropped || (!seen[i]->drawn && !seen[i]->isSpace);
  };
  for (std::size_t i = 0; i < seen.size();) {
    if (!isGone(i)) {
      ++i;
      continue;
    }
    std::size_t first = i;
    while (first > 0 && isGone(first - 1)) --first;
    while (i < seen.size() && isGone(i)) ++i;
    const bool followsSpace = first == 0 || seen[first - 1]->isSpace;
    if (!followsSpace) continue;
    if (i < seen.size()) {
      seen[i]->dropped = seen[i]->isSpace;
    } else if (first > 0) {
      seen[first - 1]->dropped = true;
    }
  }
}

/// Signs without a script of their own go with the letters before them, at the start with those
/// behind.
void settleScripts(std::vector<AnalyzedCluster>& clusters) {
  const std::uint32_t common = scriptTag(USCRIPT_COMMON);
  std::uint32_t last = kLatinScript;
  for (const AnalyzedCluster& cluster : clusters) {
    if (cluster.script != common) {
      last = cluster.script;
      break;
    }
  }
  for (AnalyzedCluster& cluster : clusters) {
    if (cluster.script == common) cluster.script = last;
    last = cluster.script;
    // The Latin fonts know three scripts; digits among others are shaped as Latin ones.
    const bool foreign =
        cluster.script != scriptTag(USCRIPT_CYRILLIC) && cluster.script != scriptTag(USCRIPT_GREEK);
    if (cluster.family == FontFamily::latin && foreign) cluster.script = kLatinScript;
  }
}

}  // namespace

void TextAnalyzer::analyze(std::string_view text,
                           const TextStyle& style,
                           std::vector<AnalyzedCluster>& out) {
  out.clear();
  if (text.empty()) return;
  State& s = *state_;
  s.decode(text);
  if (!s.graphemes) s.graphemes = openBreaks(UBRK_CHARACTER, "");
  s.setLevels(style.direction);
  std::int32_t begin = 0;
  std::vector<std::uint32_t> ends;  // of the clusters, in units
  eachBoundary(s.graphemes.get(), s.text, [&](std::int32_t end) {
    const ClusterFacts facts = factsOf(s.text, begin, end);
    AnalyzedCluster cluster{s.bytes[begin], s.bytes[end], scriptTag(facts.script)};
    cluster.level = ubidi_getLevelAt(s.bidi.get(), begin);
    cluster.isSpace = facts.space;
    cluster.ignorable = facts.drawn.empty() && !facts.space;
    cluster.drawn = !facts.drawn.empty();
    if (cluster.drawn) {
      const auto family = familyFor(fonts_, style.weight, facts);
      cluster.family = family.value_or(FontFamily::latin);
      cluster.drawn = family.has_value() || !facts.emoji;
      cluster.missing = !family && !facts.emoji;
    }
    out.push_back(cluster);
    ends.push_back(static_cast<std::uint32_t>(end));
    begin = end;
  });
  settleNeighbours(out);
  settleScripts(out);
  dropSpacesBesideEmoji(out);
  UBreakIterator* lines = s.lineBreaks(style.language);
  if (!lines) return;
  eachBoundary(lines, s.text, [&](std::int32_t at) {
    const auto found = std::ranges::lower_bound(ends, static_cast<std::uint32_t>(at));
    if (found == ends.end() || *found != static_cast<std::uint32_t>(at)) return;
    AnalyzedCluster& cluster = out[static_cast<std::size_t>(found - ends.begin())];
    // The end of the text is no opportunity unless a line feed stands there.
    const bool atEnd = static_cast<std::size_t>(at) == s.text.size();
    cluster.mustBreakAfter =
        ubrk_getRuleStatus(lines) >= UBRK_LINE_HARD && (!atEnd || isLineFeed(s.text.back()));
    cluster.breakAfter = !atEnd || cluster.mustBreakAfter;
  });
}

}  // namespace rendering
