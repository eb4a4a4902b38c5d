// A document edited into a state that a person should have seen once.
#pragma once

#include <functional>
#include <string_view>

#include "Cli/Sheet/DocumentVariants.hpp"
#include "Foundation/JsonValue.hpp"

namespace cli {

/// The object with that member, replaced or added; another value becomes an object.
[[nodiscard]] foundation::JsonValue with(const foundation::JsonValue& object,
                                         std::string_view key,
                                         foundation::JsonValue value);

/// Every amount of the document but zeros changed; percentages and the money style stay.
[[nodiscard]] foundation::JsonValue withAmounts(const foundation::JsonValue& document,
                                                const std::function<double(double)>& change);

/// Members that the document does not have are not invented. `noDocument` is left as it is.
[[nodiscard]] foundation::JsonValue inState(const foundation::JsonValue& document,
                                            DocumentState state);

}  // namespace cli
