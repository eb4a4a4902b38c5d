// Widgets as PNG files in a folder, ID.png each, replaced as a whole: for programs that show
// pictures.
#pragma once

#include <string>

#include "Surfaces/Surface.hpp"

namespace surfaces {

class PictureFolder : public Surface {
 public:
  struct Look {
    double scale = 2;
    viewkit::Appearance appearance = viewkit::Appearance::light;
  };
  PictureFolder(std::string folder, Look look) : folder_(std::move(folder)), look_(look) {}

  [[nodiscard]] std::string_view name() const override { return "pictures"; }
  [[nodiscard]] std::optional<Demand> place(const Subject& subject) override;
  void show(const Subject& subject, const Shown& shown) override;
  void remove(const std::string& id) override;

 private:
  [[nodiscard]] std::string path(const std::string& id) const {
    return folder_ + "/" + id + ".png";
  }

  std::string folder_;
  Look look_;
};

}  // namespace surfaces
