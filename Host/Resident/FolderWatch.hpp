// Tells when something in a folder changes, also while the folder is missing: it may come later, go
// again, or be replaced by something else (inotify).
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/FileDescriptor.hpp"
#include "Resident/Loop.hpp"

namespace resident {

class FolderWatch {
 public:
  /// `matters` decides by the name of what changed in `folder`; empty: the folder itself came, went
  /// or changed. Changes that come together are told once.
  FolderWatch(Loop& loop,
              std::string folder,
              std::function<bool(std::string_view name)> matters,
              std::function<void()> onChange);

 private:
  void rewatch();
  int add(const std::string& path, std::uint32_t mask, const std::string& name);
  void handle();
  void findMounted();

  std::string folder_;
  std::function<bool(std::string_view)> matters_;
  std::function<void()> onChange_;
  foundation::FileDescriptor inotify_;
  std::map<int, std::string> names_;  // by watch: what is awaited in an ancestor; "" is the folder
  Watch watch_;
  foundation::FileDescriptor mounts_;
  Watch mountWatch_;
};

}  // namespace resident
