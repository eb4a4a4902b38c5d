// Small snapshots for tests of views.
#pragma once

#include <string>
#include <utility>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"

namespace testsupport {

/// A snapshot with nothing but a language and a currency in it.
inline quorvel::WidgetSnapshot emptySnapshot(std::string lang = "en") {
  quorvel::WidgetSnapshot snapshot;
  snapshot.lang = std::move(lang);
  snapshot.money.symbol = "$";
  return snapshot;
}

}  // namespace testsupport
