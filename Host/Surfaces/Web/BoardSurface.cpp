#include "Surfaces/Web/BoardSurface.hpp"

#include "Surfaces/WidgetSize.hpp"

namespace surfaces {

std::uint64_t BoardSurface::versionOf(const std::string& id) const {
  const auto found = versions_.find(id);
  return found == versions_.end() ? 0 : found->second;
}

std::optional<Demand> BoardSurface::place(const Subject& subject) {
  if (!isWanted_ || !subject.isPlaced) return std::nullopt;
  return Demand{.medium = Medium::svg, .options = {.size = standardSize(subject.family)}};
}

void BoardSurface::show(const Subject& subject, const Shown&) {
  versions_[subject.id] = ++latest_;
  if (onChange) onChange(subject.id, latest_);
}

}  // namespace surfaces
