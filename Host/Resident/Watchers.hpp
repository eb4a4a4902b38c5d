// Those who watch a widget's line through the control socket: the surface behind `watch`.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "Resident/ControlServer.hpp"
#include "Resident/Resident.hpp"
#include "Surfaces/Surface.hpp"

namespace resident {

class Watchers : public surfaces::Surface {
 public:
  explicit Watchers(Resident& host) : host_(host) {}

  /// Tells the client of the target's line now and whenever it changes.
  [[nodiscard]] Done watch(ControlServer::Client client, const std::string& target);
  void leave(ControlServer::Client client);
  /// Placements have changed; targets may name something else.
  void refresh();

  /// One line for the client, as JSON.
  std::function<void(ControlServer::Client client, const std::string& json)> tell;

  [[nodiscard]] std::string_view name() const override { return "watch"; }
  [[nodiscard]] std::optional<surfaces::Demand> place(const surfaces::Subject& subject) override;
  void show(const surfaces::Subject& subject, const surfaces::Shown& shown) override;
  void remove(const std::string&) override {}

 private:
  struct Line {
    surfaces::Subject subject;
    std::string json;  // as told last; empty: nothing yet
    std::string tooltip;
  };
  struct Client {
    std::string target;
    std::string line;  // an id in lines_; empty: the target names nothing now
  };

  /// The line for a subject, introduced to the host where there is none.
  std::string lineFor(surfaces::Subject subject);
  void dropUnused();

  Resident& host_;
  std::map<std::string, Line> lines_;
  std::map<ControlServer::Client, Client> clients_;
  std::uint64_t next_ = 1;
};

}  // namespace resident
