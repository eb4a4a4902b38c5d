// Opening, mapping and outlining font files.
#include "Rendering/Text/Font.hpp"

#include <fcntl.h>
#include <ft2build.h>
#include <hb-ot.h>
#include <hb.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

#include "Rendering/Graphics/ShapePath.hpp"
#include FT_FREETYPE_H
#include FT_OUTLINE_H

namespace rendering {

namespace {

std::pair<void*, std::size_t> mapFile(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return {};
  struct stat status {};
  void* mapping = MAP_FAILED;
  if (fstat(file, &status) == 0 && status.st_size > 0) {
    mapping =
        mmap(nullptr, static_cast<std::size_t>(status.st_size), PROT_READ, MAP_PRIVATE, file, 0);
  }
  close(file);
  if (mapping == MAP_FAILED) return {};
  // Read-ahead would pull in megabytes of glyphs that no text asks for.
  madvise(mapping, static_cast<std::size_t>(status.st_size), MADV_RANDOM);
  return {mapping, static_cast<std::size_t>(status.st_size)};
}

/// Turns outline callbacks (font units, y up) into path steps.
struct OutlineSink {
  Path& path;
  double scale;
  double x;
  double y;
  Point current{};
  bool open = false;

  [[nodiscard]] Point at(const FT_Vector& v) const {
    return {x + static_cast<double>(v.x) * scale, y - static_cast<double>(v.y) * scale};
  }
  void finish() {
    if (std::exchange(open, false)) path.close();
  }
};

int sinkMove(const FT_Vector* to, void* user) {
  auto& sink = *static_cast<OutlineSink*>(user);
  sink.finish();
  sink.current = sink.at(*to);
  sink.path.moveTo(sink.current);
  sink.open = true;
  return 0;
}
int sinkLine(const FT_Vector* to, void* user) {
  auto& sink = *static_cast<OutlineSink*>(user);
  sink.current = sink.at(*to);
  sink.path.lineTo(sink.current);
  return 0;
}
int sinkConic(const FT_Vector* control, const FT_Vector* to, void* user) {
  auto& sink = *static_cast<OutlineSink*>(user);
  const Point end = sink.at(*to);
  sink.path.quadTo(sink.current, sink.at(*control), end);
  sink.current = end;
  return 0;
}
int sinkCubic(const FT_Vector* a, const FT_Vector* b, const FT_Vector* to, void* user) {
  auto& sink = *static_cast<OutlineSink*>(user);
  sink.current = sink.at(*to);
  sink.path.cubicTo(sink.at(*a), sink.at(*b), sink.current);
  return 0;
}

}  // namespace

std::unique_ptr<Font> Font::open(FT_LibraryRec_* library,
                                 const FontSource& source,
                                 FontFamily family,
                                 std::uint8_t id) {
  std::unique_ptr<Font> font(new Font);
  font->id_ = id;
  font->family_ = family;
  font->path_ = source.path;
  std::tie(font->mapping_, font->mappingSize_) = mapFile(source.path);
  if (!font->mapping_) return nullptr;
  const auto size = font->mappingSize_;
  if (FT_New_Memory_Face(library,
                         static_cast<const FT_Byte*>(font->mapping_),
                         static_cast<FT_Long>(size),
                         source.face,
                         &font->face_) != 0) {
    return nullptr;
  }
  font->unitsPerEm_ = font->face_->units_per_EM > 0 ? font->face_->units_per_EM : 1000;
  hb_blob_t* blob = hb_blob_create(static_cast<const char*>(font->mapping_),
                                   static_cast<unsigned>(size),
                                   HB_MEMORY_MODE_READONLY,
                                   nullptr,
                                   nullptr);
  hb_face_t* face = hb_face_create(blob, static_cast<unsigned>(source.face));
  font->shaper_ = hb_font_create(face);
  hb_font_set_scale(font->shaper_, font->unitsPerEm_, font->unitsPerEm_);
  hb_face_destroy(face);
  hb_blob_destroy(blob);
  return font;
}

Font::~Font() {
  if (shaper_) hb_font_destroy(shaper_);
  if (face_) FT_Done_Face(face_);
  if (mapping_) munmap(mapping_, mappingSize_);
}

std::uint32_t Font::glyph(char32_t character) const {
  hb_codepoint_t glyph = 0;
  return hb_font_get_nominal_glyph(shaper_, character, &glyph) ? glyph : 0;
}

void Font::appendOutline(std::uint32_t glyph, double size, double x, double y, Path& path) const {
  if (FT_Load_Glyph(face_, glyph, FT_LOAD_NO_SCALE | FT_LOAD_NO_BITMAP) != 0) return;
  if (face_->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return;
  OutlineSink sink{path, size / unitsPerEm_, x, y};
  const FT_Outline_Funcs callbacks{sinkMove, sinkLine, sinkConic, sinkCubic, 0, 0};
  FT_Outline_Decompose(&face_->glyph->outline, &callbacks, &sink);
  sink.finish();
}

FontLibrary::FontLibrary(EmojiFont emoji) : emoji_(emoji) {
  if (FT_Init_FreeType(&library_) != 0) library_ = nullptr;
}

FontLibrary::~FontLibrary() {
  for (auto& font : fonts_) font.reset();
  if (library_) FT_Done_FreeType(library_);
}

const Font* FontLibrary::font(FontFamily family, viewkit::FontWeight weight) {
  if (family == FontFamily::emoji && emoji_ == EmojiFont::none) return nullptr;
  Slot& slot =
      slots_[static_cast<std::size_t>(family) * kFontWeights + static_cast<std::size_t>(weight)];
  if (!std::exchange(slot.asked, true) && library_) {
    if (const auto source = fontSource(family, weight)) {
      for (std::uint8_t i = 0; i < count_ && slot.id == 0xFF; ++i) {
        if (fonts_[i]->path() == source->path) slot.id = i;
      }
      if (slot.id == 0xFF) {
        if (auto font = Font::open(library_, *source, family, count_)) {
          slot.id = count_;
          fonts_[count_++] = std::move(font);
        }
      }
    }
  }
  return slot.id == 0xFF ? nullptr : fonts_[slot.id].get();
}

}  // namespace rendering
