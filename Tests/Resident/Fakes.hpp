// A clock, an asker, a picture maker and a surface that tests drive by hand.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "Resident/Asker.hpp"
#include "Resident/PictureMaker.hpp"
#include "Resident/WallClock.hpp"
#include "Surfaces/Surface.hpp"
#include "ViewKit/ViewKit.hpp"

namespace resident {

inline constexpr foundation::Instant kMorning{1'741'944'600, 0};  // 2025-03-14T09:30:00Z

class ManualClock : public WallClock {
 public:
  [[nodiscard]] foundation::Instant now() const override { return time; }
  void wakeAt(std::optional<foundation::Instant> date) override { wake = date; }

  /// The time passes.
  void advanceTo(foundation::Instant later) {
    time = later;
    if (wake && *wake <= time) {
      wake.reset();
      onTime();
    }
  }
  /// Somebody sets it, to any time.
  void set(foundation::Instant other) {
    time = other;
    onSet();
  }

  foundation::Instant time = kMorning;
  std::optional<foundation::Instant> wake;
};

/// Keeps what it is asked; a test answers when it likes.
class FakeAsker : public Asker {
 public:
  struct Timeline {
    Urgency urgency;
    std::string key;
    widgetruntime::EntriesParameters parameters;
    Then<widgetruntime::EntriesAnswer> then;
  };

  void initialize(Then<widgetruntime::InitializeAnswer> then) override {
    initializing.push_back(std::move(then));
  }
  void timeline(Urgency urgency,
                std::string key,
                widgetruntime::EntriesParameters parameters,
                Then<widgetruntime::EntriesAnswer> then) override {
    timelines.push_back({urgency, std::move(key), std::move(parameters), std::move(then)});
  }
  void options(widgetruntime::OptionsParameters, Then<widgetruntime::OptionsAnswer>) override {}
  void perform(widgetruntime::PerformParameters parameters,
               Then<widgetruntime::PerformAnswer> then) override {
    performing.emplace_back(std::move(parameters), std::move(then));
  }

  std::vector<Then<widgetruntime::InitializeAnswer>> initializing;
  std::vector<Timeline> timelines;
  std::vector<std::pair<widgetruntime::PerformParameters, Then<widgetruntime::PerformAnswer>>>
      performing;
};

/// One entry now, with trees that say what they were asked for, and a reload after a day.
inline widgetruntime::EntriesAnswer answerTo(const widgetruntime::EntriesParameters& parameters,
                                             const std::string& text = "7391.42") {
  widgetruntime::RenderedEntry entry{.date = parameters.device.now, .hasSnapshot = true};
  for (const auto& environment : parameters.environments) {
    const bool redacted = environment.redactionReasons.privacy;
    entry.trees.push_back({.view = viewkit::Text{redacted ? "masked" : text},
                           .link = "quorvel-widget://" + parameters.kind});
  }
  return {
      .entries = {std::move(entry)},
      .policy = widgetruntime::ReloadPolicy::after({parameters.device.now.seconds + 86'400, 0})};
}

/// Keeps what it is asked to draw; a test hands back pictures when it likes.
class FakePictureMaker : public PictureMaker {
 public:
  struct Drawing {
    Urgency urgency;
    DrawRequest request;
    std::function<void(Drawn)> then;

    [[nodiscard]] bool isRedacted() const { return request.demand.options.redaction.privacy; }
    void finish() const {
      auto picture = std::make_shared<surfaces::Picture>();
      picture->isRedacted = isRedacted();
      then({.picture = std::move(picture)});
    }
    void finishUnchanged() const { then({}); }
  };
  using Recalled = std::function<void(std::shared_ptr<const surfaces::Picture>)>;

  void draw(Urgency urgency, DrawRequest request, std::function<void(Drawn)> then) override {
    drawings.push_back({urgency, std::move(request), std::move(then)});
  }
  void keep(DrawRequest redacted) override { kept.push_back(std::move(redacted)); }
  void recall(Slot slot, const surfaces::Demand&, Recalled then) override {
    recalls.emplace_back(slot.key(), std::move(then));
  }
  void forget(const std::string& id) override { forgotten.push_back(id); }

  std::vector<Drawing> drawings;
  std::vector<DrawRequest> kept;
  std::vector<std::pair<std::string, Recalled>> recalls;
  std::vector<std::string> forgotten;
};

/// Shows every placed widget as a bitmap and keeps what it was shown.
class FakeSurface : public surfaces::Surface {
 public:
  [[nodiscard]] std::string_view name() const override { return "fake"; }
  [[nodiscard]] std::optional<surfaces::Demand> place(const surfaces::Subject& subject) override {
    if (!subject.isPlaced) return std::nullopt;
    surfaces::Demand demand;
    demand.options.size = {170, 170};
    demand.options.mode = mode;
    return demand;
  }
  void show(const surfaces::Subject& subject, const surfaces::Shown& shown) override {
    history.emplace_back(subject.id, shown);
  }
  void remove(const std::string& id) override { removed.push_back(id); }

  [[nodiscard]] const surfaces::Shown& last() const { return history.back().second; }

  viewkit::RenderingMode mode = viewkit::RenderingMode::fullColor;
  std::vector<std::pair<std::string, surfaces::Shown>> history;
  std::vector<std::string> removed;
};

}  // namespace resident
