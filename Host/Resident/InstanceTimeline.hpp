// What one instance has been answered, what of it is shown now, and how far it is to be trusted.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Resident/Scheduler.hpp"
#include "Surfaces/Surface.hpp"
#include "WidgetRuntime/Messages.hpp"

namespace resident {

/// Counts the changes of the container.
using DocumentVersion = std::uint64_t;

/// The rendering modes that surfaces want, without repetition.
using Modes = std::vector<viewkit::RenderingMode>;

class InstanceTimeline {
 public:
  /// An answer to what was asked while the container was at `version`: for each mode an open and a
  /// redacted tree.
  void answered(widgetruntime::EntriesAnswer answer, Modes modes, DocumentVersion version);
  /// Why the latest request gave nothing; `since` is that of the first failure in a row.
  void failed(std::string reason, foundation::Instant now);
  /// A redacted picture from an earlier run is there to be shown.
  void setHasOldPicture() { hasOldPicture_ = true; }

  /// The entry in force; null without an answer.
  [[nodiscard]] const widgetruntime::RenderedEntry* entryAt(foundation::Instant now) const;
  /// Its tree; null when there is none for the mode yet.
  [[nodiscard]] const widgetruntime::RenderedTree* treeAt(foundation::Instant now,
                                                          viewkit::RenderingMode mode,
                                                          bool redacted) const;
  [[nodiscard]] surfaces::State state() const;
  /// Of the document behind the entry in force.
  [[nodiscard]] std::optional<foundation::Instant> generatedAt(foundation::Instant now) const;
  /// Nobody can say whether the answer still agrees with the document: no amount is to be shown.
  [[nodiscard]] bool isDoubtful(DocumentVersion current) const;

  [[nodiscard]] const std::string& reason() const { return reason_; }
  [[nodiscard]] std::optional<foundation::Instant> failingSince() const { return failingSince_; }

  /// When the answer changes by itself; `asked` is when it was asked for.
  [[nodiscard]] static Plan planOf(const widgetruntime::EntriesAnswer& answer,
                                   foundation::Instant asked);

 private:
  std::optional<widgetruntime::EntriesAnswer> answer_;
  Modes modes_;
  DocumentVersion version_ = 0;
  std::string reason_;
  std::optional<foundation::Instant> failingSince_;
  bool hasOldPicture_ = false;
};

}  // namespace resident
