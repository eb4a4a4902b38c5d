// Pictures for the board: of the trees that timelines hold where those will do, else of trees asked
// for.
#include <algorithm>
#include <utility>

#include "Rendering/Images/PngEncoder.hpp"
#include "Rendering/Renderer.hpp"
#include "Resident/Board.hpp"
#include "Session/HostEnvironment.hpp"
#include "Surfaces/WidgetSize.hpp"

namespace resident {

using surfaces::BoardPicture;
using surfaces::BoardView;
using surfaces::Medium;
using surfaces::State;
using surfaces::Subject;
using viewkit::RenderingMode;
using widgetruntime::EntriesAnswer;

namespace {

constexpr double kDownloadScale = 2;  ///< pixels per point

/// What the trees of a timeline are asked for.
bool isUsual(const BoardView& view) {
  return view.mode == RenderingMode::fullColor && view.showsBackground && !view.now;
}

}  // namespace

void Board::draw(const std::string& id, const BoardView& view, Then<BoardPicture> then) {
  sit(id, view, Medium::svg, std::move(then));
}

void Board::png(const std::string& id, const BoardView& view, Then<std::string> then) {
  sit(id, view, Medium::bitmap, [then = std::move(then)](Answer<BoardPicture> picture) {
    if (!picture) return then(std::unexpected(picture.error()));
    const auto& drawn = picture->shown.picture;
    if (!drawn) return then(std::unexpected("There is no picture of it yet."));
    then(rendering::encodePng(drawn->bitmap));
  });
}

void Board::sit(const std::string& id,
                const BoardView& view,
                Medium medium,
                Then<BoardPicture> then) {
  Reloader& reloader = parts_.host.reloader();
  const auto* instance = reloader.find(id);
  const Placement* placement = parts_.host.placements().find(id);
  if (!placement) return then(std::unexpected("There is no such widget any more."));
  const InstanceTimeline nothing;
  const InstanceTimeline& timeline = instance ? instance->timeline : nothing;
  const foundation::Instant now = reloader.now();
  Sitting sitting{.subject = {.id = id,
                              .kind = placement->kind,
                              .family = placement->family,
                              .configuration = placement->configuration},
                  .view = view,
                  .medium = medium,
                  .then = std::move(then)};
  const bool mustHide =
      parts_.host.privacy().isHidden() || timeline.isDoubtful(reloader.documentVersion());
  sitting.isRedacted = mustHide || view.hidesAmounts;
  BoardPicture& picture = sitting.picture;
  picture.version = surface_.versionOf(id);
  picture.shown.state = timeline.state();
  picture.shown.reason = timeline.reason();
  picture.shown.asOf = timeline.generatedAt(now);
  picture.since = timeline.failingSince();
  picture.nextTry = picture.since ? reloader.nextRetry() : std::nullopt;
  if (!instance && !parts_.host.problem().empty()) {
    picture.shown.state = State::failed;
    picture.shown.reason = parts_.host.problem();
  }
  const auto* tree = timeline.treeAt(now, RenderingMode::fullColor, sitting.isRedacted || mustHide);
  if (!tree || isUsual(view)) {
    if (tree) return paint(std::move(sitting), *tree);
    picture.size = surfaces::standardSize(sitting.subject.family);
    return sitting.then(std::move(picture));
  }
  ask(std::move(sitting), /*isPreview=*/false);
}

void Board::preview(const Subject& subject, const BoardView& view, Then<BoardPicture> then) {
  Sitting sitting{.subject = subject, .view = view, .then = std::move(then)};
  sitting.subject.isPlaced = false;
  sitting.isRedacted = parts_.host.privacy().isHidden() || view.hidesAmounts;
  ask(std::move(sitting), /*isPreview=*/true);
}

void Board::ask(Sitting sitting, bool isPreview) {
  const foundation::Instant now = sitting.view.now.value_or(parts_.host.reloader().now());
  widgetruntime::EntriesParameters parameters{.kind = sitting.subject.kind,
                                              .family = sitting.subject.family,
                                              .isPreview = isPreview,
                                              .configuration = sitting.subject.configuration,
                                              .device = parts_.device(now)};
  auto environment = session::hostEnvironment(sitting.subject.family,
                                              sitting.view.mode,
                                              {.privacy = sitting.isRedacted},
                                              parameters.device);
  environment.showsWidgetContainerBackground = sitting.view.showsBackground;
  parameters.environments.push_back(std::move(environment));
  auto then = [this, sitting = std::move(sitting)](Asked<EntriesAnswer> answer) mutable {
    if (!answer || answer->entries.empty() || answer->entries.front().trees.empty()) {
      sitting.picture.shown.state = State::failed;
      sitting.picture.shown.reason =
          answer ? "The extension answered nothing." : answer.error().reason;
      return sitting.then(std::move(sitting.picture));
    }
    if (sitting.picture.shown.state == State::placeholder)
      sitting.picture.shown.state = State::live;
    // Hidden while it was on its way: what was asked for openly is not shown any more.
    if (!sitting.isRedacted && parts_.host.privacy().isHidden())
      return sitting.then(std::unexpected("Amounts were hidden meanwhile."));
    const auto tree = std::move(answer->entries.front().trees.front());
    paint(std::move(sitting), tree);
  };
  // Without a key: every question is answered.
  parts_.asker.timeline(Urgency::preview, {}, std::move(parameters), std::move(then));
}

void Board::paint(Sitting sitting, const widgetruntime::RenderedTree& tree) {
  const BoardView& view = sitting.view;
  const auto family = sitting.subject.family;
  sitting.picture.size = surfaces::presetSize(family, view.preset);
  sitting.picture.shown.isHidden = sitting.isRedacted;
  sitting.picture.shown.link = tree.link.value_or("");
  DrawRequest request{.slot = {sitting.subject.id, "board"}, .view = tree.view, .isPassing = true};
  request.demand.medium = sitting.medium;
  auto& options = request.demand.options;
  options.size = sitting.picture.size;
  options.scale = kDownloadScale;
  options.appearance = view.appearance;
  options.mode = view.mode;
  options.tint = view.tint;
  options.showsBackground = view.showsBackground;
  options.redaction = {.privacy = sitting.isRedacted, .placeholder = view.hidesEverything};
  const foundation::Device device = parts_.device(parts_.host.reloader().now());
  options.direction = session::layoutDirection(device);
  if (const auto* offer = parts_.host.offer()) {
    options.container = offer->container;
    for (const auto& listing : offer->bundle.widgets)
      if (listing.description.kind == sitting.subject.kind)
        sitting.picture.name = listing.description.displayName;
  }
  parts_.pictureMaker.draw(
      Urgency::person,
      std::move(request),
      [this, sitting = std::move(sitting)](const Drawn& drawn) mutable {
        if (!sitting.isRedacted && parts_.host.privacy().isHidden())
          return sitting.then(std::unexpected("Amounts were hidden meanwhile."));
        sitting.picture.shown.picture = drawn.picture;
        remember(sitting);
        sitting.then(std::move(sitting.picture));
      });
}

void Board::remember(const Sitting& sitting) {
  const auto& shown = sitting.picture.shown;
  if (!sitting.subject.isPlaced || !shown.picture) return;
  std::vector<std::string> links{shown.link};
  for (const auto& element : shown.picture->elements) links.push_back(element.link);
  links_.insert_or_assign(sitting.subject.id, std::move(links));
}

}  // namespace resident
