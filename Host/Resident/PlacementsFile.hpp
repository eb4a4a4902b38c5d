// The placements on disk: read once, replaced as a whole.
#pragma once

#include <expected>
#include <optional>
#include <string>

#include "Resident/Placements.hpp"

namespace resident {

class PlacementsFile {
 public:
  explicit PlacementsFile(std::string path) : path_(std::move(path)) {}

  struct Loaded {
    std::optional<Placements> placements;  ///< nothing: there is no file
    std::string warning;                   ///< a file was put aside: which, why, where to
  };
  /// A file that cannot be understood is renamed, so that nothing is lost; one that can be neither
  /// read nor renamed is an error, in one line.
  [[nodiscard]] std::expected<Loaded, std::string> load() const;
  /// What went wrong, in one line. The old file stays until the new one is whole.
  [[nodiscard]] std::optional<std::string> save(const Placements& placements) const;

 private:
  std::string path_;
};

}  // namespace resident
