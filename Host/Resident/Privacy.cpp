#include "Resident/Privacy.hpp"

namespace resident {

bool Privacy::isHidden() const {
  return !reasons().empty();
}

std::vector<std::string_view> Privacy::reasons() const {
  std::vector<std::string_view> reasons;
  if (isAsked_) reasons.emplace_back("hide");
  if (lock_ == Lock::locked) reasons.emplace_back("locked");
  if (lock_ == Lock::asleep) reasons.emplace_back("sleep");
  if (screenSaver_) reasons.emplace_back("screen saver");
  if (lock_ == Lock::unknown) reasons.emplace_back("unsure");
  return reasons;
}

void Privacy::setLocked(bool locked) {
  lock_ = locked ? Lock::locked : Lock::unlocked;
}

void Privacy::setWithoutSession() {
  lock_ = Lock::unlocked;
}

}  // namespace resident
