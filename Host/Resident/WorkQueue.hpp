// Work that waits for a thread: by urgency, then in the order in which it came.
//
// Newer work replaces waiting work of the same key and keeps its place, so asking again and again
// neither loses a turn nor takes another's. Work that others have passed `kPatience` times is next.
#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <utility>

namespace resident {

/// What a person waits for comes first.
enum class Urgency : std::uint8_t { person, reload, preview };

template <class Work>
class WorkQueue {
 public:
  /// How often later work may go before one piece.
  static constexpr int kPatience = 8;

  /// Work with an empty key is never replaced. The more urgent of old and new counts.
  void push(Urgency urgency, std::string key, Work work) {
    if (!key.empty()) {
      const auto same = std::ranges::find(items_, key, &Item::key);
      if (same != items_.end()) {
        same->work = std::move(work);
        same->urgency = std::min(urgency, same->urgency);
        return;
      }
    }
    items_.push_back({urgency, 0, std::move(key), std::move(work)});
  }

  [[nodiscard]] std::optional<Work> pop() {
    if (items_.empty()) return std::nullopt;
    auto next =
        std::ranges::find_if(items_, [](const Item& item) { return item.passed >= kPatience; });
    if (next == items_.end()) next = std::ranges::min_element(items_, {}, &Item::urgency);
    for (auto earlier = items_.begin(); earlier != next; ++earlier) ++earlier->passed;
    Work work = std::move(next->work);
    items_.erase(next);
    return work;
  }

  [[nodiscard]] bool isEmpty() const { return items_.empty(); }
  [[nodiscard]] std::size_t size() const { return items_.size(); }
  void clear() { items_.clear(); }

 private:
  struct Item {
    Urgency urgency;
    int passed;  // how often later work went before it
    std::string key;
    Work work;
  };
  std::deque<Item> items_;  // in the order in which they came
};

}  // namespace resident
