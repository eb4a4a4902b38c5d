// What must be known about a text before it is shaped: its clusters, their direction, script and
// font, where lines break.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "Rendering/Text/Font.hpp"
#include "Rendering/Text/TextMeasurer.hpp"

namespace rendering {

struct AnalyzedCluster {
  std::uint32_t begin = 0;
  std::uint32_t end = 0;
  std::uint32_t script = 0;  ///< ISO 15924 tag
  FontFamily family = FontFamily::latin;
  std::uint8_t level = 0;
  bool drawn = true;     ///< not ignorable, a control, or an emoji that no font has
  bool missing = false;  ///< stands for itself as U+25A1
  bool ignorable = false;
  bool dropped = false;  ///< a space that goes with an emoji that is not drawn
  bool isSpace = false;
  bool breakAfter = false;
  bool mustBreakAfter = false;

  friend bool operator==(const AnalyzedCluster&, const AnalyzedCluster&) = default;
};

inline constexpr std::uint32_t kLatinScript = 0x4C61746E;

/// Plain Latin text, left to right: amounts and most labels. False (and nothing usable in `out`)
/// for any text about which the short rules do not know everything; then the long way gives the
/// answer.
[[nodiscard]] bool analyzeSimple(std::string_view text,
                                 const TextStyle& style,
                                 std::vector<AnalyzedCluster>& out);

/// Any text, by the Unicode rules. Break iterators are made when first needed and kept.
class TextAnalyzer {
 public:
  explicit TextAnalyzer(FontLibrary& fonts);
  ~TextAnalyzer();

  void analyze(std::string_view text, const TextStyle& style, std::vector<AnalyzedCluster>& out);

 private:
  struct State;
  FontLibrary& fonts_;
  std::unique_ptr<State> state_;
};

}  // namespace rendering
