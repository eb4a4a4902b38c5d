// The one loop of the resident host (sd-event): descriptors, timers, signals. Nothing in it waits
// but the loop itself.
//
//     Loop loop;
//     Watch watch = loop.onReadable(descriptor, [&] { ... });   // until `watch` goes
//     loop.run();
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

struct sd_event;

namespace resident {

/// A source of events, which ends with its owner. May be reset from within its own callback.
class Watch {
 public:
  struct Source;
  Watch();
  explicit Watch(std::unique_ptr<Source> source);
  Watch(Watch&&) noexcept;
  Watch& operator=(Watch&&) noexcept;
  ~Watch();

  void reset();
  [[nodiscard]] explicit operator bool() const { return source_ != nullptr; }
  /// Of descriptors: what is waited for from now on (EPOLLIN, EPOLLOUT ...).
  void setEvents(std::uint32_t events);

 private:
  std::unique_ptr<Source> source_;
};

class Loop {
 public:
  Loop();
  ~Loop();
  Loop(const Loop&) = delete;
  Loop& operator=(const Loop&) = delete;

  using Callback = std::function<void()>;

  [[nodiscard]] Watch onReadable(int descriptor, Callback callback);
  /// `callback` gets the events that have come.
  [[nodiscard]] Watch onEvents(int descriptor,
                               std::uint32_t events,
                               std::function<void(std::uint32_t)> callback);
  /// Blocks the signal's default effect for the calling thread.
  [[nodiscard]] Watch onSignal(int signal, Callback callback);
  /// Once, on the monotonic clock.
  [[nodiscard]] Watch after(std::chrono::milliseconds time, Callback callback);
  /// Once, after everything that has happened until now.
  [[nodiscard]] Watch soon(Callback callback);

  void run();
  void quit();
  /// Waits for at most that long for something to happen and handles it; false when nothing did.
  bool step(std::chrono::milliseconds longest);

  /// For libraries that bring sources of their own.
  [[nodiscard]] sd_event* handle() { return event_; }

 private:
  sd_event* event_ = nullptr;
};

}  // namespace resident
