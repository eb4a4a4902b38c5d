// How a step of the importer ends, and how it speaks.
#pragma once

#include "Foundation/Command.hpp"

namespace importer {

using namespace foundation::command;

}  // namespace importer
