// The document in the container: replaced whole, and never when somebody else wrote it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "Import/Result.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"

namespace importer {

/// Whether a document of somebody else's may be replaced.
enum class Foreign : std::uint8_t { keep, replace };

class SnapshotFile {
 public:
  /// `generator` is what marks the importer's own documents: "quorvel-import 1.0.0".
  SnapshotFile(std::string container, std::string generator)
      : container_(std::move(container)), generator_(std::move(generator)) {}

  [[nodiscard]] std::string path() const;

  /// Refused for a container that is missing, and for a document that is not the importer's.
  [[nodiscard]] Result<void> check(Foreign foreign) const;

  /// Checks, then writes a new file beside the document, makes it durable and gives it the
  /// document's name: readers see the old document or the new one.
  [[nodiscard]] Result<void> write(const quorvel::WidgetSnapshot& snapshot, Foreign foreign) const;

 private:
  std::string container_;
  std::string generator_;
};

/// The document with its mark as the first key.
[[nodiscard]] std::string markedDocument(const quorvel::WidgetSnapshot& snapshot,
                                         std::string_view generator);
/// Whether a document carries a mark of this program, of any version.
[[nodiscard]] bool isOurs(std::string_view document);

}  // namespace importer
