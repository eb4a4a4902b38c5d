// An owned file descriptor.
#pragma once

#include <utility>

namespace session {

class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int value) : value_(value) {}
  Descriptor(Descriptor&& other) noexcept : value_(std::exchange(other.value_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    if (this != &other) {
      close();
      value_ = std::exchange(other.value_, -1);
    }
    return *this;
  }
  ~Descriptor() { close(); }

  [[nodiscard]] int get() const { return value_; }
  [[nodiscard]] explicit operator bool() const { return value_ >= 0; }
  void close();

 private:
  int value_ = -1;
};

}  // namespace session
