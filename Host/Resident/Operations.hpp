// The methods of the control socket: from JSON parameters to the host and back.
#pragma once

#include "Control/Requests.hpp"
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

  [[nodiscard]] Answer status() const;
  [[nodiscard]] Answer reload(const control::ReloadRequest& request);
  [[nodiscard]] Answer hide(const control::HideRequest& request);
  [[nodiscard]] Answer add(const control::AddRequest& request);
  [[nodiscard]] Answer remove(const control::RemoveRequest& request);
  [[nodiscard]] Answer configure(const control::ConfigureRequest& request);
  [[nodiscard]] Answer move(const control::MoveRequest& request);
  [[nodiscard]] Answer board();
  [[nodiscard]] Answer watch(ControlServer::Client client, const control::WatchRequest& request);
  void open(const control::OpenRequest& request, ControlServer::Reply reply);
  void perform(const control::PerformRequest& request, const ControlServer::Reply& reply);
  void openThen(const std::string& link, ControlServer::Reply reply);

  Resident& host_;
  Asker& asker_;
  Watchers& watchers_;
};

}  // namespace resident
