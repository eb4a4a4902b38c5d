#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotStore.hpp"

#include <fmt/format.h>

#include <mutex>
#include <new>
#include <stdexcept>
#include <utility>

#include "Foundation/Bundle.hpp"
#include "Foundation/Characters.hpp"
#include "Foundation/FileManager.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotSample.hpp"

namespace quorvel {

struct SnapshotStore::State {
  const foundation::Bundle bundle;
  const foundation::FileManager fileManager;
  const std::optional<std::string> snapshotFile;

  std::once_flag groupOnce;
  std::unique_ptr<const AppGroup> group;
  std::once_flag sampleOnce;
  WidgetSnapshot sample;

  const AppGroup& resolvedGroup() {
    std::call_once(groupOnce, [this] { group = std::make_unique<const AppGroup>(bundle); });
    return *group;
  }
};

SnapshotStore::SnapshotStore(foundation::Bundle bundle,
                             foundation::FileManager fileManager,
                             std::optional<std::string> snapshotFile)
    : state_(new State{
          std::move(bundle), std::move(fileManager), std::move(snapshotFile), {}, {}, {}, {}}) {}

const std::string& SnapshotStore::appGroup() const {
  return state_->resolvedGroup().identifier;
}

const std::string& SnapshotStore::urlScheme() const {
  return state_->resolvedGroup().urlScheme;
}

std::optional<std::string> SnapshotStore::container() const {
  return state_->fileManager.containerURLForSecurityApplicationGroupIdentifier(appGroup());
}

std::optional<std::string> SnapshotStore::documentPath() const {
  return state_->snapshotFile ? state_->snapshotFile : pathInContainer(kSnapshotFileName);
}

std::optional<WidgetSnapshot> SnapshotStore::load() const {
  const auto path = documentPath();
  if (!path) return std::nullopt;
  // A document within the limit of its size may still hold more than the process may keep.
  try {
    const auto bytes = foundation::contentsOfFile(*path);
    if (!bytes) return std::nullopt;
    auto snapshot = decodeWidgetSnapshot(*bytes);
    if (!snapshot) return std::nullopt;
    return std::move(*snapshot);
  } catch (const std::bad_alloc&) {
    return std::nullopt;
  } catch (const std::length_error&) {
    return std::nullopt;
  }
}

const WidgetSnapshot& SnapshotStore::sample(const foundation::Device& device) const {
  std::call_once(state_->sampleOnce, [&] { state_->sample = sampleSnapshot(device); });
  return state_->sample;
}

std::optional<std::string> SnapshotStore::cardImageURL(std::string_view cardId) const {
  return pathInContainer(cardImagePath(cardId));
}

std::optional<std::string> SnapshotStore::brandImageURL(std::string_view brandId) const {
  return pathInContainer(brandImagePath(brandId));
}

std::optional<std::string> SnapshotStore::pathInContainer(std::string_view path) const {
  const auto folder = container();
  if (!folder) return std::nullopt;
  return foundation::appendingPathComponent(*folder, path);
}

std::string cardImagePath(std::string_view cardId) {
  return fmt::format("widget-cards/{}.jpg", imageFileName(cardId));
}

std::string brandImagePath(std::string_view brandId) {
  return fmt::format("widget-brands/{}.png", imageFileName(brandId));
}

std::string imageFileName(std::string_view identifier) {
  std::string name;
  for (const std::string_view character : foundation::graphemeClusters(identifier)) {
    const bool kept =
        foundation::isLetter(character) || foundation::isNumber(character) || character == "-";
    name += kept ? character : "_";
  }
  return name;
}

}  // namespace quorvel
