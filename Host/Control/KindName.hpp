// Kinds as a person types them: "QuorvelSafeToSpendWidget" is "safe-to-spend".
#pragma once

#include <string>
#include <string_view>

namespace control {

/// The kind's words without the first and without a last "Widget", in lower case with hyphens; a
/// kind of another form is its own short name.
[[nodiscard]] std::string shortKind(std::string_view kind);

/// `name` is the kind, in full or short.
[[nodiscard]] bool namesKind(std::string_view name, std::string_view kind);

}  // namespace control
