// Functions of several types in one: what `std::visit` is handed to have a case for each
// alternative. A variant that gets a new one does not compile until that has a case.
#pragma once

namespace foundation {

template <class... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};

}  // namespace foundation
