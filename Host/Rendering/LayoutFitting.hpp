// What depends on whether texts are whole: the child that a Fitting takes, the scale of a group.
#pragma once

#include <cstddef>
#include <unordered_map>

#include "Rendering/LayoutRecords.hpp"

namespace rendering {

class LayoutItems;

class LayoutFitting {
 public:
  explicit LayoutFitting(LayoutItems& items) : items_(items) {}

  /// The first child that stays within the proposal with every text whole, else the last. Only for
  /// a Fitting with children.
  [[nodiscard]] ItemId chosen(ItemId fitting, const Proposal& proposal);

  /// The smallest scale among the texts of a group that is laid out in the proposal.
  [[nodiscard]] double groupScale(ItemId group, const Proposal& proposal);

 private:
  /// What became of the texts in an item.
  struct Texts {
    bool whole = true;
    double scale = 1;  ///< the smallest of those that share it
  };
  /// A question to an item.
  struct Question {
    ItemId item;
    double width;
    double height;
    double scaleLimit;
    Size canvas;
    friend bool operator==(const Question&, const Question&) = default;
  };
  struct Hash {
    [[nodiscard]] std::size_t operator()(const Question& question) const;
  };

  [[nodiscard]] Question questionFor(ItemId item, const Proposal& proposal) const;
  [[nodiscard]] bool fits(ItemId child, const Proposal& proposal);
  [[nodiscard]] Texts textsIn(ItemId item, const Proposal& proposal);
  [[nodiscard]] Texts findTexts(ItemId item, const Proposal& proposal);

  LayoutItems& items_;
  std::unordered_map<Question, ItemId, Hash> chosen_;
  std::unordered_map<Question, double, Hash> scales_;
  std::unordered_map<Question, Texts, Hash> texts_;
};

}  // namespace rendering
