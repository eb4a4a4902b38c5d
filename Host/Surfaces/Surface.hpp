// What shows widgets, as the resident host sees it. A surface says how it wants each widget, is
// handed pictures as they change, and reports what a person does on them.
//
//     class Panel : public surfaces::Surface {
//       std::string_view name() const override { return "panel"; }
//       std::optional<Demand> place(const Subject&) override { return Demand{...}; }
//       void show(const Subject&, const Shown&) override { ... }
//       void remove(const std::string& id) override { ... }
//     };
//
// All calls are made on the host's loop and must not wait. Sizes are points, pictures are drawn at
// the demanded scale.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Instant.hpp"
#include "Foundation/Names.hpp"
#include "Rendering/Output/AccessibilityTree.hpp"
#include "Rendering/Renderer.hpp"
#include "WidgetRuntime/Environment.hpp"
#include "WidgetRuntime/Intents.hpp"
#include "WidgetRuntime/WidgetSummary.hpp"

namespace surfaces {

/// A widget with an id of its own: a placement, or something that passes by.
struct Subject {
  std::string id;
  std::string kind;
  widgetruntime::WidgetFamily family = widgetruntime::WidgetFamily::systemSmall;
  widgetruntime::IntentValues configuration;
  bool isPlaced = true;  ///< by a person; else it only passes by

  friend bool operator==(const Subject&, const Subject&) = default;
};

enum class Medium : std::uint8_t { bitmap, svg, plainText };

/// How a surface wants a widget. The host fills in redaction, direction and the images' folder.
struct Demand {
  Medium medium = Medium::bitmap;
  rendering::RenderOptions options;
  int columns = 80;  ///< of plain text
};

/// A drawing, in the demanded medium.
struct Picture {
  rendering::Bitmap bitmap;
  std::string text;  ///< SVG or plain text
  /// In reading order; those with a link are the regions that a click may follow. The last one
  /// that holds a point is the innermost.
  std::vector<rendering::AccessibleElement> elements;
  bool isRedacted = true;
};

enum class State : std::uint8_t {
  placeholder,  ///< no answer yet
  live,
  stale,  ///< the latest request failed; what is shown is older, and drawn at 0.62
  failed  ///< there is nothing to show but the reason
};
constexpr auto namesOf(State) {
  return foundation::names("placeholder", "live", "stale", "failed");
}

/// Everything there is to show of a widget now.
struct Shown {
  State state = State::placeholder;
  std::string reason;  ///< why it is stale or failed, one line
  bool isHidden = true;
  widgetruntime::WidgetSummary summary;  ///< masked where the picture is redacted
  std::string link;                      ///< of the whole widget; empty: none
  std::optional<foundation::Instant> asOf;
  /// Null while there is none. Shared: a surface that has handed it on drops it.
  std::shared_ptr<const Picture> picture;
};

class Surface {
 public:
  Surface() = default;
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;
  virtual ~Surface() = default;

  /// Part of the names of files that belong to it.
  [[nodiscard]] virtual std::string_view name() const = 0;
  /// How it wants the widget; nothing when it does not show it. Asked anew after changed().
  [[nodiscard]] virtual std::optional<Demand> place(const Subject& subject) = 0;
  virtual void show(const Subject& subject, const Shown& shown) = 0;
  virtual void remove(const std::string& id) = 0;
};

/// What a surface may tell and ask of the host.
class Host {
 public:
  virtual ~Host() = default;
  /// The surface's demands have changed (scale, look, outputs).
  virtual void changed(Surface& surface) = 0;
  /// Opens the link of a region of what is shown (an index into Picture::elements), else the
  /// widget's; `then` gets why nothing opens, or an empty text.
  virtual void open(const std::string& id,
                    std::optional<std::size_t> region,
                    std::function<void(const std::string& problem)> then) = 0;
};

}  // namespace surfaces
