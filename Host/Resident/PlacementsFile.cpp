#include "Resident/PlacementsFile.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "Control/Paths.hpp"
#include "Foundation/FileDescriptor.hpp"
#include "Foundation/FileManager.hpp"

namespace resident {
namespace {

constexpr std::size_t kMaximumFile = std::size_t{1} << 20;

/// 0 or the error number.
int writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return 0;
}

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
  return replaceFile(path_, encodePlacements(placements));
}

std::optional<std::string> replaceFile(const std::string& path, std::string_view bytes) {
  const std::string written = path + ".new";
  foundation::FileDescriptor file{
      ::open(written.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600)};
  int error = file ? writeAll(file.get(), bytes) : errno;
  // The new file must be on disk before its name is: after a power cut it is the old or the new.
  if (error == 0 && ::fdatasync(file.get()) != 0) error = errno;
  file.reset();
  if (error == 0 && std::rename(written.c_str(), path.c_str()) != 0) error = errno;
  if (error == 0) return std::nullopt;
  ::unlink(written.c_str());
  return fmt::format("cannot write {}: {}", path, std::strerror(error));
}

}  // namespace resident
