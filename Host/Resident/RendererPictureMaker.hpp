// The picture maker of the running host: one thread that owns the renderer.
#pragma once

#include <memory>
#include <string>

#include "Resident/PictureMaker.hpp"
#include "Resident/Worker.hpp"

namespace resident {

class RendererPictureMaker : public PictureMaker {
 public:
  /// `folder` holds the redacted pictures.
  RendererPictureMaker(Loop& loop, std::string folder);
  ~RendererPictureMaker() override;

  void draw(Urgency urgency, DrawRequest request, std::function<void(Drawn)> then) override;
  void keep(DrawRequest redacted) override;
  void recall(Slot slot,
              const surfaces::Demand& demand,
              std::function<void(std::shared_ptr<const surfaces::Picture>)> then) override;
  void forget(const std::string& id) override;

 private:
  struct Studio;  // belongs to the thread

  std::unique_ptr<Studio> studio_;
  Worker worker_;
};

}  // namespace resident
