// The redacted picture of each widget on each surface, kept on disk for the next start. Pictures,
// not trees: the heights of a covered chart stand in its tree.
#pragma once

#include <optional>
#include <string>

#include "Rendering/Renderer.hpp"
#include "Resident/PictureMaker.hpp"

namespace resident {

class RedactedPictures {
 public:
  explicit RedactedPictures(std::string folder) : folder_(std::move(folder)) {}

  /// For the owner's eyes alone. What cannot be written is drawn again after the next start.
  void save(const Slot& slot,
            const surfaces::Demand& demand,
            const rendering::Bitmap& bitmap) const;
  /// Nothing when it is missing, damaged, or was drawn in another way.
  [[nodiscard]] std::optional<rendering::Bitmap> load(const Slot& slot,
                                                      const surfaces::Demand& demand) const;
  /// Of all surfaces.
  void remove(const std::string& id) const;

 private:
  [[nodiscard]] std::string path(const Slot& slot, const surfaces::Demand& demand) const;

  std::string folder_;
};

}  // namespace resident
