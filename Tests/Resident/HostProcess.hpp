// The built resident host with the built extension, in folders of its own.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Control/Client.hpp"
#include "Foundation/FileDescriptor.hpp"
#include "Foundation/JsonValue.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace resident {

class HostProcess {
 public:
  HostProcess();
  ~HostProcess();

  // Before start().
  std::string extension;                         ///< empty: the built one
  std::map<std::string, std::string> variables;  ///< besides the folders
  std::vector<std::string> words;
  std::vector<std::string> launcher;  ///< words before those of the host
  std::string activator;  ///< systemd-socket-activate, which then starts the host with its socket

  /// Returns when it is ready.
  void start();
  /// SIGTERM; the exit status, 128 and more for a signal.
  int stop();
  /// The exit status of one that ends by itself.
  int wait();
  [[nodiscard]] pid_t id() const { return process_; }

  /// The result of one request; a refusal's line under "error".
  foundation::JsonDocument ask(const std::string& method, const std::string& parameters = "{}");
  /// Of the placement with that id.
  [[nodiscard]] foundation::JsonDocument placement(const std::string& id);
  [[nodiscard]] std::string textOf(const std::string& id, const std::string& member);
  /// Every placement has this state, though it may be asked again already.
  [[nodiscard]] bool haveAll(const std::string& state);
  /// Every placement has this state and none is being asked.
  [[nodiscard]] bool areAll(const std::string& state);
  [[nodiscard]] bool isAsking();

  /// Asks again and again until it is so; false after half a minute.
  [[nodiscard]] static bool until(const std::function<bool()>& condition);

  /// The process that runs the extension; 0 without one.
  [[nodiscard]] pid_t extensionId() const;

  void writeDocument(const std::string& text);
  [[nodiscard]] std::string picture(const std::string& id) const;
  [[nodiscard]] std::string path(const std::string& name) const { return folder_.at(name); }
  [[nodiscard]] std::string log() const;
  /// What any program of this session sees.
  [[nodiscard]] std::vector<std::string> environment() const;

 private:
  [[nodiscard]] bool isOfEach(const std::function<bool(const foundation::JsonValue&)>& condition);
  void waitUntilReady(const foundation::FileDescriptor& notices) const;

  testsupport::TemporaryFolder folder_;
  pid_t process_ = 0;
  std::optional<control::Client> client_;
};

/// The household of the examples, so many times as rich: the net worth (w3) differs.
[[nodiscard]] std::string household(int factor = 1);

}  // namespace resident
