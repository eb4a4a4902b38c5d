// Draws widgets and keeps their redacted pictures, away from the loop.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "Resident/WorkQueue.hpp"
#include "Surfaces/Surface.hpp"
#include "ViewKit/View.hpp"

namespace resident {

/// A widget on a surface.
struct Slot {
  std::string id;
  std::string surface;

  [[nodiscard]] std::string key() const { return id + "/" + surface; }
};

struct DrawRequest {
  Slot slot;
  viewkit::View view;
  surfaces::Demand demand;
  double opacity = 1;      ///< of bitmaps
  bool isForced = false;   ///< drawn also when nothing has changed
  bool isPassing = false;  ///< for one question: always drawn, replaced by nothing, not remembered
};

struct Drawn {
  /// Null when nothing has changed since the slot was drawn last: the same tree with the same
  /// images, in the same way.
  std::shared_ptr<const surfaces::Picture> picture;
  std::chrono::microseconds took{};
};

/// Continuations run on the loop. A drawing that a newer one of the same slot replaces before it
/// was begun is dropped with its continuation.
class PictureMaker {
 public:
  PictureMaker() = default;
  PictureMaker(const PictureMaker&) = delete;
  PictureMaker& operator=(const PictureMaker&) = delete;
  virtual ~PictureMaker() = default;

  virtual void draw(Urgency urgency, DrawRequest request, std::function<void(Drawn)> then) = 0;
  /// Draws and writes what stands for the slot after the next start.
  virtual void keep(DrawRequest redacted) = 0;
  /// What keep() wrote in an earlier run for this slot and demand; null when there is none.
  virtual void recall(Slot slot,
                      const surfaces::Demand& demand,
                      std::function<void(std::shared_ptr<const surfaces::Picture>)> then) = 0;
  /// The widget is gone from all surfaces, and so is what was kept of it.
  virtual void forget(const std::string& id) = 0;
};

}  // namespace resident
