#include "QuorvelWidgets/WidgetSupport/Texts/GalleryName.hpp"

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"
#include "QuorvelWidgets/WidgetSupport/Texts/WidgetStrings.hpp"

namespace quorvel {

std::string galleryName(std::string_view english, TextKey key, std::string_view lang) {
  if (languageForCode(lang) == Language::en) return std::string(english);
  return WidgetStrings::text(key, lang);
}

}  // namespace quorvel
