#include "Surfaces/Web/HeadDeadlines.hpp"

#include <sys/socket.h>
#include <systemd/sd-event.h>

#include "Surfaces/Web/EventSource.hpp"

namespace surfaces {

struct HeadDeadlines::Waiting {
  int connection = -1;
  EventSource timer;
};

HeadDeadlines::HeadDeadlines(sd_event* loop, std::size_t most) : loop_(loop), most_(most) {}

HeadDeadlines::~HeadDeadlines() = default;

void HeadDeadlines::expect(int connection, std::chrono::milliseconds time) {
  settle(connection);
  if (waiting_.size() >= most_) {
    ::shutdown(waiting_.front().connection, SHUT_RDWR);
    waiting_.pop_front();
  }
  Waiting& newest = waiting_.emplace_back();
  newest.connection = connection;
  const auto onTime = [](sd_event_source*, std::uint64_t, void* late) {
    ::shutdown(static_cast<Waiting*>(late)->connection, SHUT_RDWR);
    return 0;
  };
  sd_event_source* source = nullptr;
  const auto microseconds = static_cast<std::uint64_t>(time.count()) * 1000;
  sd_event_add_time_relative(loop_, &source, CLOCK_MONOTONIC, microseconds, 0, onTime, &newest);
  newest.timer.reset(source);
}

void HeadDeadlines::settle(int connection) {
  waiting_.remove_if([&](const Waiting& one) { return one.connection == connection; });
}

}  // namespace surfaces
