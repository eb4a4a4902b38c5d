#include "QuorvelWidgets/WidgetSupport/GalleryName.hpp"

#include "QuorvelWidgets/WidgetSupport/WidgetLanguage.hpp"
#include "QuorvelWidgets/WidgetSupport/WidgetStrings.hpp"

namespace quorvel {

std::string galleryName(std::string_view english, std::string_view key, std::string_view lang) {
  if (languageForCode(lang) == Language::en) return std::string(english);
  return WidgetStrings::text(key, lang);
}

}  // namespace quorvel
