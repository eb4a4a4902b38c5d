#include "Import/SnapshotFile.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>

#include <cerrno>
#include <optional>
#include <span>

#include "Foundation/FileDescriptor.hpp"
#include "Foundation/FileManager.hpp"
#include "Foundation/FileWriting.hpp"
#include "Foundation/Json.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/AppGroup.hpp"

namespace importer {
namespace {

using foundation::FileDescriptor;
using foundation::JsonField;
using foundation::jsonField;

constexpr std::string_view kProgramName = "quorvel-import ";

/// The one key that tells whose a document is.
struct Mark {
  std::optional<std::string> generatedBy;

  static std::span<const JsonField> jsonFields() {
    static constexpr JsonField kFields[] = {jsonField<&Mark::generatedBy>("generatedBy")};
    return kFields;
  }
};

}  // namespace

std::string SnapshotFile::path() const {
  return foundation::appendingPathComponent(container_, quorvel::kSnapshotFileName);
}

Result<void> SnapshotFile::check(Foreign foreign) const {
  if (!foundation::isDirectory(container_)) {
    return refused(fmt::format(
        "{}: there is no such folder; `quorvel-import init` makes it, --container names another",
        container_));
  }
  if (foreign == Foreign::replace) return {};
  const auto document = foundation::readFile(path());
  if (!document && document.error() == foundation::FileError::missing) return {};
  if (document && isOurs(*document)) return {};
  return refused(fmt::format(
      "{}: the document was not written by quorvel-import; --force replaces it", path()));
}

Result<void> SnapshotFile::write(const quorvel::WidgetSnapshot& snapshot, Foreign foreign) const {
  if (auto checked = check(foreign); !checked) return checked;
  const FileDescriptor folder(::open(container_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  std::error_code error;
  if (!folder || ::flock(folder.get(), LOCK_EX) != 0) error = {errno, std::generic_category()};
  if (!error) error = foundation::replaceFile(path(), markedDocument(snapshot, generator_));
  if (!error) return {};
  return refused(fmt::format(
      "{}: cannot write: {}; --container names another folder", path(), error.message()));
}

std::string markedDocument(const quorvel::WidgetSnapshot& snapshot, std::string_view generator) {
  foundation::JsonWriter mark;
  mark.beginObject().member("generatedBy", generator);
  std::string document = mark.take();
  document += ',';
  document += std::string_view(quorvel::encodeWidgetSnapshot(snapshot)).substr(1);
  document += '\n';
  return document;
}

bool isOurs(std::string_view document) {
  const auto mark = foundation::decodeJson<Mark>(document);
  return mark && mark->generatedBy.value_or("").starts_with(kProgramName);
}

}  // namespace importer
