// What the board's page asks of the host, other than pictures.
#include <algorithm>
#include <utility>

#include "Foundation/TimeZoneRules.hpp"
#include "Opening/LinkOpener.hpp"
#include "Resident/Board.hpp"

namespace resident {

using surfaces::BoardCard;
using surfaces::BoardState;
using surfaces::Subject;
using widgetruntime::OptionsAnswer;

namespace {

constexpr std::int64_t kTwoYears = 2 * 365 * 86400;  ///< seconds

/// Letters of ASCII in lower case.
std::string lower(std::string text) {
  std::ranges::transform(
      text, text.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c; });
  return text;
}

/// Of the next two years.
std::vector<foundation::Instant> clockChanges(const foundation::Device& device) {
  std::vector<foundation::Instant> instants;
  const auto rules = foundation::TimeZoneRules::load(device.timeZone.identifier);
  if (!rules) return instants;
  const std::int64_t now = device.now.seconds;
  for (const auto& change : rules->changesBetween(now, now + kTwoYears))
    instants.push_back({.seconds = change.at});
  return instants;
}

}  // namespace

BoardState Board::state() {
  Resident& host = parts_.host;
  BoardState state;
  const foundation::Device device = parts_.device(host.reloader().now());
  state.timeZone = device.timeZone.identifier;
  state.clockChanges = clockChanges(device);
  state.isHidden = host.privacy().isAsked();
  state.isLocked = host.privacy().isHidden() && !state.isHidden;
  state.problem = host.problem();
  if (const auto* offer = host.offer()) {
    state.container = offer->container;
    state.gallery = offer->bundle.widgets;
    if (!offer->bundle.controls.empty()) state.control = offer->bundle.controls.front();
  }
  std::chrono::microseconds took{};
  for (const Placement& placement : host.placements().placements) {
    const BoardPlace place = placement.board.value_or(BoardPlace{});
    state.cards.push_back({.subject = {.id = placement.id,
                                       .kind = placement.kind,
                                       .family = placement.family,
                                       .configuration = placement.configuration},
                           .column = place.column,
                           .row = place.row});
    if (const auto* instance = host.reloader().find(placement.id))
      took = std::max(took, instance->took + host.presenter().drawingTime(placement.id));
  }
  if (took.count() > 0) state.took = took;
  return state;
}

void Board::options(const surfaces::OptionsQuestion& question, Then<OptionsAnswer> then) {
  widgetruntime::OptionsParameters parameters{.kind = question.kind,
                                              .parameter = question.parameter};
  if (!question.id.empty()) parameters.query.emplace().identifiers = {question.id};
  parts_.asker.options(
      std::move(parameters),
      [words = lower(question.words), then = std::move(then)](Asked<OptionsAnswer> answer) {
        if (!answer) return then(std::unexpected(answer.error().reason));
        std::erase_if(answer->options, [&](const auto& option) {
          return lower(option.title).find(words) == std::string::npos;
        });
        then(*std::move(answer));
      });
}

void Board::perform(const std::string& intent, Then<void> then) {
  parts_.asker.perform(
      {.intent = intent},
      [this, then = std::move(then)](const Asked<widgetruntime::PerformAnswer>& done) {
        if (!done) return then(std::unexpected(done.error().reason));
        const auto* offer = parts_.host.offer();
        if (!done->openApp || !offer) return then({});
        const auto link = opening::applicationLink(offer->urlScheme);
        if (!link) return then(std::unexpected(link.error()));
        openLink(*link, then);
      });
}

void Board::open(const std::string& id, std::optional<std::size_t> region, Then<void> then) {
  const auto found = links_.find(id);
  const std::size_t index = region ? *region + 1 : 0;
  if (found == links_.end() || index >= found->second.size() || found->second[index].empty())
    return then(std::unexpected("The widget shows no such link."));
  openLink(found->second[index], std::move(then));
}

void Board::openLink(const std::string& link, Then<void> then) {
  parts_.host.openLink(link, [then = std::move(then)](const std::string& problem) {
    then(problem.empty() ? Answer<void>{} : std::unexpected(problem));
  });
}

Board::Answer<std::string> Board::add(const BoardCard& card) {
  auto id = parts_.host.add(card.subject.kind, card.subject.family, card.subject.configuration);
  if (id) (void)parts_.host.moveOnBoard(*id, {card.column, card.row});
  return id;
}

Board::Answer<void> Board::remove(const std::string& id) {
  links_.erase(id);
  return parts_.host.remove(id);
}

Board::Answer<void> Board::configure(const Subject& subject) {
  return parts_.host.configure(subject.id, subject.family, subject.configuration);
}

Board::Answer<void> Board::move(const std::vector<surfaces::BoardMove>& moves) {
  Answer<void> answer;
  for (const auto& [id, column, row] : moves)
    if (auto moved = parts_.host.moveOnBoard(id, {column, row}); !moved) answer = std::move(moved);
  return answer;
}

Board::Answer<void> Board::reload(const std::string& id) {
  if (auto asked = parts_.host.reload(id); !asked) return std::unexpected(asked.error());
  return {};
}

void Board::hide(bool hides) {
  parts_.host.hide(hides ? Hide::on : Hide::off);
}

}  // namespace resident
