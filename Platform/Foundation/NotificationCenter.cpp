// The list is copied for each post, so no lock is held while observers run.
#include "Foundation/NotificationCenter.hpp"

#include <algorithm>
#include <iterator>
#include <mutex>
#include <utility>
#include <vector>

namespace foundation {
namespace {

struct Registration {
  NotificationCenter::Token token = 0;
  std::optional<std::string> name;
  const void* object = nullptr;
  std::shared_ptr<const NotificationCenter::Observer> observer;

  [[nodiscard]] bool wants(const Notification& notification) const {
    return (!name || *name == notification.name) &&
           (object == nullptr || object == notification.object);
  }
};

}  // namespace

struct NotificationCenter::State {
  std::mutex mutex;
  Token lastToken = 0;
  std::vector<Registration> registrations;

  bool holds(Token token) {
    const std::lock_guard lock(mutex);
    return std::ranges::find(registrations, token, &Registration::token) != registrations.end();
  }
};

NotificationCenter::NotificationCenter() : state_(std::make_shared<State>()) {}

NotificationCenter NotificationCenter::defaultCenter() {
  static const NotificationCenter center;
  return center;
}

NotificationCenter::Token NotificationCenter::addObserver(std::optional<std::string> name,
                                                          const void* object,
                                                          Observer observer) const {
  const std::lock_guard lock(state_->mutex);
  const Token token = ++state_->lastToken;
  state_->registrations.push_back(
      {token, std::move(name), object, std::make_shared<const Observer>(std::move(observer))});
  return token;
}

void NotificationCenter::removeObserver(Token token) const {
  const std::lock_guard lock(state_->mutex);
  std::erase_if(state_->registrations,
                [&](const Registration& registration) { return registration.token == token; });
}

void NotificationCenter::postNotificationName(std::string_view name, const void* object) const {
  const Notification notification{std::string(name), object};
  const auto state = state_;
  std::vector<Registration> wanting;
  {
    const std::lock_guard lock(state->mutex);
    std::ranges::copy_if(state->registrations,
                         std::back_inserter(wanting),
                         [&](const Registration& r) { return r.wants(notification); });
  }
  for (const Registration& registration : wanting) {
    if (state->holds(registration.token)) (*registration.observer)(notification);
  }
}

}  // namespace foundation
