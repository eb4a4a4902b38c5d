// Puts instances on surfaces: chooses the tree, has it drawn, hands over pictures, keeps redacted
// ones for the next start.
#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "Resident/InstanceTimeline.hpp"
#include "Resident/Loop.hpp"
#include "Resident/PictureMaker.hpp"
#include "Surfaces/Surface.hpp"

namespace resident {

class Presenter {
 public:
  /// Redacted pictures are kept so long after the last change.
  static constexpr std::chrono::milliseconds kKeepAfter{2000};

  Presenter(Loop& loop,
            PictureMaker& pictureMaker,
            std::chrono::milliseconds keepAfter = kKeepAfter)
      : loop_(loop), pictureMaker_(pictureMaker), keepAfter_(keepAfter) {}

  /// What the host adds to every demand.
  struct Scene {
    std::string container;  ///< of the images
    viewkit::LayoutDirection direction = viewkit::LayoutDirection::leftToRight;
  };
  void setScene(Scene scene) { scene_ = std::move(scene); }

  void add(surfaces::Surface& surface);
  /// Its demands are asked for anew with the next present().
  void forgetDemands(surfaces::Surface& surface);

  struct Moment {
    foundation::Instant now;
    DocumentVersion version = 0;
    bool isHidden = true;  ///< amounts are
    bool isKept = true;    ///< the redacted picture is, for the next start
  };
  void present(const surfaces::Subject& subject,
               const InstanceTimeline& timeline,
               const Moment& moment,
               Urgency urgency);
  void remove(const std::string& id);

  /// The modes that the surfaces want for these.
  [[nodiscard]] Modes modesFor(const std::vector<surfaces::Subject>& subjects);
  /// The link of an element of what the surfaces show of it, else the widget's own; empty: none.
  [[nodiscard]] std::string linkOf(const std::string& id, std::optional<std::size_t> region) const;
  /// Of the latest drawing.
  [[nodiscard]] std::chrono::microseconds drawingTime(const std::string& id) const;

  /// A redacted picture of an earlier run was found for it.
  std::function<void(const std::string& id)> onRecalled;

 private:
  struct Place {
    surfaces::Surface* surface = nullptr;
    surfaces::Subject subject;
    surfaces::Demand demand;
    surfaces::Shown shown;           // without the picture
    std::string link;                // of the present entry, drawn or not yet
    std::vector<std::string> links;  // of the picture's elements
    std::chrono::microseconds took{};
    bool mustHide = true;
    bool wasShown = false;
    bool lacksPicture = true;  // the surface has not been handed the latest drawing
    bool isRecalled = false;
    std::optional<viewkit::View> toKeep;
    std::optional<viewkit::View> kept;
  };

  Place* placeOn(surfaces::Surface& surface, const surfaces::Subject& subject);
  void presentOn(Place& place,
                 const InstanceTimeline& timeline,
                 const Moment& moment,
                 Urgency urgency);
  void recall(Place& place);
  void hand(const std::string& key, surfaces::Shown shown, const Drawn& drawn);
  void show(Place& place, surfaces::Shown shown);
  void keepLater(Place& place, const viewkit::View& redacted);
  void keepAll();
  [[nodiscard]] DrawRequest requestFor(const Place& place,
                                       const viewkit::View& view,
                                       bool redacted) const;

  Loop& loop_;
  PictureMaker& pictureMaker_;
  std::chrono::milliseconds keepAfter_;
  Scene scene_;
  std::vector<surfaces::Surface*> surfaces_;
  std::map<std::string, Place> places_;  // by Slot::key
  Watch keeping_;
};

}  // namespace resident
