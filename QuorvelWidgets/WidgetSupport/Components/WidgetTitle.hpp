// What a widget is known by.
#pragma once

#include <string_view>

#include "QuorvelWidgets/WidgetSupport/Texts/TextKey.hpp"

namespace quorvel {

struct WidgetTitle {
  std::string_view symbol;
  TextKey text;
};

}  // namespace quorvel
