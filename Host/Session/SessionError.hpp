// Why an extension gave no answer.
#pragma once

#include <cstdint>
#include <expected>
#include <string>

#include "Foundation/Names.hpp"

namespace session {

struct SessionError {
  enum class Kind : std::uint8_t {
    notStarted,  ///< the program could not be run
    deadline,    ///< no answer in time
    died,        ///< the process ended or closed a pipe before it had answered
    flood,       ///< more error output than is taken
    malformed,   ///< bytes that are no frame, no JSON, or the answer to something else
    refused,     ///< the extension answered with an error
    unreadable   ///< an answer whose content breaks the form or a limit
  };
  friend constexpr auto namesOf(Kind) {
    return foundation::names(
        "notStarted", "deadline", "died", "flood", "malformed", "refused", "unreadable");
  }

  Kind kind = Kind::notStarted;
  std::string message;  ///< one line: what, where and why

  friend bool operator==(const SessionError&, const SessionError&) = default;
};

template <class T>
using Result = std::expected<T, SessionError>;

}  // namespace session
