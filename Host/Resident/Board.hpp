// The board page: opened when a person asks for it, closed some minutes after its last page.
#pragma once

#include <chrono>
#include <expected>
#include <map>
#include <memory>
#include <string>

#include "Resident/Asker.hpp"
#include "Resident/Loop.hpp"
#include "Resident/PictureMaker.hpp"
#include "Resident/Resident.hpp"
#include "Surfaces/Web/BoardApi.hpp"
#include "Surfaces/Web/BoardSurface.hpp"

namespace resident {

class Board : public surfaces::BoardHost {
 public:
  struct Parts {
    Loop& loop;
    Resident& host;
    Asker& asker;
    PictureMaker& pictureMaker;
    Reloader::DeviceAt device;
    /// Without a page for that long the server is closed.
    std::chrono::milliseconds patience = std::chrono::minutes(3);
  };
  explicit Board(Parts parts);
  ~Board() override;

  /// The page's address, which lets its bearer see and change everything: for the person alone. The
  /// server listens from now on. The error is one line.
  [[nodiscard]] std::expected<std::string, std::string> open();
  [[nodiscard]] bool isOpen() const { return server_ != nullptr; }

  /// Placements or privacy have changed.
  void tellState();

  // surfaces::BoardHost
  surfaces::BoardState state() override;
  void draw(const std::string& id,
            const surfaces::BoardView& view,
            Then<surfaces::BoardPicture> then) override;
  void preview(const surfaces::Subject& subject,
               const surfaces::BoardView& view,
               Then<surfaces::BoardPicture> then) override;
  void png(const std::string& id, const surfaces::BoardView& view, Then<std::string> then) override;
  void options(const surfaces::OptionsQuestion& question,
               Then<widgetruntime::OptionsAnswer> then) override;
  void perform(const std::string& intent, Then<void> then) override;
  Answer<std::string> add(const surfaces::BoardCard& card) override;
  Answer<void> remove(const std::string& id) override;
  Answer<void> configure(const surfaces::Subject& subject) override;
  Answer<void> move(const std::vector<surfaces::BoardMove>& moves) override;
  Answer<void> reload(const std::string& id) override;
  void hide(bool hides) override;
  void open(const std::string& id, std::optional<std::size_t> region, Then<void> then) override;

 private:
  /// A picture on its way to a page.
  struct Sitting {
    surfaces::Subject subject;
    surfaces::BoardView view;
    surfaces::Medium medium = surfaces::Medium::svg;
    bool isRedacted = true;
    surfaces::BoardPicture picture;
    Then<surfaces::BoardPicture> then;
  };

  void sit(const std::string& id,
           const surfaces::BoardView& view,
           surfaces::Medium medium,
           Then<surfaces::BoardPicture> then);
  /// Asks for a tree that no timeline holds: of another mode, time or ground.
  void ask(Sitting sitting, bool isPreview);
  void paint(Sitting sitting, const widgetruntime::RenderedTree& tree);
  void remember(const Sitting& sitting);
  void openLink(const std::string& link, Then<void> then);
  void watch(bool isWatched);
  void close();

  Parts parts_;
  surfaces::BoardSurface surface_;
  surfaces::BoardApi api_;
  std::unique_ptr<surfaces::WebServer> server_;
  bool isAdded_ = false;
  Watch closing_;
  Watch telling_;
  /// Of what pages were last given: the widget's own link, then those of the elements.
  std::map<std::string, std::vector<std::string>> links_;
};

}  // namespace resident
