// What a widget is called where it is chosen, in the device's language.
#pragma once

#include <string>
#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Texts/TextKey.hpp"

namespace quorvel {

/// The text of `key` in `lang`. English has names of its own, written as titles: "Next Due" where
/// the widget itself says "Next due".
[[nodiscard]] std::string galleryName(std::string_view english, TextKey key, std::string_view lang);

}  // namespace quorvel
