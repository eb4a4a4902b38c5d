// What a person asks of the resident host.
#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "Control/KindName.hpp"
#include "Resident/Resident.hpp"
#include "Session/HostEnvironment.hpp"

namespace resident {

using surfaces::Subject;
using widgetruntime::IntentParameter;
using widgetruntime::IntentValues;
using widgetruntime::WidgetFamily;
using widgetruntime::WidgetListing;

namespace {

std::string noWidget(std::string_view target, const widgetruntime::InitializeAnswer* offer) {
  std::string kinds;
  if (offer != nullptr) {
    for (const WidgetListing& widget : offer->bundle.widgets) {
      kinds += (kinds.empty() ? "" : ", ") + control::shortKind(widget.description.kind);
    }
  }
  return fmt::format("there is no widget \"{}\" (kinds: {})", target, kinds);
}

std::string noPlacement(std::string_view id) {
  return fmt::format("nothing is placed as \"{}\" (see `quorvel-host status`)", id);
}

/// What is wrong with one choice; empty: nothing. Entities are the extension's business.
std::string problemOf(const WidgetListing& widget,
                      const std::string& name,
                      const std::string& value) {
  const std::string kind = control::shortKind(widget.description.kind);
  const auto fail = [&] { return fmt::format("{} has no parameter \"{}\"", kind, name); };
  if (!widget.configuration) return fail();
  const auto& parameters = widget.configuration->parameters;
  const auto found = std::ranges::find(parameters, name, &IntentParameter::name);
  if (found == parameters.end()) return fail();
  if (found->type != IntentParameter::Type::enumeration) return {};
  const auto& cases = found->cases;
  if (std::ranges::find(cases, value, &widgetruntime::IntentOption::id) != cases.end()) return {};
  return fmt::format("\"{}\" is no {} of {}", value, name, kind);
}

}  // namespace

std::expected<std::size_t, std::string> Resident::reload(const std::string& target) {
  if (!offer_) {
    askForOffer();
    return std::size_t{0};
  }
  if (target.empty()) {
    reloader_.reloadAll(Cause::person);
    return placements_.placements.size();
  }
  std::size_t count = 0;
  for (const Placement& placement : placements_.placements) {
    if (placement.id != target && !control::namesKind(target, placement.kind)) continue;
    reloader_.reload(placement.id, Cause::person);
    ++count;
  }
  if (count == 0) return std::unexpected(noPlacement(target));
  return count;
}

void Resident::hide(Hide hide) {
  const bool hidden = hide == Hide::on || (hide == Hide::toggle && !privacy_.isAsked());
  withPrivacy([&](Privacy& privacy) { privacy.ask(hidden); });
  if (placements_.hidden == hidden) return;
  placements_.hidden = hidden;
  save();
}

Done Resident::check(const std::string& kind,
                     WidgetFamily family,
                     const IntentValues& configuration) const {
  const WidgetListing* widget = listingOf(kind);
  if (widget == nullptr) return std::unexpected(noWidget(kind, offer()));
  const auto& families = widget->description.families;
  if (std::ranges::find(families, family) == families.end()) {
    return std::unexpected(fmt::format("{} has no {}",
                                       control::shortKind(widget->description.kind),
                                       widgetruntime::nameOf(family)));
  }
  for (const auto& [name, value] : configuration) {
    if (std::string problem = problemOf(*widget, name, value); !problem.empty()) {
      return std::unexpected(std::move(problem));
    }
  }
  return {};
}

std::expected<std::string, std::string> Resident::add(const std::string& kind,
                                                      std::optional<WidgetFamily> family,
                                                      IntentValues configuration) {
  const WidgetListing* widget = listingOf(kind);
  if (widget == nullptr) {
    return std::unexpected(offer_ ? noWidget(kind, offer()) : "the extension has not started yet");
  }
  const WidgetFamily chosen = family.value_or(session::defaultFamily(widget->description.families));
  if (auto fits = check(kind, chosen, configuration); !fits) return std::unexpected(fits.error());
  const Placement* placement =
      placements_.add(widget->description.kind, chosen, std::move(configuration));
  if (placement == nullptr) {
    return std::unexpected(fmt::format("there are {} widgets already", Placements::kMaximum));
  }
  std::string id = placement->id;
  save();
  updateModes();
  reloader_.add({id, placement->kind, placement->family, placement->configuration}, Cause::person);
  if (onPlacements) onPlacements();
  return id;
}

Done Resident::remove(const std::string& id) {
  if (!placements_.remove(id)) return std::unexpected(noPlacement(id));
  save();
  reloader_.remove(id);
  presenter_.remove(id);
  if (onPlacements) onPlacements();
  return {};
}

Done Resident::configure(const std::string& id,
                         std::optional<WidgetFamily> family,
                         std::optional<IntentValues> configuration) {
  Placement* placement = placements_.find(id);
  if (placement == nullptr) return std::unexpected(noPlacement(id));
  const WidgetFamily newFamily = family.value_or(placement->family);
  IntentValues values = std::move(configuration).value_or(placement->configuration);
  if (auto fits = check(placement->kind, newFamily, values); !fits) return fits;
  placement->family = newFamily;
  placement->configuration = std::move(values);
  save();
  updateModes();
  reloader_.add({id, placement->kind, placement->family, placement->configuration},
                Cause::configuration);
  if (onPlacements) onPlacements();
  return {};
}

Done Resident::moveOnDesktop(const std::string& id, DesktopPlace place) {
  Placement* placement = placements_.find(id);
  if (placement == nullptr) return std::unexpected(noPlacement(id));
  placement->desktop = std::move(place);
  save();
  if (onPlacements) onPlacements();
  return {};
}

Done Resident::moveOnBoard(const std::string& id, BoardPlace place) {
  Placement* placement = placements_.find(id);
  if (placement == nullptr) return std::unexpected(noPlacement(id));
  placement->board = place;
  save();
  if (onPlacements) onPlacements();
  return {};
}

std::expected<Subject, std::string> Resident::subjectOf(const std::string& target,
                                                        std::optional<WidgetFamily> wished) const {
  const Placement* placement = placements_.find(target);
  const WidgetListing* widget = listingOf(placement != nullptr ? placement->kind : target);
  if (widget == nullptr) {
    return std::unexpected(offer_ ? noWidget(target, offer())
                                  : "the extension has not started yet");
  }
  const std::string& kind = widget->description.kind;
  if (placement == nullptr) {
    const auto first = std::ranges::find(placements_.placements, kind, &Placement::kind);
    if (first != placements_.placements.end()) placement = &*first;
  }
  const auto& families = widget->description.families;
  Subject subject{.kind = kind, .family = session::defaultFamily(families)};
  if (placement != nullptr) {
    subject = {placement->id, kind, placement->family, placement->configuration};
  }
  if (wished && std::ranges::find(families, *wished) != families.end()) subject.family = *wished;
  return subject;
}

void Resident::introduce(const Subject& passing) {
  passing_.insert_or_assign(passing.id, passing);
  if (!offer_) return;
  updateModes();
  reloader_.add(passing, Cause::start);
}

void Resident::dismiss(const std::string& id) {
  if (passing_.erase(id) == 0) return;
  reloader_.remove(id);
  presenter_.remove(id);
}

std::expected<std::string, std::string> Resident::linkOf(const std::string& target,
                                                         std::optional<std::size_t> region) const {
  const auto subject = subjectOf(target);
  if (!subject) return std::unexpected(subject.error());
  std::string link = presenter_.linkOf(subject->id, region);
  if (link.empty()) return std::unexpected(fmt::format("{} shows no link", target));
  return link;
}

}  // namespace resident
