// Connections that owe the head of a request. Each has its time; when many wait, the one that has
// waited longest gives way to the newest, so that idle connections keep nobody out.
#pragma once

#include <chrono>
#include <list>
#include <memory>

struct sd_event;
struct sd_event_source;

namespace surfaces {

class HeadDeadlines {
 public:
  HeadDeadlines(sd_event* loop, std::size_t most);
  ~HeadDeadlines();
  HeadDeadlines(const HeadDeadlines&) = delete;
  HeadDeadlines& operator=(const HeadDeadlines&) = delete;

  /// From now on; the connection is shut down when its time is over.
  void expect(int connection, std::chrono::milliseconds time);
  /// The head has come, or the connection has gone.
  void settle(int connection);

 private:
  struct Waiting;

  sd_event* loop_;
  std::size_t most_;
  std::list<Waiting> waiting_;  // the longest first
};

}  // namespace surfaces
