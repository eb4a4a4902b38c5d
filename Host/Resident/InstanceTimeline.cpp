#include "Resident/InstanceTimeline.hpp"

#include <algorithm>
#include <utility>

namespace resident {

using foundation::Instant;
using widgetruntime::EntriesAnswer;
using widgetruntime::ReloadPolicy;
using widgetruntime::RenderedEntry;

void InstanceTimeline::answered(EntriesAnswer answer, Modes modes, DocumentVersion version) {
  std::ranges::stable_sort(answer.entries, {}, &RenderedEntry::date);
  answer_ = std::move(answer);
  modes_ = std::move(modes);
  version_ = version;
  reason_.clear();
  failingSince_.reset();
}

void InstanceTimeline::failed(std::string reason, Instant now) {
  reason_ = std::move(reason);
  if (!failingSince_) failingSince_ = now;
}

const RenderedEntry* InstanceTimeline::entryAt(Instant now) const {
  if (!answer_ || answer_->entries.empty()) return nullptr;
  const auto& entries = answer_->entries;
  const auto after = std::ranges::upper_bound(entries, now, {}, &RenderedEntry::date);
  return after == entries.begin() ? &entries.front() : &*std::prev(after);
}

const widgetruntime::RenderedTree* InstanceTimeline::treeAt(Instant now,
                                                            viewkit::RenderingMode mode,
                                                            bool redacted) const {
  const RenderedEntry* entry = entryAt(now);
  const auto found = std::ranges::find(modes_, mode);
  if (entry == nullptr || found == modes_.end()) return nullptr;
  const auto index = static_cast<std::size_t>(found - modes_.begin()) * 2 + (redacted ? 1 : 0);
  return index < entry->trees.size() ? &entry->trees[index] : nullptr;
}

surfaces::State InstanceTimeline::state() const {
  const bool hasSomething = answer_.has_value() || hasOldPicture_;
  if (failingSince_) return hasSomething ? surfaces::State::stale : surfaces::State::failed;
  return answer_ ? surfaces::State::live : surfaces::State::placeholder;
}

std::optional<Instant> InstanceTimeline::generatedAt(Instant now) const {
  const RenderedEntry* entry = entryAt(now);
  return entry != nullptr ? entry->generatedAt : std::nullopt;
}

bool InstanceTimeline::isDoubtful(DocumentVersion current) const {
  return failingSince_.has_value() && version_ != current;
}

Plan InstanceTimeline::planOf(const EntriesAnswer& answer, Instant asked) {
  Plan plan;
  for (const RenderedEntry& entry : answer.entries) {
    if (entry.date > asked) plan.swaps.push_back(entry.date);
  }
  std::ranges::sort(plan.swaps);
  const ReloadPolicy policy = answer.policy.value_or(ReloadPolicy{});
  if (policy.type == ReloadPolicy::Type::after) plan.reload = policy.date;
  if (policy.type == ReloadPolicy::Type::atEnd) {
    plan.reload = plan.swaps.empty() ? asked : plan.swaps.back();
  }
  return plan;
}

}  // namespace resident
