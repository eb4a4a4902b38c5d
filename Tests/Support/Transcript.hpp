// Conversations as text: requests after "> ", answers after "< ", exchanges apart by "---" lines.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace testsupport {

/// The same transcript with the answers that `handle` gives to its requests; no "< " line where it
/// gives none. A line that starts with blanks continues the one before it, without them.
std::string replay(std::string_view transcript,
                   const std::function<std::string(std::string_view)>& handle);

/// The transcript with its continued lines joined, so that it can be compared with a replay.
std::string joined(std::string_view transcript);

}  // namespace testsupport
