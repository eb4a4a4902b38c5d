// A view flattened into items that answer proposals; every answer is worked out once and
// remembered.
#pragma once

#include <deque>
#include <span>
#include <utility>
#include <vector>

#include "Rendering/Graphics/DrawingLimits.hpp"
#include "Rendering/Layout/Layout.hpp"
#include "Rendering/Layout/LayoutFitting.hpp"
#include "Rendering/Layout/LayoutRecords.hpp"
#include "Rendering/Layout/LayoutStack.hpp"
#include "Rendering/Layout/TextLayout.hpp"
#include "Rendering/Text/TextMeasurer.hpp"

namespace rendering {

// Layout is linear in the tree's nodes, whatever the tree. What a view is offered for good is asked
// once by each parent. How flexible it is, in contrast, is asked at every proposal of its parent,
// and nested stacks multiply their proposals: from a number on, these questions are answered from
// earlier ones. No widget comes near it.

/// Answers of one item that are worked out to estimate by.
inline constexpr std::uint32_t kSamples = 64;
/// Questions of one picture before nothing more is worked out that can be estimated.
using limits::kLayoutQuestions;

class LayoutItems {
 public:
  LayoutItems(const viewkit::View& view, const LayoutOptions& options, TextMeasurer& measurer);

  [[nodiscard]] ItemId root() const { return root_; }
  [[nodiscard]] LayoutItem& operator[](ItemId id) { return items_[id]; }
  [[nodiscard]] const LayoutItem& operator[](ItemId id) const { return items_[id]; }
  /// Of a Fitting only those that were asked for, else kNone.
  [[nodiscard]] std::span<const ItemId> children(const LayoutItem& item) const {
    return std::span(children_).subspan(item.firstChild, item.childCount);
  }
  [[nodiscard]] TextLayout& text(const LayoutItem& item) { return texts_[item.text]; }

  MeasuredSize measure(ItemId id, const Proposal& proposal);
  /// For questions whose answer only decides how room is shared. An item that was asked a great
  /// deal answers as to the most similar of those questions.
  MeasuredSize estimate(ItemId id, const Proposal& proposal);

  /// How many sizes were asked for.
  [[nodiscard]] std::size_t questions() const { return questions_; }
  /// Too many for the picture: from now on only estimates, and later no new answer at all.
  [[nodiscard]] bool isOverBudget() const {
    return questions_ > (isEstimating_ ? kLayoutQuestions : 2 * kLayoutQuestions);
  }
  /// Counts what is not asked with `measure`.
  void count(std::size_t questions) { questions_ += questions; }

  /// The places of the children of a modifier's item, its target first. Only for modifiers.
  [[nodiscard]] Arrangement arrangeTarget(ItemId id, const Proposal& proposal);
  /// A stack's children, ready to be arranged. The record is given back with `release`, the last
  /// one taken first.
  [[nodiscard]] std::vector<StackChild>& takeStackChildren(const LayoutItem& item);
  void release() { --recordsInUse_; }

  /// A child of a Fitting. It is shaped and flattened when it is first asked for: mostly the first
  /// child fits, and the others cost nothing.
  [[nodiscard]] ItemId alternative(ItemId fitting, std::uint32_t index);

  /// Which child a Fitting takes, and how far the texts of a group shrink.
  [[nodiscard]] LayoutFitting& fitting() { return fitting_; }
  /// What the texts of the group that is being laid out may not exceed; 1 outside of groups.
  [[nodiscard]] double scaleLimit() const { return scaleLimit_; }

  /// Scratch for stacks: each appends its children and cuts them off again.
  [[nodiscard]] std::vector<StackChild*>& stackOrder() { return order_; }

 private:
  struct Memo {
    double width;  ///< negative: none proposed
    double height;
    double scaleLimit;
    MeasuredSize answer;
    std::uint32_t next;
    bool isSample;  ///< among the first of its item: what estimates go by
    bool isRough;   ///< rests on an estimate
  };
  struct Context {
    viewkit::LayoutDirection direction;
    bool inGroup = false;  ///< of texts that share their scale
    SpacerAxis spacerAxis = SpacerAxis::both;
    bool onCanvas = false;

    [[nodiscard]] Context inside() const { return {direction, inGroup}; }
  };
  friend class ScaleLimit;

  ItemId addView(const viewkit::View& view, Context context);
  ItemId addElement(const viewkit::Node& node, const Context& context);
  ItemId addItem(const viewkit::Node& node, const Context& context);
  void reserveChildren(ItemId parent, std::span<const viewkit::View> views);
  void addChildren(ItemId parent, std::span<const viewkit::View> views, const Context& context);
  [[nodiscard]] ItemId answeringFor(ItemId id) const;
  void addText(ItemId id, const viewkit::TextElement& text);

  [[nodiscard]] const Memo* remembered(ItemId id, const Proposal& proposal) const;
  [[nodiscard]] bool mayEstimate(ItemId id) const;
  [[nodiscard]] const Memo& mostSimilar(ItemId id, const Proposal& proposal) const;
  [[nodiscard]] MeasuredSize compute(ItemId id, const Proposal& proposal);
  [[nodiscard]] MeasuredSize computeElement(ItemId id,
                                            const viewkit::Element& element,
                                            const Proposal& proposal);
  [[nodiscard]] MeasuredSize answerOfText(ItemId id, const Proposal& proposal);

  TextMeasurer& measurer_;
  FontMetrics metrics_;
  bool placeholder_;
  const LayoutTrace& trace_;
  int depth_ = 0;
  std::size_t questions_ = 0;
  bool isEstimating_ = false;
  bool isRough_ = false;  ///< what is being worked out rests on an estimate
  std::vector<LayoutItem> items_;
  std::vector<ItemId> children_;
  std::vector<TextLayout> texts_;
  std::vector<Memo> memos_;
  std::deque<std::vector<StackChild>> records_;
  std::size_t recordsInUse_ = 0;
  std::vector<StackChild*> order_;
  LayoutFitting fitting_{*this};
  double scaleLimit_ = 1;
  ItemId root_ = kNone;
};

/// The texts of a group stay within this scale as long as it lives.
class ScaleLimit {
 public:
  ScaleLimit(LayoutItems& items, double scale)
      : items_(items), before_(std::exchange(items.scaleLimit_, scale)) {}
  ScaleLimit(const ScaleLimit&) = delete;
  ScaleLimit& operator=(const ScaleLimit&) = delete;
  ~ScaleLimit() { items_.scaleLimit_ = before_; }

 private:
  LayoutItems& items_;
  double before_;
};

/// A stack's children for as long as a function works on them.
class StackRecord {
 public:
  StackRecord(LayoutItems& items, const LayoutItem& item)
      : items_(items), children_(items.takeStackChildren(item)) {}
  StackRecord(const StackRecord&) = delete;
  StackRecord& operator=(const StackRecord&) = delete;
  ~StackRecord() { items_.release(); }
  [[nodiscard]] std::span<StackChild> children() { return children_; }

 private:
  LayoutItems& items_;
  std::vector<StackChild>& children_;
};

}  // namespace rendering
