// An open file that is closed when its owner goes.
#pragma once

#include <unistd.h>

#include <utility>

namespace foundation {

class FileDescriptor {
 public:
  FileDescriptor() = default;
  explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
  ~FileDescriptor() { reset(); }
  FileDescriptor(FileDescriptor&& other) noexcept
      : descriptor_(std::exchange(other.descriptor_, -1)) {}
  FileDescriptor& operator=(FileDescriptor&& other) noexcept {
    if (this != &other) {
      reset();
      descriptor_ = std::exchange(other.descriptor_, -1);
    }
    return *this;
  }

  explicit operator bool() const { return descriptor_ >= 0; }
  [[nodiscard]] int get() const { return descriptor_; }
  /// Gives the descriptor up without closing it.
  [[nodiscard]] int release() { return std::exchange(descriptor_, -1); }
  void reset() {
    if (descriptor_ >= 0) ::close(std::exchange(descriptor_, -1));
  }

 private:
  int descriptor_ = -1;
};

}  // namespace foundation
