// An SVG document while it is written: definitions, and groups that nest.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "Rendering/Graphics/Geometry.hpp"
#include "Rendering/Output/SvgNaming.hpp"

namespace rendering {

/// Cutting something out masks what already stands before it, so that the places where such masks
/// open and close are kept as pieces of their own.
class SvgDocument {
 public:
  /// `size` in points.
  SvgDocument(const SvgNaming& naming, Size size);

  /// A name that no other element has.
  [[nodiscard]] std::string newId(char kind);
  void define(std::string_view element);
  void add(std::string_view element);

  /// A group, opened by its tag. What is cut out inside reaches out of it, clipped by the named
  /// path if there is one.
  void open(std::string_view tag, std::string clipId = {});
  /// A group out of which nothing that is cut out reaches.
  void openIsolated(std::string_view tag);
  void close();

  /// Defines a clip path and returns its name.
  [[nodiscard]] std::string clip(std::string_view pathData);
  /// Puts all that stands so far, out to the surrounding isolated group, behind a mask with a hole.
  void cutOut(std::string_view pathData);

  /// In bytes, of all that was added and defined.
  [[nodiscard]] std::size_t length() const { return length_; }
  /// Closes what is open.
  [[nodiscard]] std::string finish();

 private:
  struct Level {
    std::size_t masks = 0;    ///< the piece before its content
    std::size_t endings = 0;  ///< the piece before its opening, of the level around it
    bool isIsolated = false;
    std::string clip;  ///< id of the clip path that it applies
    bool isEmpty = true;
  };

  void append(std::string_view text);
  void push(std::string_view tag, Level level);
  [[nodiscard]] std::string nameOfPicture() const;

  const SvgNaming& naming_;
  Size size_;
  std::vector<Level> levels_;
  std::vector<std::string> pieces_;
  std::string definitions_;
  std::size_t length_ = 0;
  int nextId_ = 0;
};

}  // namespace rendering
