// The members of records that travel as JSON objects, listed once for everything that writes, reads
// or documents them. A module lists its own records:
//
//     template <>
//     struct MembersOf<OptionsAnswer> {
//       static void list(auto&& member) {
//         member("options", &OptionsAnswer::options, kRequired, AtMost{1024});
//         member("default", &OptionsAnswer::defaultOption, kAlways);
//         member("more", &OptionsAnswer::more);
//       }
//     };
//
// A member without a word about its presence is written where it differs from the record's default,
// and may be missing. `member(&Record::part)` has the part's members stand in the object itself.
#pragma once

#include <concepts>
#include <cstddef>
#include <limits>

namespace foundation {

/// Always written, and must be there.
inline constexpr struct Required {
} kRequired;
/// Always written, as null for an absent optional, and may be missing.
inline constexpr struct Always {
} kAlways;
/// Written, and then required, for records of which it holds; else neither written nor read.
template <class Record>
struct When {
  bool (*holds)(const Record&);
};

/// What a number may be.
struct Bounds {
  double least = -std::numeric_limits<double>::infinity();
  double most = std::numeric_limits<double>::infinity();
  bool aboveLeast = false;  ///< the least itself is out of bounds
  bool infinity = false;    ///< "infinity" is in bounds
};
/// Elements of an array.
struct AtMost {
  std::size_t elements;
};
/// Bytes of a string, in place of the reader's own limit.
struct MaximumBytes {
  std::size_t bytes;
};
/// The same, and a longer one is cut between two characters when it is written.
struct CutTo : MaximumBytes {};

template <class Rule, class... Rules>
inline constexpr bool hasRule = (std::same_as<Rule, Rules> || ...);

/// What a member that is not written has.
template <class T>
[[nodiscard]] const T& defaultsOf() {
  static const T defaults{};
  return defaults;
}

}  // namespace foundation
