// Outlines of the icon font's glyphs.
#pragma once

#include <string>

#include "Outline.hpp"

struct FT_LibraryRec_;
struct FT_FaceRec_;

namespace symbolgen {

class MaterialFont {
 public:
  explicit MaterialFont(const std::string& path);
  ~MaterialFont();
  MaterialFont(const MaterialFont&) = delete;
  MaterialFont& operator=(const MaterialFont&) = delete;

  [[nodiscard]] Icon glyph(unsigned long codepoint) const;

 private:
  FT_LibraryRec_* library_ = nullptr;
  FT_FaceRec_* face_ = nullptr;
};

}  // namespace symbolgen
