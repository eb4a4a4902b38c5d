// A thread with a queue, whose results come back on the loop.
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "Foundation/FileDescriptor.hpp"
#include "Resident/Loop.hpp"
#include "Resident/WorkQueue.hpp"

namespace resident {

/// Runs on the loop, with the task's result.
using Continuation = std::function<void()>;
/// Runs on the thread.
using Task = std::function<Continuation()>;

class Worker {
 public:
  /// `name` is the thread's, at most fifteen characters.
  Worker(Loop& loop, const char* name);
  /// Finishes the task that runs; those that wait are dropped, and so are results.
  ~Worker();
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  /// Nothing runs and nothing waits.
  [[nodiscard]] bool isIdle();

  /// See WorkQueue::push.
  void submit(Urgency urgency, std::string key, Task task);

 private:
  void run();
  void deliver();

  foundation::FileDescriptor wakeup_;
  std::mutex mutex_;
  std::condition_variable hasWork_;
  bool isEnding_ = false;
  bool isWorking_ = false;
  WorkQueue<Task> queue_;
  std::vector<Continuation> results_;
  Watch watch_;
  std::thread thread_;
};

}  // namespace resident
