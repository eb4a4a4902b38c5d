#include "Rendering/Layout/PlacedText.hpp"

namespace rendering {

std::string lineText(const PlacedText& text, const PlacedLine& line) {
  std::string result;
  if (line.last > line.first) {
    const auto& clusters = text.paragraph->clusters;
    const std::size_t begin = clusters[line.first].begin;
    result = text.paragraph->text.substr(begin, clusters[line.last - 1].end - begin);
  }
  if (line.ellipsis) result += "…";
  return result;
}

bool isCovered(const PlacedNode& node, viewkit::RedactionReasons redaction) {
  if (!redaction.privacy || !node.modifier()) return false;
  const auto* sensitive = std::get_if<viewkit::PrivacySensitive>(node.modifier());
  return sensitive && sensitive->treatment == viewkit::PrivacyTreatment::covered;
}

bool isInvisible(const PlacedNode& node) {
  if (!node.modifier()) return false;
  const auto* opacity = std::get_if<viewkit::Opacity>(node.modifier());
  return opacity && !(opacity->opacity > 0);
}

}  // namespace rendering
