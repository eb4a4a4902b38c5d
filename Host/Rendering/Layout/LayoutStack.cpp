#include "Rendering/Layout/LayoutStack.hpp"

#include <algorithm>
#include <numeric>

#include "Rendering/Layout/LayoutAlignment.hpp"
#include "Rendering/Layout/LayoutItems.hpp"
#include "Rendering/Layout/LayoutNumbers.hpp"

namespace rendering {

namespace {

using viewkit::StackElement;
using OptionalLength = std::optional<double>;

constexpr double kDefaultSpacing = 8;

/// Stable, and without the buffer that the library's stable sort takes: stacks are short, and most
/// are in order already.
template <class Iterator, class Less>
void sortShort(Iterator begin, Iterator end, Less less) {
  constexpr auto kShort = 32;
  if (end - begin > kShort) return std::stable_sort(begin, end, less);
  for (Iterator at = begin; at != end; ++at) {
    std::rotate(std::upper_bound(begin, at, *at, less), at, at + 1);
  }
}

/// A row or a column seen along its main axis.
class Line {
 public:
  Line(const StackElement& stack,
       const Proposal& proposal,
       LayoutItems& items,
       std::span<StackChild> children)
      : stack_(stack),
        isRow_(stack.axis == StackElement::Axis::horizontal),
        proposal_(proposal),
        items_(items),
        children_(children) {}

  MeasuredSize arrange() {
    share();
    placeAlong();
    return isRow_ ? alignDown() : alignAcross();
  }

 private:
  [[nodiscard]] Proposal offer(OptionalLength main) const {
    return isRow_ ? Proposal{main, proposal_.height} : Proposal{proposal_.width, main};
  }
  [[nodiscard]] double mainOf(const MeasuredSize& answer) const {
    return isRow_ ? answer.width : answer.height;
  }
  [[nodiscard]] double ask(const StackChild& child, double main) const {
    return mainOf(items_.estimate(child.item, offer(main)));
  }
  [[nodiscard]] double gapAfter(std::size_t i) const {
    if (i + 1 >= children_.size()) return 0;
    if (stack_.spacing) return cleanNumber(*stack_.spacing);
    return children_[i].isSpacer || children_[i + 1].isSpacer ? 0 : kDefaultSpacing;
  }
  [[nodiscard]] double gaps() const {
    double sum = 0;
    for (std::size_t i = 0; i < children_.size(); ++i) sum += gapAfter(i);
    return sum;
  }

  /// Takes the child's answer to its offer and says how much of the main axis it uses.
  double settle(StackChild& child, OptionalLength main) {
    child.place.offer = offer(main);
    child.place.answer = items_.measure(child.item, child.place.offer);
    return mainOf(child.place.answer);
  }

  void share() {
    const OptionalLength main = isRow_ ? proposal_.width : proposal_.height;
    if (!main) {
      for (StackChild& child : children_) settle(child, std::nullopt);
      return;
    }
    double space = *main - gaps();
    if (children_.size() == 1) {
      settle(children_[0], cleanLength(space));
      return;
    }
    std::vector<StackChild*>& order = items_.stackOrder();
    const std::size_t first = order.size();
    for (StackChild& child : children_) order.push_back(&child);
    const auto from = [&](std::size_t i) { return order.begin() + static_cast<long>(first + i); };
    const std::size_t count = children_.size();
    sortShort(from(0), from(count), [](const StackChild* a, const StackChild* b) {
      return a->priority > b->priority;
    });
    for (std::size_t begin = 0; begin < count;) {
      std::size_t end = begin + 1;
      while (end < count && (*from(end))->priority == (*from(begin))->priority) ++end;
      const double reserved = leastOf(first + end, first + count);
      space -= shareInGroup(first + begin, first + end, space - reserved);
      begin = end;
    }
    order.resize(first);
  }

  double leastOf(std::size_t begin, std::size_t end) {
    double sum = 0;
    for (std::size_t i = begin; i < end; ++i) sum += ask(*items_.stackOrder()[i], 0);
    return sum;
  }

