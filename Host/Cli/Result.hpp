// How a command ends, and how it speaks.
#pragma once

#include "Foundation/Command.hpp"

namespace cli {

using namespace foundation::command;

}  // namespace cli
