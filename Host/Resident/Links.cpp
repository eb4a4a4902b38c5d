#include "Resident/Links.hpp"

#include <utility>

namespace resident {

void Links::open(const std::string& link, std::function<void(const std::string&)> then) {
  if (openings_.size() >= kMaximum) return then("too many links are being opened");
  openings_.emplace_back(link);
  const Place opening = std::prev(openings_.end());
  opening->then = std::move(then);
  opening->patience = loop_.after(kPatience, [this, opening] { losePatience(opening); });
  proceed(opening);
}

void Links::proceed(Place opening) {
  // Before its descriptor is closed: the number may be given out again at once.
  opening->watch.reset();
  if (const auto opened = opening->opener.proceed()) {
    tell(*opening, *opened ? std::string{} : opened->error());
    openings_.erase(opening);
    return;
  }
  // Another descriptor is awaited in each stage.
  opening->watch =
      loop_.onReadable(opening->opener.descriptor(), [this, opening] { proceed(opening); });
}

void Links::losePatience(Place opening) {
  const bool isOpen = opening->opener.isHandedOver();
  tell(*opening, isOpen ? std::string{} : "nobody says what opens this link");
  if (!isOpen) openings_.erase(opening);
}

void Links::tell(Opening& opening, const std::string& problem) {
  if (auto then = std::exchange(opening.then, nullptr)) then(problem);
}

}  // namespace resident
