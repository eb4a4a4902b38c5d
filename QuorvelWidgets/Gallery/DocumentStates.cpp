#include "QuorvelWidgets/Gallery/DocumentStates.hpp"

#include "QuorvelWidgets/Gallery/SnapshotStates.hpp"

namespace quorvel {

std::string documentInState(std::string_view document,
                            std::string_view state,
                            std::string_view language) {
  auto snapshot = decodeWidgetSnapshot(document);
  if (!snapshot) return std::string(document);
  if (!language.empty()) snapshot->lang = language;
  return encodeWidgetSnapshot(inState(*std::move(snapshot), state));
}

std::optional<std::string> documentWithOtherAmounts(std::string_view document, int step) {
  auto snapshot = decodeWidgetSnapshot(document);
  if (!snapshot) return std::nullopt;
  return encodeWidgetSnapshot(withOtherAmounts(*std::move(snapshot), step));
}

}  // namespace quorvel
