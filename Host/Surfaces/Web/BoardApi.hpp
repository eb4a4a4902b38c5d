// The paths that the board's page asks, each a question to the host.
//
//     GET  /state /widget/ID /widget/ID.svg /widget/ID.png /preview /options
//     POST /add /remove /configure /move /reload /hide /open /perform
//
// Answers are JSON but for downloads; a refusal is {"error": one line} with status 400, or 404
// where nothing has that path.
#pragma once

#include "Surfaces/Web/BoardHost.hpp"
#include "Surfaces/Web/WebServer.hpp"

namespace surfaces {

class BoardApi : public WebHandler {
 public:
  explicit BoardApi(BoardHost& host) : host_(host) {}

  void handle(const WebRequest& request, Respond respond) override;
  void watched(bool isWatched) override {
    if (onWatched) onWatched(isWatched);
  }
  std::function<void(bool isWatched)> onWatched;

 private:
  void answerQuestion(const WebRequest& request, const Respond& respond);
  void answerWidget(const WebRequest& request, std::string_view name, const Respond& respond);
  void answerPreview(const WebRequest& request, const Respond& respond);
  void change(const WebRequest& request, const Respond& respond);

  BoardHost& host_;
};

}  // namespace surfaces
