// What quorvel-hostd is told on its command line.
#pragma once

#include <expected>
#include <span>
#include <string>

#include "Surfaces/Pictures/PictureFolder.hpp"

namespace resident {

/// Empty: the usual place.
struct HostOptions {
  std::string container;
  std::string extension;
  std::string infoPlist;
  std::string pictures;  ///< the folder of a picture surface; empty: there is none
  surfaces::PictureFolder::Look look;
};

struct OptionsEnd {
  int status = 0;  ///< 0: help was asked for; 2: usage
  std::string text;
};

[[nodiscard]] std::expected<HostOptions, OptionsEnd> readOptions(
    std::span<const char* const> words);

}  // namespace resident
