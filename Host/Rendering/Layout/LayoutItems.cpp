#include "Rendering/Layout/LayoutItems.hpp"

#include <algorithm>
#include <ranges>
#include <variant>

#include "Foundation/Overloaded.hpp"
#include "Rendering/Layout/LayoutFrame.hpp"
#include "Rendering/Layout/LayoutLeaves.hpp"
#include "Rendering/Layout/LayoutModifiers.hpp"
#include "Rendering/Layout/LayoutNumbers.hpp"
#include "Rendering/Layout/SubviewProxy.hpp"

namespace rendering {

namespace {

using namespace viewkit;
using foundation::OneOf;
using foundation::Overloaded;

constexpr double kSpacerPriority = -kUnbounded;

SpacerAxis axisOf(const StackElement& stack) {
  switch (stack.axis) {
    case StackElement::Axis::horizontal:
      return SpacerAxis::horizontal;
    case StackElement::Axis::vertical:
      return SpacerAxis::vertical;
    case StackElement::Axis::depth:
      break;
  }
  return SpacerAxis::both;
}

/// Traits go through modifiers to the stack around the view; of several the outermost counts.
template <class Trait>
const Trait* outermost(const Node& node) {
  for (auto it = node.modifiers.rbegin(); it != node.modifiers.rend(); ++it) {
    if (const auto* trait = std::get_if<Trait>(&*it)) return trait;
  }
  return nullptr;
}

/// Nothing of it is seen: no font draws its characters, or they are spaces.
bool isBlank(const ShapedParagraph& paragraph) {
  return std::ranges::all_of(paragraph.clusters, [](const TextCluster& cluster) {
    return cluster.isSpace || cluster.advance == 0;
  });
}

const View* contentOf(const Modifier& modifier) {
  if (const auto* background = std::get_if<Background>(&modifier)) return &background->content;
  if (const auto* overlay = std::get_if<Overlay>(&modifier)) return &overlay->content;
  return nullptr;
}

/// How many records a view can take. They are reserved beforehand, so that none moves when the
/// alternatives of a Fitting are added in the middle of layout.
struct Extent {
  std::size_t items = 0;
  std::size_t children = 0;
  std::size_t texts = 0;
};

void measureExtent(const View& view, Extent& extent) {
  const Node& node = view.node();
  extent.items += 1 + node.modifiers.size();
  extent.children += node.modifiers.size() + node.children.size();
  if (std::holds_alternative<TextElement>(node.element)) ++extent.texts;
  for (const Modifier& modifier : node.modifiers) {
    const View* content = contentOf(modifier);
    if (!content) continue;
    ++extent.children;
    measureExtent(*content, extent);
  }
  for (const View& child : node.children) measureExtent(child, extent);
}

double memoKey(std::optional<double> length) {
  return length.value_or(-1);
}

/// Only an infinite proposal may be answered with infinity.
double cleanAnswer(double length, std::optional<double> proposed) {
  const bool mayBeInfinite = proposed && std::isinf(*proposed);
  return mayBeInfinite ? cleanLength(length) : std::min(cleanLength(length), kFarthest);
}

MeasuredSize cleaned(MeasuredSize answer, const Proposal& proposal) {
  answer.width = cleanAnswer(answer.width, proposal.width);
  answer.height = cleanAnswer(answer.height, proposal.height);
  if (answer.baseline) answer.baseline = cleanNumber(*answer.baseline);
  return answer;
}

/// Between questions of which one has no or no finite length and the other has one.
constexpr double kAnotherKind = 1e12;

double differenceOf(double a, double b) {
  if (a == b) return 0;
  const bool sameKind = a >= 0 && b >= 0 && std::isfinite(a) && std::isfinite(b);
  return sameKind ? std::min(std::abs(a - b), kAnotherKind) : kAnotherKind;
}

}  // namespace

MeasuredSize SubviewProxy::operator()(const Proposal& proposal) const {
  return items.measure(child, proposal);
}

MeasuredSize SubviewProxy::estimate(const Proposal& proposal) const {
  return items.estimate(child, proposal);
}

LayoutItems::LayoutItems(const View& view, const LayoutOptions& options, TextMeasurer& measurer)
    : measurer_(measurer),
      metrics_(measurer.metrics()),
      placeholder_(options.placeholderRedaction),
      trace_(options.trace) {
  Extent extent;
  measureExtent(view, extent);
  items_.reserve(extent.items);
  children_.reserve(extent.children);
  texts_.reserve(extent.texts);
  memos_.reserve(256);
  root_ = addView(view, {options.direction});
}

ItemId LayoutItems::addItem(const Node& node, const Context& context) {
  const auto id = static_cast<ItemId>(items_.size());
  LayoutItem& item = items_.emplace_back();
  item.source = &node;
  item.answering = id;
  item.direction = context.direction;
  item.spacerAxis = context.spacerAxis;
  item.inGroup = context.inGroup;
  item.isSpacer = std::holds_alternative<SpacerElement>(node.element);
  const auto* priority = outermost<LayoutPriority>(node);
  item.priority = priority ? cleanNumber(priority->priority) : item.isSpacer ? kSpacerPriority : 0;
  if (const auto* z = outermost<ZIndex>(node)) item.zIndex = cleanNumber(z->index);
  return id;
}

ItemId LayoutItems::addView(const View& view, Context context) {
  const Node& node = view.node();
  ItemId outer = kNone;
  ItemId around = kNone;
  bool hasTexts = false;
  const auto hang = [&](ItemId id) {
    if (around == kNone) {
      outer = id;
    } else {
      children_[items_[around].firstChild] = id;
    }
    around = id;
  };
  for (auto it = node.modifiers.rbegin(); it != node.modifiers.rend(); ++it) {
    const ItemId id = addItem(node, context);
    items_[id].what = &*it;
    items_[id].onCanvas = context.onCanvas;
    items_[id].sharesScale = !context.inGroup && std::holds_alternative<SharedScale>(*it);
    context.inGroup = context.inGroup || items_[id].sharesScale;
    const View* content = contentOf(*it);
    items_[id].firstChild = static_cast<std::uint32_t>(children_.size());
    items_[id].childCount = content ? 2 : 1;
    children_.resize(children_.size() + items_[id].childCount, kNone);
    hang(id);
    if (content) {
      const ItemId side = addView(*content, context.inside());
      children_[items_[id].firstChild + 1] = side;
      hasTexts = hasTexts || items_[side].hasTexts;
    }
    if (const auto* direction = std::get_if<Direction>(&*it)) {
      context.direction = direction->direction;
    }
  }
  hang(addElement(node, context));
  hasTexts = hasTexts || items_[around].hasTexts;
  for (ItemId id = outer; id != around; id = children_[items_[id].firstChild]) {
    items_[id].answering = answeringFor(id);
    items_[id].hasTexts = hasTexts;
  }
  return outer;
}

ItemId LayoutItems::answeringFor(ItemId id) const {
  while (true) {
    const auto* modifier = std::get_if<const Modifier*>(&items_[id].what);
    if (!modifier || items_[id].sharesScale || !isTransparent(**modifier)) return id;
    id = children_[items_[id].firstChild];
  }
}

ItemId LayoutItems::addElement(const Node& node, const Context& context) {
  const ItemId id = addItem(node, context);
  items_[id].what = &node.element;
  if (const auto* text = std::get_if<TextElement>(&node.element)) addText(id, *text);
  if (const auto* stack = std::get_if<StackElement>(&node.element)) {
    addChildren(id, node.children, {context.direction, context.inGroup, axisOf(*stack)});
  } else if (std::holds_alternative<CanvasElement>(node.element)) {
    addChildren(id, node.children, {context.direction, context.inGroup, SpacerAxis::both, true});
  } else if (std::holds_alternative<FittingElement>(node.element)) {
    reserveChildren(id, node.children);
    items_[id].hasTexts = true;
  } else if (std::holds_alternative<ImageElement>(node.element) ||
             std::holds_alternative<GaugeElement>(node.element)) {
    addChildren(id, node.children, context.inside());
  }
  return id;
}

void LayoutItems::reserveChildren(ItemId parent, std::span<const View> views) {
  const auto first = static_cast<std::uint32_t>(children_.size());
  std::uint32_t count = 0;
  for (const View& view : views) count += view.isEmpty() ? 0 : 1;
  children_.resize(first + count, kNone);
  items_[parent].firstChild = first;
  items_[parent].childCount = count;
}

ItemId LayoutItems::alternative(ItemId fitting, std::uint32_t index) {
  const LayoutItem& item = items_[fitting];
  const std::uint32_t at = item.firstChild + index;
  if (children_[at] != kNone) return children_[at];
  const auto isPresent = [](const View& view) { return !view.isEmpty(); };
  auto present = item.source->children | std::views::filter(isPresent);
  const View& view = *std::ranges::next(present.begin(), index);
  return children_[at] = addView(view, {item.direction, item.inGroup, item.spacerAxis});
}

void LayoutItems::addChildren(ItemId parent, std::span<const View> views, const Context& context) {
  reserveChildren(parent, views);
  std::uint32_t at = items_[parent].firstChild;
  for (const View& view : views) {
    if (view.isEmpty()) continue;
    const ItemId child = addView(view, context);
    children_[at++] = child;
    items_[parent].hasTexts = items_[parent].hasTexts || items_[child].hasTexts;
  }
}

void LayoutItems::addText(ItemId id, const TextElement& text) {
  const TextStyle style{text.weight, text.language, text.direction.value_or(items_[id].direction)};
  items_[id].text = static_cast<std::uint32_t>(texts_.size());
  items_[id].hasTexts = true;
  auto paragraph = measurer_.shape(text.text, style);
  if (!text.fallback.empty() && isBlank(*paragraph)) {
    paragraph = measurer_.shape(text.fallback, style);
  }
  texts_.emplace_back(text, std::move(paragraph), metrics_, placeholder_);
}

std::vector<StackChild>& LayoutItems::takeStackChildren(const LayoutItem& item) {
  if (recordsInUse_ == records_.size()) records_.emplace_back();
  std::vector<StackChild>& record = records_[recordsInUse_++];
  record.clear();
  for (const ItemId child : children(item)) {
    record.push_back({child, items_[child].priority, items_[child].isSpacer, 0, {}});
  }
  return record;
}

MeasuredSize LayoutItems::measure(ItemId asking, const Proposal& asked) {
  const ItemId id = items_[asking].answering;
  const Proposal proposal = cleanProposal(asked);
  ++questions_;
  if (const Memo* known = remembered(id, proposal)) {
    isRough_ = isRough_ || known->isRough;
    return known->answer;
  }
  if (mayEstimate(id)) {
    isRough_ = true;
    return cleaned(mostSimilar(id, proposal).answer, proposal);
  }
  const bool wasRough = std::exchange(isRough_, false);
  ++depth_;
  const MeasuredSize answer = cleaned(compute(id, proposal), proposal);
  --depth_;
  LayoutItem& item = items_[id];
  const bool isSample = item.memoCount < kSamples && questions_ <= kLayoutQuestions;
  memos_.push_back({memoKey(proposal.width),
                    memoKey(proposal.height),
                    scaleLimit_,
                    answer,
                    item.firstMemo,
                    isSample,
                    isRough_});
  item.firstMemo = static_cast<std::uint32_t>(memos_.size() - 1);
  ++item.memoCount;
  isRough_ = isRough_ || wasRough;
  if (trace_) trace_({item.what, depth_, proposal, answer.size()});
  return answer;
}

MeasuredSize LayoutItems::estimate(ItemId id, const Proposal& proposal) {
  const bool wasEstimating = std::exchange(isEstimating_, true);
  const bool wasRough = isRough_;
  const MeasuredSize answer = measure(id, proposal);
  isEstimating_ = wasEstimating;
  isRough_ = wasRough;
  return answer;
}

/// Estimates go by samples alone, so that they do not change while layout goes on; what is for good
/// does not rest on an estimate as long as the budget lasts.
const LayoutItems::Memo* LayoutItems::remembered(ItemId id, const Proposal& proposal) const {
  const double width = memoKey(proposal.width);
  const double height = memoKey(proposal.height);
  for (std::uint32_t at = items_[id].firstMemo; at != kNone; at = memos_[at].next) {
    const Memo& memo = memos_[at];
    if (memo.width != width || memo.height != height || memo.scaleLimit != scaleLimit_) continue;
    if (isEstimating_ ? memo.isSample : !memo.isRough || isOverBudget()) return &memo;
  }
  return nullptr;
}

bool LayoutItems::mayEstimate(ItemId id) const {
  if (items_[id].firstMemo == kNone) return false;
  return isOverBudget() || (isEstimating_ && items_[id].memoCount >= kSamples);
}

const LayoutItems::Memo& LayoutItems::mostSimilar(ItemId id, const Proposal& proposal) const {
  const Memo* best = &memos_[items_[id].firstMemo];
  double least = kUnbounded;
  for (std::uint32_t at = items_[id].firstMemo; at != kNone; at = memos_[at].next) {
    const Memo& memo = memos_[at];
    const double difference = differenceOf(memo.width, memoKey(proposal.width)) +
                              differenceOf(memo.height, memoKey(proposal.height)) +
                              (memo.scaleLimit == scaleLimit_ ? 0 : kAnotherKind);
    if (!memo.isSample || !(difference < least)) continue;
    best = &memo;
    least = difference;
  }
  return *best;
}

MeasuredSize LayoutItems::compute(ItemId id, const Proposal& proposal) {
  if (const auto* element = std::get_if<const Element*>(&items_[id].what)) {
    return computeElement(id, **element, proposal);
  }
  return arrangeTarget(id, proposal).own;
}

MeasuredSize LayoutItems::computeElement(ItemId id,
                                         const Element& element,
                                         const Proposal& proposal) {
  const Overloaded answer{[&](const StackElement& stack) {
                            StackRecord record(*this, items_[id]);
                            return arrangeStack(stack, proposal, *this, record.children());
                          },
                          [&](const TextElement&) { return answerOfText(id, proposal); },
                          [&](const FittingElement&) {
                            if (items_[id].childCount == 0) return MeasuredSize{};
                            return measure(fitting_.chosen(id, proposal), proposal);
                          },
                          [&](const SpacerElement& spacer) {
                            return answerOf(spacer, proposal, items_[id].spacerAxis);
                          },
                          [&](const SymbolElement& symbol) { return answerOf(symbol, metrics_); },
                          [&](const GaugeElement&) { return answerOfGauge(proposal); },
                          [&](const EmptyElement&) { return MeasuredSize{}; },
                          [&](const OneOf<ImageElement, ShapeElement, CanvasElement> auto&) {
                            return answerOfWholeProposal(proposal);
                          }};
  return std::visit(answer, element);
}

MeasuredSize LayoutItems::answerOfText(ItemId id, const Proposal& proposal) {
  constexpr std::size_t kStepsPerQuestion = 32;
  TextLayout& layout = text(items_[id]);
  const MeasuredSize answer = layout.answer(proposal, scaleLimit_);
  count(layout.takeSteps() / kStepsPerQuestion);
  return answer;
}

Arrangement LayoutItems::arrangeTarget(ItemId id, const Proposal& asked) {
  const Proposal proposal = cleanProposal(asked);
  const Proposal reference = items_[id].reference(proposal);
  const SubviewProxy target{*this, children_[items_[id].firstChild]};
  if (items_[id].sharesScale) {
    const ScaleLimit limit(*this, fitting_.groupScale(id, proposal));
    return arrangeTransparent(proposal, target);
  }
  const Overloaded arranged{
      [&](const OneOf<FixedFrame, Offset, Position> auto& modifier) {
        return arrange(modifier, proposal, reference, target);
      },
      [&](const OneOf<FlexibleFrame, Padding, AspectRatio, FixedSize> auto& modifier) {
        return arrange(modifier, proposal, target);
      },
      [&](const TransparentModifier auto&) { return arrangeTransparent(proposal, target); }};
  return std::visit(arranged, *std::get<const Modifier*>(items_[id].what));
}

}  // namespace rendering
