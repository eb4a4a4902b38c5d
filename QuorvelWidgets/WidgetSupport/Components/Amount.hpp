// An amount of money as one line of text.
#pragma once

#include <string>
#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "ViewKit/ViewKit.hpp"

namespace quorvel {

/// How every amount is set: one line from left to right, which shrinks to `leastScale` of `size`
/// before it is cut.
[[nodiscard]] viewkit::Text amountFigure(std::string text,
                                         double size,
                                         viewkit::FontWeight weight,
                                         double leastScale = 0.55);

/// Masked before layout, so that no width betrays a digit. Read out in full even where the short
/// form is shown. Keeps a reference to the snapshot: use it while the snapshot lives.
struct Amount : viewkit::Modifiers<Amount> {
  static constexpr std::string_view kName = "Amount";

  double value = 0;
  const WidgetSnapshot& snapshot;
  double size = 17;
  viewkit::FontWeight weight = viewkit::FontWeight::bold;
  bool compact = false;
  double leastScale = 0.55;

  [[nodiscard]] viewkit::View body() const;
};

}  // namespace quorvel
