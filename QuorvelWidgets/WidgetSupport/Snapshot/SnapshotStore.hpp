// The extension's only access to the application's data: settings, the document and the images
// beside it. Never writes.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "Foundation/Device.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/AppGroup.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"

namespace foundation {
class Bundle;
class FileManager;
}  // namespace foundation

namespace quorvel {

/// A handle: copies share the settings and the sample, which are made once, on first use, and kept.
/// Any thread may call any operation; loading reads the file anew each time.
class SnapshotStore {
 public:
  /// With a `snapshotFile`, that path is read in place of the container's document.
  SnapshotStore(foundation::Bundle bundle,
                foundation::FileManager fileManager,
                std::optional<std::string> snapshotFile = std::nullopt);

  [[nodiscard]] const std::string& appGroup() const;
  [[nodiscard]] const std::string& urlScheme() const;

  /// The group's folder; nothing when there is none.
  [[nodiscard]] std::optional<std::string> container() const;

  /// Where the document is read, whether it exists or not; nothing without a container.
  [[nodiscard]] std::optional<std::string> documentPath() const;

  /// Nothing without a container, a readable document or a valid one that memory can hold.
  [[nodiscard]] std::optional<WidgetSnapshot> load() const;

  /// The sample of the first request's day and languages.
  [[nodiscard]] const WidgetSnapshot& sample(const foundation::Device& device) const;

  /// Nothing without a container; the file itself may be missing.
  [[nodiscard]] std::optional<std::string> cardImageURL(std::string_view cardId) const;
  [[nodiscard]] std::optional<std::string> brandImageURL(std::string_view brandId) const;

 private:
  [[nodiscard]] std::optional<std::string> pathInContainer(std::string_view path) const;

  struct State;
  std::shared_ptr<State> state_;
};

/// The same locations below the container, as view trees name images: "widget-cards/card-7.jpg".
[[nodiscard]] std::string cardImagePath(std::string_view cardId);
[[nodiscard]] std::string brandImagePath(std::string_view brandId);

/// An identifier as a file name: letters, numbers and "-" are kept, every other character becomes
/// "_".
[[nodiscard]] std::string imageFileName(std::string_view identifier);

}  // namespace quorvel
