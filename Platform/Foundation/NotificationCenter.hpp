// Named messages within one process.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace foundation {

struct Notification {
  std::string name;
  const void* object = nullptr;  ///< the sender; null when there is none
};

/// A value handed to whoever posts or observes; copies are the same centre. Any thread may call any
/// operation.
class NotificationCenter {
 public:
  using Observer = std::function<void(const Notification&)>;
  /// What `removeObserver` needs.
  using Token = std::uint64_t;

  NotificationCenter();

  /// The process's own centre, made once.
  [[nodiscard]] static NotificationCenter defaultCenter();

  /// Absent `name`: every name. Null `object`: every sender. Widgets post and observe nothing yet.
  Token addObserver(std::optional<std::string> name, const void* object, Observer observer) const;
  void removeObserver(Token token) const;

  /// Calls every observer of that name and sender on this thread before it returns. Observers may
  /// add and remove observers; those added during a post are not called by it, those removed are
  /// not called any more.
  void postNotificationName(std::string_view name, const void* object = nullptr) const;

 private:
  struct State;
  std::shared_ptr<State> state_;
};

}  // namespace foundation
