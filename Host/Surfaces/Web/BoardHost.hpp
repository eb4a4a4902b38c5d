// What the board's page needs of the host that shows it.
#pragma once

#include <chrono>
#include <expected>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "Foundation/Instant.hpp"
#include "Surfaces/Surface.hpp"
#include "Surfaces/WidgetSize.hpp"
#include "WidgetRuntime/Messages.hpp"

namespace surfaces {

/// How a page shows widgets. Only what is drawn for the page depends on it.
struct BoardView {
  viewkit::Appearance appearance = viewkit::Appearance::light;
  viewkit::RenderingMode mode = viewkit::RenderingMode::fullColor;
  std::optional<viewkit::Rgb> tint;
  bool showsBackground = true;
  bool hidesAmounts = false;     ///< the host hides them in any case while it must
  bool hidesEverything = false;  ///< bars and blocks stand for all texts and pictures
  Preset preset = Preset::standard;
  std::optional<foundation::Instant> now;  ///< absent: the wall clock
};

/// Where a placed widget stands on the page, in cells.
struct BoardCard {
  Subject subject;
  int column = 0;
  int row = 0;
};

/// Where one is to stand.
struct BoardMove {
  std::string id;
  int column = 0;
  int row = 0;

  friend bool operator==(const BoardMove&, const BoardMove&) = default;
};

/// Which of a parameter's options are asked for.
struct OptionsQuestion {
  std::string kind;
  std::string parameter;
  std::string words;  ///< that the title holds, letter case aside
  std::string id;     ///< that one alone; empty: all that are suggested
};

struct BoardState {
  std::string problem;  ///< why the extension does not start, one line; empty: it has
  std::string container;
  std::string timeZone;                           ///< an identifier such as "Europe/Berlin"
  std::vector<foundation::Instant> clockChanges;  ///< of the zone, the next ones
  bool isHidden = true;                           ///< as a person asked
  bool isLocked = false;                          ///< the session is, or might be
  std::vector<widgetruntime::WidgetListing> gallery;
  std::optional<widgetruntime::Control> control;
  std::vector<BoardCard> cards;
  std::optional<std::chrono::microseconds> took;  ///< from a change to its pictures, the latest
};

/// A picture for the page, and what is known about what it shows.
struct BoardPicture {
  std::uint64_t version = 0;  ///< grows with every change of what the placement shows
  rendering::Size size;       ///< points
  Shown shown;                ///< its picture holds an SVG
  std::string name;           ///< the widget's, for people who cannot see it
  std::optional<foundation::Instant> since;  ///< when it began to be stale or failed
  std::optional<foundation::Instant> nextTry;
};

/// Errors are one line for a person. Continuations run on the host's loop, at once or later; the
/// last one asked for may be the only one that is called.
class BoardHost {
 public:
  template <class T>
  using Answer = std::expected<T, std::string>;
  template <class T>
  using Then = std::function<void(Answer<T>)>;

  virtual ~BoardHost() = default;
  [[nodiscard]] virtual BoardState state() = 0;

  /// Of a placement, by its id.
  virtual void draw(const std::string& id, const BoardView& view, Then<BoardPicture> then) = 0;
  /// Of a widget that is not placed.
  virtual void preview(const Subject& subject, const BoardView& view, Then<BoardPicture> then) = 0;
  /// A placement as a PNG.
  virtual void png(const std::string& id, const BoardView& view, Then<std::string> then) = 0;
  virtual void options(const OptionsQuestion& question,
                       Then<widgetruntime::OptionsAnswer> then) = 0;
  virtual void perform(const std::string& intent, Then<void> then) = 0;

  [[nodiscard]] virtual Answer<std::string> add(const BoardCard& card) = 0;  ///< its new id
  [[nodiscard]] virtual Answer<void> remove(const std::string& id) = 0;
  [[nodiscard]] virtual Answer<void> configure(const Subject& subject) = 0;
  [[nodiscard]] virtual Answer<void> move(const std::vector<BoardMove>& moves) = 0;
  [[nodiscard]] virtual Answer<void> reload(const std::string& id) = 0;  ///< empty: all
  virtual void hide(bool hides) = 0;
  /// Follows a link of what the page was last given: of an element of the picture, else the
  /// widget's own.
  virtual void open(const std::string& id, std::optional<std::size_t> region, Then<void> then) = 0;
};

}  // namespace surfaces
