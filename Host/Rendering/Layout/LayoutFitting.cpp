#include "Rendering/Layout/LayoutFitting.hpp"

#include "Rendering/Layout/LayoutItems.hpp"
#include "Rendering/Layout/LayoutNumbers.hpp"
#include "Rendering/Layout/LayoutPlaces.hpp"

namespace rendering {

namespace {

/// Less room for the others can make a text of a group smaller still, hardly ever twice.
constexpr int kMostRounds = 4;

bool isWithin(double length, std::optional<double> proposed) {
  return !proposed || length <= *proposed + kSlack;
}

/// What a Fitting of one child shows may be cut: there is nothing to show instead.
bool isSoleAlternative(const LayoutItem& item) {
  const auto* element = std::get_if<const viewkit::Element*>(&item.what);
  return element && item.childCount == 1 &&
         std::holds_alternative<viewkit::FittingElement>(**element);
}

}  // namespace

std::size_t LayoutFitting::findingFor(ItemId id, const Proposal& proposal) {
  const double width = proposal.width.value_or(-1);
  const double height = proposal.height.value_or(-1);
  LayoutItem& item = items_[id];
  for (std::uint32_t at = item.firstFinding; at != kNone; at = findings_[at].next) {
    const Finding& known = findings_[at];
    if (known.width == width && known.height == height && known.scaleLimit == items_.scaleLimit())
      return at;
  }
  findings_.push_back({width, height, items_.scaleLimit(), item.firstFinding, {}, {}, {}});
  return item.firstFinding = static_cast<std::uint32_t>(findings_.size() - 1);
}

ItemId LayoutFitting::chosen(ItemId fitting, const Proposal& asked) {
  const Proposal proposal = cleanProposal(asked);
  const std::size_t finding = findingFor(fitting, proposal);
  if (const auto known = findings_[finding].chosen) return *known;
  const std::uint32_t count = items_[fitting].childCount;
  std::uint32_t i = 0;
  while (i + 1 < count && !fits(items_.alternative(fitting, i), proposal)) ++i;
  const ItemId child = items_.alternative(fitting, i);
  findings_[finding].chosen = child;
  return child;
}

bool LayoutFitting::fits(ItemId child, const Proposal& proposal) {
  if (items_.isOverBudget()) return false;
  const MeasuredSize answer = items_.measure(child, proposal);
  return isWithin(answer.width, proposal.width) && isWithin(answer.height, proposal.height) &&
         textsIn(child, proposal).whole;
}

double LayoutFitting::groupScale(ItemId group, const Proposal& asked) {
  const Proposal proposal = cleanProposal(asked);
  const std::size_t finding = findingFor(group, proposal);
  if (const auto known = findings_[finding].scale) return *known;
  const ItemId target = items_.children(items_[group])[0];
  double scale = 1;
  for (int round = 0; round < kMostRounds && !items_.isOverBudget(); ++round) {
    const ScaleLimit limit(items_, scale);
    const double smallest = textsIn(target, proposal).scale;
    if (!(smallest < scale - kSlack)) break;
    scale = smallest;
  }
  findings_[finding].scale = scale;
  return scale;
}

LayoutFitting::Texts LayoutFitting::textsIn(ItemId item, const Proposal& asked) {
  if (!items_[item].hasTexts) return {};
  const Proposal proposal = cleanProposal(asked);
  const std::size_t finding = findingFor(item, proposal);
  if (const auto& known = findings_[finding].texts) return *known;
  items_.count(1);
  if (items_.isOverBudget()) return {};
  const Texts texts = findTexts(item, proposal);
  findings_[finding].texts = texts;
  return texts;
}

LayoutFitting::Texts LayoutFitting::findTexts(ItemId id, const Proposal& proposal) {
  const LayoutItem& item = items_[id];
  Texts found;
  if (item.text != kNone) {
    TextLayout& text = items_.text(item);
    const TextLayout::Fit& fit = text.fit(proposal, items_.scaleLimit());
    found.whole = fit.whole;
    if (text.sharesScale()) found.scale = fit.scale;
    return found;
  }
  const Size own = placedSize(items_.measure(id, proposal));
  forEachPlace(items_, id, own, proposal, [&](std::size_t, ItemId child, const ChildPlace& place) {
    const Texts inside = textsIn(child, place.offer);
    found.whole = found.whole && inside.whole;
    found.scale = std::min(found.scale, inside.scale);
  });
  found.whole = found.whole || isSoleAlternative(item);
  return found;
}

}  // namespace rendering
