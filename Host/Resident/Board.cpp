#include "Resident/Board.hpp"

#include <utility>

#include "Surfaces/Web/BoardJson.hpp"
#include "Surfaces/Web/PageFiles.hpp"

namespace resident {

Board::Board(Parts parts) : parts_(std::move(parts)), api_(*this) {
  api_.onWatched = [this](bool isWatched) { watch(isWatched); };
  surface_.onChange = [this](const std::string& id, std::uint64_t version) {
    if (server_) server_->send("widget", surfaces::changeJson(id, version));
  };
}

Board::~Board() = default;

std::expected<std::string, std::string> Board::open() {
  if (!server_) {
    auto server = surfaces::WebServer::open(parts_.loop.handle(), api_, surfaces::pageFiles(), {});
    if (!server) return std::unexpected(server.error());
    server_ = *std::move(server);
    surface_.setWanted(true);
    if (std::exchange(isAdded_, true)) {
      parts_.host.changed(surface_);
    } else {
      parts_.host.addSurface(surface_);
    }
  }
  if (server_->streams() == 0) watch(false);
  return server_->url();
}

void Board::watch(bool isWatched) {
  closing_.reset();
  if (!isWatched) closing_ = parts_.loop.after(parts_.patience, [this] { close(); });
}

void Board::close() {
  closing_.reset();
  server_.reset();
  links_.clear();
  surface_.setWanted(false);
  parts_.host.changed(surface_);
}

void Board::tellState() {
  if (!server_ || server_->streams() == 0) return;
  // Once for all that happens in one turn, so that no page sees a part of it.
  telling_ = parts_.loop.soon([this] {
    if (server_) server_->send("state", surfaces::stateJson(state()));
  });
}

}  // namespace resident
