// The methods of the control socket: from JSON parameters to the host and back.
#pragma once

#include "Resident/ControlServer.hpp"
#include "Resident/Resident.hpp"
#include "Resident/Watchers.hpp"

namespace resident {

class Operations {
 public:
  Operations(Resident& host, Asker& asker, Watchers& watchers)
      : host_(host), asker_(asker), watchers_(watchers) {}

  void handle(ControlServer::Client client,
              const std::string& method,
              const foundation::JsonValue& parameters,
              ControlServer::Reply reply);

  /// Opens the board; its address, or why there is none.
  std::function<std::expected<std::string, std::string>()> openBoard;

 private:
  using Answer = ControlServer::Answer;
  using Parameters = foundation::JsonValue;

  [[nodiscard]] Answer status() const;
  [[nodiscard]] Answer reload(const Parameters& parameters);
  [[nodiscard]] Answer hide(const Parameters& parameters);
  [[nodiscard]] Answer add(const Parameters& parameters);
  [[nodiscard]] Answer remove(const Parameters& parameters);
  [[nodiscard]] Answer configure(const Parameters& parameters);
  [[nodiscard]] Answer move(const Parameters& parameters);
  [[nodiscard]] Answer board();
  [[nodiscard]] Answer watch(ControlServer::Client client, const Parameters& parameters);
  void open(const Parameters& parameters, ControlServer::Reply reply);
  void perform(const Parameters& parameters, const ControlServer::Reply& reply);
  void openThen(const std::string& link, ControlServer::Reply reply);

  Resident& host_;
  Asker& asker_;
  Watchers& watchers_;
};

}  // namespace resident
