#include "Session/SessionError.hpp"

namespace session {

std::string_view name(SessionError::Kind kind) {
  switch (kind) {
    case SessionError::Kind::notStarted:
      return "notStarted";
    case SessionError::Kind::deadline:
      return "deadline";
    case SessionError::Kind::died:
      return "died";
    case SessionError::Kind::flood:
      return "flood";
    case SessionError::Kind::malformed:
      return "malformed";
    case SessionError::Kind::refused:
      return "refused";
    case SessionError::Kind::unreadable:
      return "unreadable";
  }
  return "";
}

}  // namespace session
