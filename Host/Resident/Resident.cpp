#include "Resident/Resident.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "Control/KindName.hpp"
#include "Session/HostEnvironment.hpp"

namespace resident {

using surfaces::Subject;
using widgetruntime::InitializeAnswer;
using widgetruntime::WidgetListing;

namespace {

Subject subjectOf(const Placement& placement) {
  return {.id = placement.id,
          .kind = placement.kind,
          .family = placement.family,
          .configuration = placement.configuration};
}

}  // namespace

Resident::Resident(Parts parts, std::optional<Placements> placements)
    : parts_(std::move(parts)),
      isFirstStart_(!placements),
      placements_(std::move(placements).value_or(Placements{})),
      privacy_(placements_.hidden),
      reloader_(parts_.loop, parts_.clock, parts_.asker, parts_.device),
      presenter_(parts_.loop, parts_.pictureMaker) {
  reloader_.onChange = [this](const std::string& id, Urgency urgency) {
    logFailure(id);
    present(id, urgency);
  };
  presenter_.onRecalled = [this](const std::string& id) {
    if (auto* instance = reloader_.find(id)) instance->timeline.setHasOldPicture();
  };
}

void Resident::addSurface(surfaces::Surface& surface) {
  presenter_.add(surface);
  if (offer_) {
    updateModes();
    presentAll(Urgency::reload);
  }
}

void Resident::start() {
  presenter_.setScene({.direction = session::layoutDirection(parts_.device(parts_.clock.now()))});
  askForOffer();
  // Pictures of the last run are shown while the extension starts.
  for (const Placement& placement : placements_.placements) {
    const InstanceTimeline nothing;
    presenter_.present(resident::subjectOf(placement),
                       nothing,
                       {.now = parts_.clock.now(), .isHidden = true},
                       Urgency::person);
  }
}

void Resident::askForOffer() {
  if (isOfferAsked_) {
    isOfferWanted_ = true;
    return;
  }
  isOfferAsked_ = true;
  offerRetry_.reset();
  parts_.asker.initialize(
      [this](Asked<InitializeAnswer> offer) { receiveOffer(std::move(offer)); });
}

void Resident::receiveOffer(Asked<InitializeAnswer> offer) {
  isOfferAsked_ = false;
  if (!offer) {
    if (problem_ != offer.error().reason) {
      problem_ = offer.error().reason;
      parts_.log("the extension does not start: " + problem_);
      if (onPlacements) onPlacements();
    }
    using namespace std::chrono_literals;
    const bool isWanted = std::exchange(isOfferWanted_, false);
    const Pause pause = isWanted ? Pause{} : offer.error().retryIn.value_or(30s);
    offerRetry_ = parts_.loop.after(std::max<Pause>(pause, 10ms), [this] { askForOffer(); });
    return;
  }
  problem_.clear();
  offer_ = *std::move(offer);
  presenter_.setScene({.container = offer_->container,
                       .direction = session::layoutDirection(parts_.device(parts_.clock.now()))});
  if (onOffer) onOffer(*offer_);
  if (isFirstStart_) placeOneOfEach();
  updateModes();
  for (const Placement& placement : placements_.placements) {
    reloader_.add(resident::subjectOf(placement), Cause::start);
  }
  for (const auto& [id, subject] : passing_) reloader_.add(subject, Cause::start);
  if (onPlacements) onPlacements();
}

void Resident::placeOneOfEach() {
  isFirstStart_ = false;
  if (!offer_) return;
  for (const WidgetListing& widget : offer_->bundle.widgets) {
    placements_.add(
        widget.description.kind, session::defaultFamily(widget.description.families), {});
  }
  save();
}

void Resident::present(const std::string& id, Urgency urgency) {
  const auto* instance = reloader_.find(id);
  if (instance == nullptr) return;
  presenter_.present(instance->subject,
                     instance->timeline,
                     {.now = parts_.clock.now(),
                      .version = reloader_.documentVersion(),
                      .isHidden = privacy_.isHidden(),
                      .isKept = instance->subject.isPlaced},
                     urgency);
}

void Resident::logFailure(const std::string& id) {
  const std::string& reason = reloader_.find(id)->timeline.reason();
  if (reason == loggedReason_) return;
  loggedReason_ = reason;
  if (!reason.empty()) parts_.log(reason);
}

void Resident::presentAll(Urgency urgency) {
  for (const Placement& placement : placements_.placements) present(placement.id, urgency);
  for (const auto& [id, subject] : passing_) present(id, urgency);
}

void Resident::updateModes() {
  std::vector<Subject> subjects;
  subjects.reserve(placements_.placements.size() + passing_.size());
  for (const Placement& placement : placements_.placements) {
    subjects.push_back(resident::subjectOf(placement));
  }
  for (const auto& [id, subject] : passing_) subjects.push_back(subject);
  reloader_.setModes(presenter_.modesFor(subjects));
}

void Resident::withPrivacy(const std::function<void(Privacy&)>& change) {
  const bool wasHidden = privacy_.isHidden();
  change(privacy_);
  if (privacy_.isHidden() != wasHidden) presentAll(Urgency::person);
  if (onPrivacy) onPrivacy();
}

void Resident::save() {
  // After what the person waits for: a disk may be slow.
  saving_ = parts_.loop.soon([this] { finish(); });
}

void Resident::finish() {
  if (!saving_) return;
  saving_.reset();
  if (const auto problem = parts_.file.save(placements_)) parts_.log(*problem);
}

void Resident::changed(surfaces::Surface& surface) {
  presenter_.forgetDemands(surface);
  updateModes();
  presentAll(Urgency::reload);
}

void Resident::open(const std::string& id,
                    std::optional<std::size_t> region,
                    std::function<void(const std::string&)> then) {
  const std::string link = presenter_.linkOf(id, region);
  if (link.empty()) return then("nothing to open here");
  openLink(link, std::move(then));
}

const WidgetListing* Resident::listingOf(const std::string& kind) const {
  if (!offer_) return nullptr;
  for (const WidgetListing& widget : offer_->bundle.widgets) {
    if (control::namesKind(kind, widget.description.kind)) return &widget;
  }
  return nullptr;
}

}  // namespace resident
