#include "Rendering/LayoutFitting.hpp"

#include <functional>

#include "Rendering/LayoutItems.hpp"
#include "Rendering/LayoutNumbers.hpp"
#include "Rendering/LayoutPlaces.hpp"

namespace rendering {

namespace {

/// Less room for the others can make a text of a group smaller still, hardly ever twice.
constexpr int kMostRounds = 4;

bool isWithin(double length, std::optional<double> proposed) {
  return !proposed || length <= *proposed + kSlack;
}

}  // namespace

std::size_t LayoutFitting::Hash::operator()(const Question& question) const {
  std::size_t hash = question.item;
  for (const double number : {question.width,
                              question.height,
                              question.scaleLimit,
                              question.canvas.width,
                              question.canvas.height}) {
    hash = hash * 0x9E3779B97F4A7C15U ^ std::hash<double>{}(number);
  }
  return hash ^ hash >> 29U;
}

LayoutFitting::Question LayoutFitting::questionFor(ItemId item, const Proposal& proposal) const {
  const LayoutItem& asked = items_[item];
  return {item,
          proposal.width.value_or(-1),
          proposal.height.value_or(-1),
          items_.scaleLimit(),
          asked.onCanvas ? asked.canvas : Size{}};
}

ItemId LayoutFitting::chosen(ItemId fitting, const Proposal& asked) {
  const Proposal proposal = cleanProposal(asked);
  const Question question = questionFor(fitting, proposal);
  if (const auto known = chosen_.find(question); known != chosen_.end()) return known->second;
  const std::uint32_t count = items_[fitting].childCount;
  std::uint32_t i = 0;
  while (i + 1 < count && !fits(items_.alternative(fitting, i), proposal)) ++i;
  return chosen_[question] = items_.alternative(fitting, i);
}

bool LayoutFitting::fits(ItemId child, const Proposal& proposal) {
  if (items_.isOverBudget()) return false;
  const Answer answer = items_.measure(child, proposal);
  return isWithin(answer.width, proposal.width) && isWithin(answer.height, proposal.height) &&
         textsIn(child, proposal).whole;
}

double LayoutFitting::groupScale(ItemId group, const Proposal& asked) {
  const Proposal proposal = cleanProposal(asked);
  const Question question = questionFor(group, proposal);
  if (const auto known = scales_.find(question); known != scales_.end()) return known->second;
  const ItemId target = items_.children(items_[group])[0];
  double scale = 1;
  for (int round = 0; round < kMostRounds && !items_.isOverBudget(); ++round) {
    const ScaleLimit limit(items_, scale);
    const double smallest = textsIn(target, proposal).scale;
    if (!(smallest < scale - kSlack)) break;
    scale = smallest;
  }
  return scales_[question] = scale;
}

LayoutFitting::Texts LayoutFitting::textsIn(ItemId item, const Proposal& asked) {
  const Proposal proposal = cleanProposal(asked);
  const Question question = questionFor(item, proposal);
  if (const auto known = texts_.find(question); known != texts_.end()) return known->second;
  items_.count(1);
  if (items_.isOverBudget()) return {};
  return texts_[question] = findTexts(item, proposal);
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
  return found;
}

}  // namespace rendering
