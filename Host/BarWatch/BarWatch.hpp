// A widget's line for a status bar, printed whenever it changes. Waits while no host runs and ends
// when nobody reads.
#pragma once

#include <cstdint>
#include <expected>
#include <optional>
#include <string>

#include "Control/Client.hpp"
#include "Control/LineBuffer.hpp"
#include "Foundation/FileDescriptor.hpp"
#include "Surfaces/Bar/BarLine.hpp"

namespace watch {

/// Nothing, or one line for a person.
using Result = std::expected<void, std::string>;

class BarWatch {
 public:
  /// `socket` is where the resident host listens, or will.
  BarWatch(std::string socket, std::string target, surfaces::BarFormat format)
      : socket_(std::move(socket)), target_(std::move(target)), format_(format) {}

  /// Prints until nobody reads any more; refused when the host refuses the target.
  [[nodiscard]] Result run();

 private:
  /// Of a try to reach the host: refused when the host refuses the target.
  Result connect();
  Result wait();
  Result readMessages();
  void readClicks();
  void click(int button);
  Result show(const surfaces::BarLine& line);
  Result lose();

  std::string socket_;
  std::string target_;
  surfaces::BarFormat format_;
  std::optional<control::Client> client_;
  std::optional<std::int64_t> watching_;
  foundation::FileDescriptor arrival_{-1};  // tells when a socket appears
  control::LineBuffer clicks_{4096};
  bool hasReader_ = true;
  bool hasClicks_ = true;
  bool isPausing_ = false;
  std::string shown_;
};

}  // namespace watch
