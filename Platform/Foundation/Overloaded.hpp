// What `std::visit` is handed to have a case for each alternative: after a variant gets a new one,
// the code does not compile until there is a case for it.
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
