// What depends on whether texts are whole: the child that a Fitting takes, the scale of a group.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "Rendering/Layout/LayoutRecords.hpp"

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
  /// What was found out about an item that is laid out in a proposal.
  struct Finding {
    double width;  ///< negative: none proposed
    double height;
    double scaleLimit;
    std::uint32_t next;  ///< of the same item
    std::optional<Texts> texts;
    std::optional<ItemId> chosen;
    std::optional<double> scale;
  };

  /// The finding's index; it is made when there is none yet.
  [[nodiscard]] std::size_t findingFor(ItemId item, const Proposal& proposal);
  [[nodiscard]] bool fits(ItemId child, const Proposal& proposal);
  [[nodiscard]] Texts textsIn(ItemId item, const Proposal& proposal);
  [[nodiscard]] Texts findTexts(ItemId item, const Proposal& proposal);

  LayoutItems& items_;
  std::vector<Finding> findings_;
};

}  // namespace rendering
