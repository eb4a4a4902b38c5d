#include "Resident/Worker.hpp"

#include <sys/eventfd.h>
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <utility>

namespace resident {

Worker::Worker(Loop& loop, const char* name)
    : wakeup_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      watch_(loop.onReadable(wakeup_.get(), [this] { deliver(); })) {
  // Signals are the loop's: the thread starts with all of them blocked.
  sigset_t all;
  sigset_t before;
  sigfillset(&all);
  pthread_sigmask(SIG_BLOCK, &all, &before);
  thread_ = std::thread([this] { run(); });
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  pthread_setname_np(thread_.native_handle(), name);
}

Worker::~Worker() {
  {
    const std::lock_guard lock(mutex_);
    isEnding_ = true;
    queue_.clear();
  }
  hasWork_.notify_one();
  thread_.join();
}

void Worker::submit(Urgency urgency, std::string key, Task task) {
  {
    const std::lock_guard lock(mutex_);
    queue_.push(urgency, std::move(key), std::move(task));
  }
  hasWork_.notify_one();
}

bool Worker::isIdle() {
  const std::lock_guard lock(mutex_);
  return !isWorking_ && queue_.isEmpty();
}

void Worker::run() {
  for (;;) {
    std::unique_lock lock(mutex_);
    hasWork_.wait(lock, [this] { return isEnding_ || !queue_.isEmpty(); });
    if (isEnding_) return;
    const auto task = queue_.pop();
    if (!task) continue;
    isWorking_ = true;
    lock.unlock();
    Continuation result = (*task)();
    lock.lock();
    isWorking_ = false;
    results_.push_back(std::move(result));
    lock.unlock();
    const std::uint64_t one = 1;
    // A full counter is awake already.
    [[maybe_unused]] const auto written = ::write(wakeup_.get(), &one, sizeof one);
  }
}

void Worker::deliver() {
  std::uint64_t count = 0;
  [[maybe_unused]] const auto read = ::read(wakeup_.get(), &count, sizeof count);
  std::vector<Continuation> results;
  {
    const std::lock_guard lock(mutex_);
    results.swap(results_);
  }
  for (const Continuation& result : results) {
    if (result) result();
  }
}

}  // namespace resident
