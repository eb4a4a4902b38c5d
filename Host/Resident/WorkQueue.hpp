// Work that waits for a thread: by urgency, then in the order in which it came. Work of a key that
// is already waiting takes its place.
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
  /// An empty key is replaced by nothing. The more urgent of old and new counts.
  void push(Urgency urgency, std::string key, Work work) {
    if (!key.empty()) {
      const auto same = std::ranges::find(items_, key, &Item::key);
      if (same != items_.end()) {
        urgency = std::min(urgency, same->urgency);
        items_.erase(same);
      }
    }
    const auto later =
        std::ranges::find_if(items_, [&](const Item& item) { return item.urgency > urgency; });
    items_.insert(later, Item{urgency, std::move(key), std::move(work)});
  }

  [[nodiscard]] std::optional<Work> pop() {
    if (items_.empty()) return std::nullopt;
    Work work = std::move(items_.front().work);
    items_.pop_front();
    return work;
  }

  [[nodiscard]] bool isEmpty() const { return items_.empty(); }
  [[nodiscard]] std::size_t size() const { return items_.size(); }
  void clear() { items_.clear(); }

 private:
  struct Item {
    Urgency urgency;
    std::string key;
    Work work;
  };
  std::deque<Item> items_;
};

}  // namespace resident
