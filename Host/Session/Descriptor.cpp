#include "Session/Descriptor.hpp"

#include <unistd.h>

namespace session {

void Descriptor::close() {
  if (value_ >= 0) ::close(value_);
  value_ = -1;
}

}  // namespace session
