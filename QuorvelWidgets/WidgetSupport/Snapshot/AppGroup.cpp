#include "QuorvelWidgets/WidgetSupport/Snapshot/AppGroup.hpp"

#include "Foundation/Bundle.hpp"

namespace quorvel {
namespace {

/// Only a string of at least one character counts.
std::string setting(const foundation::Bundle& bundle,
                    std::string_view key,
                    std::string_view fallback) {
  const auto* value = bundle.objectForInfoDictionaryKey(key);
  const std::string* text = value != nullptr ? value->string() : nullptr;
  return text != nullptr && !text->empty() ? *text : std::string(fallback);
}

}  // namespace

AppGroup::AppGroup(const foundation::Bundle& extension)
    : identifier(setting(extension, "QuorvelAppGroup", "group.app.quorvel.widgets")),
      urlScheme(setting(extension, "QuorvelURLScheme", "quorvel-widget")) {}

}  // namespace quorvel
