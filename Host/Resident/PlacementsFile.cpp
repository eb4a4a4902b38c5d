#include "Resident/PlacementsFile.hpp"

#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "Control/Paths.hpp"
#include "Foundation/FileManager.hpp"
#include "Foundation/FileWriting.hpp"

namespace resident {
namespace {

constexpr std::size_t kMaximumFile = std::size_t{1} << 20;

/// The first name of this form that is free.
std::string nameAside(const std::string& path, std::string_view why) {
  for (int number = 1;; ++number) {
    std::string name = fmt::format("{}.{}-{}", path, why, number);
    if (::access(name.c_str(), F_OK) != 0) return name;
  }
}

}  // namespace

std::expected<PlacementsFile::Loaded, std::string> PlacementsFile::load() const {
  const auto text = foundation::readFile(path_, kMaximumFile);
  if (!text && text.error() == foundation::FileError::missing) return Loaded{};
  PlacementsProblem problem;
  if (text) {
    auto placements = decodePlacements(*text);
    if (placements) return Loaded{*std::move(placements), {}};
    problem = placements.error();
  } else {
    problem.line = foundation::describe(text.error());
  }
  const std::string aside = nameAside(path_, problem.isLater ? "later" : "broken");
  if (std::rename(path_.c_str(), aside.c_str()) != 0) {
    return std::unexpected(fmt::format(
        "{}: {}; it cannot be put aside: {}", path_, problem.line, std::strerror(errno)));
  }
  return Loaded{std::nullopt, fmt::format("{}: {}; it is kept as {}", path_, problem.line, aside)};
}

std::optional<std::string> PlacementsFile::save(const Placements& placements) const {
  if (auto problem = control::makePrivateFolder(path_.substr(0, path_.rfind('/')))) return problem;
  const auto error = foundation::replaceFile(path_, encodePlacements(placements));
  if (!error) return std::nullopt;
  return fmt::format("cannot write {}: {}", path_, error.message());
}

}  // namespace resident
