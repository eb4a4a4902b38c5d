#include "Resident/Presenter.hpp"

#include <algorithm>
#include <utility>

namespace resident {

using surfaces::Demand;
using surfaces::Medium;
using surfaces::Shown;
using surfaces::State;
using surfaces::Subject;
using surfaces::Surface;

namespace {

constexpr double kStaleOpacity = 0.62;

std::string keyOf(const Subject& subject, const Surface& surface) {
  return Slot{subject.id, std::string(surface.name())}.key();
}

/// All but the picture.
bool isSame(const Shown& a, const Shown& b) {
  return a.state == b.state && a.reason == b.reason && a.isHidden == b.isHidden &&
         a.summary == b.summary && a.link == b.link && a.asOf == b.asOf;
}

}  // namespace

void Presenter::add(Surface& surface) {
  surfaces_.push_back(&surface);
}

void Presenter::forgetDemands(Surface& surface) {
  std::erase_if(places_, [&](const auto& place) { return place.second.surface == &surface; });
}

Presenter::Place* Presenter::placeOn(Surface& surface, const Subject& subject) {
  const std::string key = keyOf(subject, surface);
  const auto found = places_.find(key);
  if (found != places_.end() && found->second.subject == subject) return &found->second;
  auto demand = surface.place(subject);
  if (!demand) {
    places_.erase(key);
    return nullptr;
  }
  Place& place = places_.insert_or_assign(key, Place{}).first->second;
  place.surface = &surface;
  place.subject = subject;
  place.demand = *std::move(demand);
  return &place;
}

void Presenter::present(const Subject& subject,
                        const InstanceTimeline& timeline,
                        const Moment& moment,
                        Urgency urgency) {
  for (Surface* surface : surfaces_) {
    if (Place* place = placeOn(*surface, subject)) presentOn(*place, timeline, moment, urgency);
  }
}

void Presenter::presentOn(Place& place,
                          const InstanceTimeline& timeline,
                          const Moment& moment,
                          Urgency urgency) {
  const bool redacted = moment.isHidden || timeline.isDoubtful(moment.version);
  place.mustHide = redacted;
  Shown shown{.state = timeline.state(), .reason = timeline.reason(), .isHidden = redacted};
  const auto mode = place.demand.options.mode;
  const auto* tree = timeline.treeAt(moment.now, mode, redacted);
  place.link = tree == nullptr ? "" : tree->link.value_or("");
  if (tree == nullptr) {
    if (!place.isRecalled && moment.isKept && place.demand.medium == Medium::bitmap) {
      recall(place);
    }
    return show(place, std::move(shown));
  }
  shown.summary = tree->summary;
  shown.link = place.link;
  shown.asOf = timeline.generatedAt(moment.now);
  DrawRequest request = requestFor(place, tree->view, redacted);
  request.isForced = place.lacksPicture;
  if (shown.state == State::stale) request.opacity = kStaleOpacity;
  const std::string key = request.slot.key();
  pictureMaker_.draw(
      urgency, std::move(request), [this, key, shown = std::move(shown)](const Drawn& drawn) {
        hand(key, shown, drawn);
      });
  if (!moment.isKept || place.demand.medium != Medium::bitmap) return;
  if (const auto* hidden = timeline.treeAt(moment.now, mode, /*redacted=*/true))
    keepLater(place, hidden->view);
}

void Presenter::recall(Place& place) {
  place.isRecalled = true;
  const Slot slot{place.subject.id, std::string(place.surface->name())};
  pictureMaker_.recall(
      slot, place.demand, [this, slot](std::shared_ptr<const surfaces::Picture> picture) {
        const auto found = places_.find(slot.key());
        // An answer that came meanwhile is newer.
        if (!picture || found == places_.end() || !found->second.lacksPicture) return;
        Shown shown = found->second.shown;
        if (shown.state == State::failed) shown.state = State::stale;
        shown.picture = std::move(picture);
        show(found->second, std::move(shown));
        if (onRecalled) onRecalled(slot.id);
      });
}

void Presenter::hand(const std::string& key, Shown shown, const Drawn& drawn) {
  const auto found = places_.find(key);
  if (found == places_.end()) return;
  Place& place = found->second;
  place.took = drawn.took;
  // Amounts were hidden while it was drawn; the redacted drawing is on its way.
  if (place.mustHide && !shown.isHidden) {
    place.lacksPicture = true;
    return;
  }
  if (drawn.picture) {
    place.lacksPicture = false;
    place.links.clear();
    for (const auto& element : drawn.picture->elements) place.links.push_back(element.link);
  }
  shown.picture = drawn.picture;
  show(place, std::move(shown));
}

void Presenter::show(Place& place, Shown shown) {
  if (!shown.picture && place.wasShown && isSame(place.shown, shown)) return;
  place.wasShown = true;
  place.surface->show(place.subject, shown);
  shown.picture.reset();
  place.shown = std::move(shown);
}

void Presenter::keepLater(Place& place, const viewkit::View& redacted) {
  if (place.toKeep ? *place.toKeep == redacted : place.kept && *place.kept == redacted) return;
  place.toKeep = redacted;
  keeping_ = loop_.after(keepAfter_, [this] { keepAll(); });
}

void Presenter::keepAll() {
  keeping_.reset();
  for (auto& [key, place] : places_) {
    if (!place.toKeep) continue;
    pictureMaker_.keep(requestFor(place, *place.toKeep, /*redacted=*/true));
    place.kept = std::exchange(place.toKeep, std::nullopt);
  }
}

void Presenter::remove(const std::string& id) {
  for (Surface* surface : surfaces_) {
    const auto found = places_.find(Slot{id, std::string(surface->name())}.key());
    if (found == places_.end()) continue;
    places_.erase(found);
    surface->remove(id);
  }
  pictureMaker_.forget(id);
}

Modes Presenter::modesFor(const std::vector<Subject>& subjects) {
  Modes modes;
  for (Surface* surface : surfaces_) {
    for (const Subject& subject : subjects) {
      const Place* place = placeOn(*surface, subject);
      if (place == nullptr) continue;
      const auto mode = place->demand.options.mode;
      if (std::ranges::find(modes, mode) == modes.end()) modes.push_back(mode);
    }
  }
  return modes;
}

std::string Presenter::linkOf(const std::string& id, std::optional<std::size_t> region) const {
  std::string own;
  for (const auto& [key, place] : places_) {
    if (place.subject.id != id) continue;
    if (region && *region < place.links.size() && !place.links[*region].empty()) {
      return place.links[*region];
    }
    if (own.empty()) own = place.link;
  }
  return own;
}

std::chrono::microseconds Presenter::drawingTime(const std::string& id) const {
  std::chrono::microseconds longest{};
  for (const auto& [key, place] : places_) {
    if (place.subject.id == id) longest = std::max(longest, place.took);
  }
  return longest;
}

DrawRequest Presenter::requestFor(const Place& place,
                                  const viewkit::View& view,
                                  bool redacted) const {
  DrawRequest request{.slot = {place.subject.id, std::string(place.surface->name())},
                      .view = view,
                      .demand = place.demand};
  request.demand.options.redaction.privacy = redacted;
  request.demand.options.direction = scene_.direction;
  request.demand.options.container = scene_.container;
  return request;
}

}  // namespace resident
