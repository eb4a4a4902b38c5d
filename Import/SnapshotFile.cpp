#include "Import/SnapshotFile.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>
#include <span>

#include "Foundation/FileDescriptor.hpp"
#include "Foundation/FileManager.hpp"
#include "Foundation/Json.hpp"

namespace importer {
namespace {

using foundation::FileDescriptor;
using foundation::JsonField;
using foundation::jsonField;

constexpr std::string_view kDocumentName = "widget-snapshot.json";
constexpr std::string_view kTemporaryName = ".widget-snapshot.json.new";
constexpr std::string_view kProgramName = "quorvel-import ";
constexpr mode_t kFileMode = 0600;

/// The one key that tells whose a document is.
struct Mark {
  std::optional<std::string> generatedBy;

  static std::span<const JsonField> jsonFields() {
    static constexpr JsonField kFields[] = {jsonField<&Mark::generatedBy>("generatedBy")};
    return kFields;
  }
};

/// 0 or the error number.
int writeAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return errno;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return 0;
}

/// 0 or the error number. The lock on the folder gives the temporary name one user at a time.
int replace(int folder,
            const std::string& temporary,
            const std::string& path,
            std::string_view bytes) {
  ::unlink(temporary.c_str());
  FileDescriptor file(
      ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, kFileMode));
  if (!file) return errno;
  int error = writeAll(file.get(), bytes);
  if (error == 0 && ::fsync(file.get()) != 0) error = errno;
  file.reset();
  if (error == 0 && std::rename(temporary.c_str(), path.c_str()) != 0) error = errno;
  if (error != 0) ::unlink(temporary.c_str());
  if (error == 0) ::fsync(folder);  // the new name itself; the bytes are safe already
  return error;
}

}  // namespace

std::string SnapshotFile::path() const {
  return foundation::appendingPathComponent(container_, kDocumentName);
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
  int error = folder ? 0 : errno;
  if (error == 0 && ::flock(folder.get(), LOCK_EX) != 0) error = errno;
  if (error == 0) {
    error = replace(folder.get(),
                    foundation::appendingPathComponent(container_, kTemporaryName),
                    path(),
                    markedDocument(snapshot, generator_));
  }
  if (error == 0) return {};
  return refused(fmt::format(
      "{}: cannot write: {}; --container names another folder", path(), std::strerror(error)));
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
  return mark && mark->generatedBy && mark->generatedBy->starts_with(kProgramName);
}

}  // namespace importer
