// The board as a surface: it draws nothing itself, but learns when a widget's picture has changed,
// so that open pages can be told.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "Surfaces/Surface.hpp"

namespace surfaces {

class BoardSurface : public Surface {
 public:
  /// What a page was shown before is out of date.
  std::function<void(const std::string& id, std::uint64_t version)> onChange;

  /// Only while a page may be open is anything drawn for it.
  void setWanted(bool isWanted) { isWanted_ = isWanted; }

  /// Grows with every change of what is shown; 0 before the first.
  [[nodiscard]] std::uint64_t versionOf(const std::string& id) const;

  // Surface
  [[nodiscard]] std::string_view name() const override { return "board"; }
  [[nodiscard]] std::optional<Demand> place(const Subject& subject) override;
  void show(const Subject& subject, const Shown& shown) override;
  void remove(const std::string& id) override { versions_.erase(id); }

 private:
  bool isWanted_ = false;
  std::uint64_t latest_ = 0;
  std::map<std::string, std::uint64_t> versions_;
};

}  // namespace surfaces
