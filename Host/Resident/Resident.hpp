// The resident host: placements, their timelines, privacy and surfaces, and what a person may ask
// of them. Everything happens on the loop; whatever may take time is the asker's or the picture
// maker's.
#pragma once

#include <expected>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "Control/Requests.hpp"
#include "Resident/PlacementsFile.hpp"
#include "Resident/Presenter.hpp"
#include "Resident/Privacy.hpp"
#include "Resident/Reloader.hpp"

namespace resident {

/// Nothing, or one line for the person who asked.
using Done = std::expected<void, std::string>;

using control::Hide;

class Resident : public surfaces::Host {
 public:
  struct Parts {
    Loop& loop;
    WallClock& clock;
    Asker& asker;
    PictureMaker& pictureMaker;
    PlacementsFile file;
    Reloader::DeviceAt device;
    std::function<void(const std::string& line)> log;
  };
  Resident(Parts parts, std::optional<Placements> placements);

  /// Asks the extension what it offers, then for everything placed; without placements of an
  /// earlier run, one of each widget is placed.
  void start();
  void addSurface(surfaces::Surface& surface);

  /// Saves what is still to be saved.
  void finish();

  /// The extension has said what it offers, for the first time.
  std::function<void(const widgetruntime::InitializeAnswer&)> onOffer;
  /// Placements or their configurations have changed.
  std::function<void()> onPlacements;
  /// Amounts are hidden, or shown, that were not.
  std::function<void()> onPrivacy;

  // What happens around it.
  void documentChanged() { reloader_.documentChanged(); }
  void zoneChanged() { reloader_.reloadAll(Cause::zone); }
  /// Changes what is known about the session, then shows what follows from it.
  void withPrivacy(const std::function<void(Privacy&)>& change);

  // What a person asks. A target is an id or a kind, in full or short.
  [[nodiscard]] std::expected<std::size_t, std::string> reload(const std::string& target);
  void hide(Hide hide);
  [[nodiscard]] std::expected<std::string, std::string> add(
      const std::string& kind,
      std::optional<widgetruntime::WidgetFamily> family,
      widgetruntime::IntentValues configuration);
  [[nodiscard]] Done remove(const std::string& id);
  [[nodiscard]] Done configure(const std::string& id,
                               std::optional<widgetruntime::WidgetFamily> family,
                               std::optional<widgetruntime::IntentValues> configuration);
  [[nodiscard]] Done moveOnDesktop(const std::string& id, DesktopPlace place);
  [[nodiscard]] Done moveOnBoard(const std::string& id, BoardPlace place);

  /// What a target names, in the family that is wished where the kind has it.
  [[nodiscard]] std::expected<surfaces::Subject, std::string> subjectOf(
      const std::string& target,
      std::optional<widgetruntime::WidgetFamily> wished = std::nullopt) const;
  /// Something that is shown without being placed, until dismiss().
  void introduce(const surfaces::Subject& passing);
  void dismiss(const std::string& id);
  [[nodiscard]] std::expected<std::string, std::string> linkOf(
      const std::string& target, std::optional<std::size_t> region) const;

  [[nodiscard]] const Placements& placements() const { return placements_; }
  [[nodiscard]] const Privacy& privacy() const { return privacy_; }
  [[nodiscard]] Reloader& reloader() { return reloader_; }
  [[nodiscard]] const Presenter& presenter() const { return presenter_; }
  /// Null until the extension has said it.
  [[nodiscard]] const widgetruntime::InitializeAnswer* offer() const {
    return offer_ ? &*offer_ : nullptr;
  }
  /// Why the extension does not start; empty when it has.
  [[nodiscard]] const std::string& problem() const { return problem_; }

  /// Why nobody says whether the session is locked; empty when somebody does.
  std::string sessionProblem;

  // surfaces::Host
  void changed(surfaces::Surface& surface) override;
  void open(const std::string& id,
            std::optional<std::size_t> region,
            std::function<void(const std::string&)> then) override;
  /// Hands a link to the desktop; `then` gets what went wrong, or nothing.
  std::function<void(const std::string& link, std::function<void(const std::string&)> then)>
      openLink;

 private:
  void askForOffer();
  void receiveOffer(Asked<widgetruntime::InitializeAnswer> offer);
  void placeOneOfEach();
  void present(const std::string& id, Urgency urgency);
  /// Says why a widget is not live, once for each reason.
  void logFailure(const std::string& id);
  void presentAll(Urgency urgency);
  void updateModes();
  void save();
  [[nodiscard]] const widgetruntime::WidgetListing* listingOf(const std::string& kind) const;
  [[nodiscard]] Done check(const std::string& kind,
                           widgetruntime::WidgetFamily family,
                           const widgetruntime::IntentValues& configuration) const;

  Parts parts_;
  bool isFirstStart_;
  Placements placements_;
  Privacy privacy_;
  Reloader reloader_;
  Presenter presenter_;
  std::optional<widgetruntime::InitializeAnswer> offer_;
  bool isOfferAsked_ = false;   // an answer is awaited
  bool isOfferWanted_ = false;  // somebody has asked for it since
  std::string problem_;
  std::string loggedReason_;
  std::map<std::string, surfaces::Subject> passing_;
  Watch offerRetry_;
  Watch saving_;
};

}  // namespace resident
