// The em square becomes the box of 16 units; quadratic curves become cubic ones.
#include "MaterialFont.hpp"

#include <ft2build.h>

#include <stdexcept>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

namespace symbolgen {

namespace {

struct Sink {
  IconPath path{};
  double scale = 1;
  double top = 0;
  Point current{};
  bool open = false;

  [[nodiscard]] Point at(const FT_Vector* v) const {
    return {static_cast<double>(v->x) * scale, top - static_cast<double>(v->y) * scale};
  }
  void finish() {
    if (open) path.steps.push_back({'Z', {}});
    open = false;
  }
  void add(char verb, Point a, Point b = {}, Point c = {}) {
    path.steps.push_back({verb, {a, b, c}});
    current = verb == 'C' ? c : a;
  }
};

int moveTo(const FT_Vector* to, void* user) {
  auto& sink = *static_cast<Sink*>(user);
  sink.finish();
  sink.add('M', sink.at(to));
  sink.open = true;
  return 0;
}
int lineTo(const FT_Vector* to, void* user) {
  auto& sink = *static_cast<Sink*>(user);
  sink.add('L', sink.at(to));
  return 0;
}
int conicTo(const FT_Vector* control, const FT_Vector* to, void* user) {
  auto& sink = *static_cast<Sink*>(user);
  const Point a = sink.current;
  const Point c = sink.at(control);
  const Point b = sink.at(to);
  const auto third = [](Point from, Point towards) -> Point {
    return {from.x + (towards.x - from.x) * 2 / 3, from.y + (towards.y - from.y) * 2 / 3};
  };
  sink.add('C', third(a, c), third(b, c), b);
  return 0;
}
int cubicTo(const FT_Vector* a, const FT_Vector* b, const FT_Vector* to, void* user) {
  auto& sink = *static_cast<Sink*>(user);
  sink.add('C', sink.at(a), sink.at(b), sink.at(to));
  return 0;
}

}  // namespace

MaterialFont::MaterialFont(const std::string& path) {
  if (FT_Init_FreeType(&library_) != 0 || FT_New_Face(library_, path.c_str(), 0, &face_) != 0) {
    throw std::runtime_error("cannot open " + path);
  }
}

MaterialFont::~MaterialFont() {
  FT_Done_Face(face_);
  FT_Done_FreeType(library_);
}

Icon MaterialFont::glyph(unsigned long codepoint) const {
  const FT_UInt index = FT_Get_Char_Index(face_, codepoint);
  if (index == 0 || FT_Load_Glyph(face_, index, FT_LOAD_NO_SCALE) != 0) {
    throw std::runtime_error("no glyph for code point " + std::to_string(codepoint));
  }
  Sink sink;
  sink.scale = 16.0 / face_->units_per_EM;
  sink.top = 16;
  const FT_Outline_Funcs callbacks{moveTo, lineTo, conicTo, cubicTo, 0, 0};
  FT_Outline_Decompose(&face_->glyph->outline, &callbacks, &sink);
  sink.finish();
  return {sink.path};
}

}  // namespace symbolgen