  /// Offers the group its space, least flexible first, in equal parts of what is left; says what it
  /// took.
  double shareInGroup(std::size_t begin, std::size_t end, double space) {
    const auto at = [&](std::size_t i) {
      return items_.stackOrder().begin() + static_cast<long>(i);
    };
    if (end - begin > 1) {
      for (std::size_t i = begin; i < end; ++i) {
        StackChild& child = **at(i);
        child.flexibility = ask(child, kUnbounded) - ask(child, 0);
      }
      sortShort(at(begin), at(end), [](const StackChild* a, const StackChild* b) {
        return a->flexibility < b->flexibility;
      });
    }
    double taken = 0;
    for (std::size_t i = begin; i < end; ++i) {
      const double left = static_cast<double>(end - i);
      const double part = std::isinf(space) ? kUnbounded : cleanLength((space - taken) / left);
      taken += settle(**at(i), part);
    }
    return std::isinf(space) ? 0 : taken;
  }

  void placeAlong() {
    double at = 0;
    for (std::size_t i = 0; i < children_.size(); ++i) {
      Point& origin = children_[i].place.origin;
      (isRow_ ? origin.x : origin.y) = cleanNumber(at, kFarthest);
      at += mainOf(children_[i].place.answer) + gapAfter(i);
    }
    length_ = cleanLength(at);
  }

  MeasuredSize alignDown();
  MeasuredSize alignAcross();

  const StackElement& stack_;
  bool isRow_;
  Proposal proposal_;
  LayoutItems& items_;
  std::span<StackChild> children_;
  double length_ = 0;
};

/// Brings the children's guides together on one axis; the extent is what they then cover.
template <class Guide, class Extent, class Origin>
double bringTogether(std::span<StackChild> children, Guide guide, Extent extent, Origin origin) {
  double before = -kUnbounded;
  double after = -kUnbounded;
  for (const StackChild& child : children) {
    const MeasuredSize& answer = child.place.answer;
    if (std::isinf(extent(answer))) return kUnbounded;
    before = std::max(before, guide(answer));
    after = std::max(after, extent(answer) - guide(answer));
  }
  for (StackChild& child : children) origin(child) = before - guide(child.place.answer);
  return children.empty() ? 0 : before + after;
}

double bringTogetherDown(std::span<StackChild> children, viewkit::VerticalAlignment alignment) {
  return bringTogether(
      children,
      [&](const MeasuredSize& a) { return verticalGuide(alignment, a); },
      [](const MeasuredSize& a) { return a.height; },
      [](StackChild& child) -> double& { return child.place.origin.y; });
}

double bringTogetherAcross(std::span<StackChild> children, viewkit::HorizontalAlignment alignment) {
  return bringTogether(
      children,
      [&](const MeasuredSize& a) { return horizontalGuide(alignment, a); },
      [](const MeasuredSize& a) { return a.width; },
      [](StackChild& child) -> double& { return child.place.origin.x; });
}

/// The first baseline of a container is the highest one among its children.
std::optional<double> firstBaseline(std::span<const StackChild> children) {
  std::optional<double> highest;
  for (const StackChild& child : children) {
    const auto baseline = carriedBaseline(child.place.answer, child.place.origin);
    if (baseline && (!highest || *baseline < *highest)) highest = baseline;
  }
  return highest;
}

MeasuredSize Line::alignDown() {
  const double height = bringTogetherDown(children_, stack_.alignment.vertical);
  return {length_, height, firstBaseline(children_)};
}

MeasuredSize Line::alignAcross() {
  const double width = bringTogetherAcross(children_, stack_.alignment.horizontal);
  return {width, length_, firstBaseline(children_)};
}

MeasuredSize arrangeDepth(const StackElement& stack,
                          const Proposal& proposal,
                          LayoutItems& items,
                          std::span<StackChild> children) {
  for (StackChild& child : children) {
    child.place.offer = proposal;
    child.place.answer = items.measure(child.item, proposal);
  }
  const double width = bringTogetherAcross(children, stack.alignment.horizontal);
  const double height = bringTogetherDown(children, stack.alignment.vertical);
  return {width, height, firstBaseline(children)};
}

}  // namespace

MeasuredSize arrangeStack(const StackElement& stack,
                          const Proposal& proposal,
                          LayoutItems& items,
                          std::span<StackChild> children) {
  if (stack.axis == StackElement::Axis::depth) {
    return arrangeDepth(stack, proposal, items, children);
  }
  return Line(stack, proposal, items, children).arrange();
}

}  // namespace rendering
