// Links on their way to the desktop.
#pragma once

#include <functional>
#include <list>
#include <string>

#include "Opening/LinkOpener.hpp"
#include "Resident/Loop.hpp"

namespace resident {

class Links {
 public:
  /// So many at a time; a program that opens a link may run as long as what it opened.
  static constexpr std::size_t kMaximum = 32;
  /// A program that still runs after this time has opened it.
  static constexpr std::chrono::milliseconds kPatience{3000};

  explicit Links(Loop& loop) : loop_(loop) {}

  /// `then` gets what went wrong, in one line, or nothing.
  void open(const std::string& link, std::function<void(const std::string&)> then);

 private:
  struct Opening {
    explicit Opening(const std::string& link) : opener(link, {}) {}

    opening::LinkOpener opener;
    std::function<void(const std::string&)> then;  // empty when it was told
    Watch watch;
    Watch patience;
  };
  using Place = std::list<Opening>::iterator;

  void proceed(Place opening);
  void losePatience(Place opening);
  static void tell(Opening& opening, const std::string& problem);

  Loop& loop_;
  std::list<Opening> openings_;
};

}  // namespace resident
