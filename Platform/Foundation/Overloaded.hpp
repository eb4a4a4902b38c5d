// What `std::visit` is handed to have a case for each alternative: a variant that gets a new one
// does not compile until somebody has thought of it.
//
//     std::visit(Overloaded{[](const Circle& circle) { ... },
//                           [](const OneOf<Square, Triangle> auto& other) { ... }},
//                shape);
#pragma once

#include <concepts>

namespace foundation {

template <class... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};

template <class T, class... Types>
concept OneOf = (std::same_as<T, Types> || ...);

}  // namespace foundation
