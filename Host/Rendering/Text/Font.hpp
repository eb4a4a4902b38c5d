// One font file and weight, opened once: its shaping font and its outlines.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "Rendering/Text/EmojiFont.hpp"
#include "Rendering/Text/FontTable.hpp"

struct FT_FaceRec_;
struct FT_LibraryRec_;
struct hb_font_t;

namespace rendering {

struct Path;

/// The file is mapped, not read: a large collection costs only the pages that are touched.
class Font {
 public:
  static std::unique_ptr<Font> open(FT_LibraryRec_* library,
                                    const FontSource& source,
                                    FontFamily family,
                                    std::uint8_t id);
  ~Font();
  Font(const Font&) = delete;
  Font& operator=(const Font&) = delete;

  [[nodiscard]] std::uint8_t id() const { return id_; }
  [[nodiscard]] FontFamily family() const { return family_; }
  [[nodiscard]] const std::string& path() const { return path_; }
  [[nodiscard]] int unitsPerEm() const { return unitsPerEm_; }
  [[nodiscard]] FT_FaceRec_* face() const { return face_; }
  [[nodiscard]] hb_font_t* shaper() const { return shaper_; }  ///< scaled to units per em
  [[nodiscard]] bool covers(char32_t character) const { return glyph(character) != 0; }
  [[nodiscard]] std::uint32_t glyph(char32_t character) const;
  /// Appends a glyph's outline, y downwards, `size` points per em, its origin at (x, y).
  void appendOutline(std::uint32_t glyph, double size, double x, double y, Path& path) const;

 private:
  Font() = default;

  std::uint8_t id_ = 0;
  FontFamily family_ = FontFamily::latin;
  std::string path_;
  int unitsPerEm_ = 1000;
  void* mapping_ = nullptr;
  std::size_t mappingSize_ = 0;
  FT_FaceRec_* face_ = nullptr;
  hb_font_t* shaper_ = nullptr;
};

/// The fonts in use, opened when first asked for and shared.
class FontLibrary {
 public:
  explicit FontLibrary(EmojiFont emoji = EmojiFont::installed);
  ~FontLibrary();
  FontLibrary(const FontLibrary&) = delete;
  FontLibrary& operator=(const FontLibrary&) = delete;

  /// Absent when no file of the family exists.
  [[nodiscard]] const Font* font(FontFamily family, viewkit::FontWeight weight);
  [[nodiscard]] const Font& byId(std::uint8_t id) const { return *fonts_[id]; }
  [[nodiscard]] FT_LibraryRec_* freetype() const { return library_; }

 private:
  struct Slot {
    bool asked = false;
    std::uint8_t id = 0xFF;
  };

  FT_LibraryRec_* library_ = nullptr;
  EmojiFont emoji_;
  std::array<Slot, kFontFamilies * kFontWeights> slots_{};
  std::array<std::unique_ptr<Font>, kFontFamilies * kFontWeights> fonts_;
  std::uint8_t count_ = 0;
};

}  // namespace rendering
