#include "Resident/Scheduler.hpp"

#include <algorithm>

namespace resident {

using foundation::Instant;

void Scheduler::add(const std::string& instance, Cause cause) {
  // Answers to what was asked for an earlier instance of that name come too late.
  rows_.insert_or_assign(instance, Row{.wanted = cause, .latest = serial_, .settled = serial_});
}

void Scheduler::remove(const std::string& instance) {
  rows_.erase(instance);
}

void Scheduler::request(const std::string& instance, Cause cause) {
  if (const auto found = rows_.find(instance); found != rows_.end()) found->second.wanted = cause;
}

void Scheduler::requestAll(Cause cause) {
  for (auto& [instance, row] : rows_) row.wanted = cause;
}

void Scheduler::requestAllAfterClockChange() {
  requestAll(Cause::clock);
  for (auto& [instance, row] : rows_) row.reloadedByDate.reset();
}

void Scheduler::retryFailed() {
  for (auto& [instance, row] : rows_) {
    if (row.hasFailed && !row.wanted && row.latest == row.settled) row.wanted = Cause::retry;
  }
}

std::vector<Ask> Scheduler::take(Instant now) {
  std::vector<Ask> asks;
  for (auto& [instance, row] : rows_) {
    if (row.plan.reload && *row.plan.reload <= now) {
      row.plan.reload.reset();
      row.reloadedByDate = now;
      if (!row.wanted) row.wanted = Cause::date;
    }
    if (!row.wanted) continue;
    row.lastCause = row.wanted;
    row.latest = ++serial_;
    if (row.wanted == Cause::person) row.awaited = serial_;
    asks.push_back({instance, *row.wanted, serial_, row.awaited > row.settled});
    row.wanted.reset();
  }
  return asks;
}

Scheduler::Row* Scheduler::settle(const Ask& ask) {
  const auto found = rows_.find(ask.instance);
  if (found == rows_.end() || ask.serial <= found->second.settled) return nullptr;
  found->second.settled = ask.serial;
  return &found->second;
}

bool Scheduler::answered(const Ask& ask, Plan plan) {
  Row* row = settle(ask);
  if (row == nullptr) return false;
  row->hasFailed = false;
  if (plan.reload && row->reloadedByDate) {
    const Instant earliest{row->reloadedByDate->seconds + kShortestInterval,
                           row->reloadedByDate->nanoseconds};
    plan.reload = std::max(*plan.reload, earliest);
  }
  row->plan = std::move(plan);
  return true;
}

bool Scheduler::failed(const Ask& ask) {
  Row* row = settle(ask);
  if (row == nullptr) return false;
  row->hasFailed = true;
  return true;
}

std::vector<std::string> Scheduler::takeSwaps(Instant now) {
  std::vector<std::string> instances;
  for (auto& [instance, row] : rows_) {
    const auto passed = std::ranges::upper_bound(row.plan.swaps, now);
    if (passed == row.plan.swaps.begin()) continue;
    row.plan.swaps.erase(row.plan.swaps.begin(), passed);
    instances.push_back(instance);
  }
  return instances;
}

std::optional<Instant> Scheduler::nextWake() const {
  std::optional<Instant> next;
  const auto consider = [&](Instant date) { next = next ? std::min(*next, date) : date; };
  for (const auto& [instance, row] : rows_) {
    if (row.plan.reload) consider(*row.plan.reload);
    if (!row.plan.swaps.empty()) consider(row.plan.swaps.front());
  }
  return next;
}

Scheduler::Outlook Scheduler::outlook(const std::string& instance) const {
  const auto found = rows_.find(instance);
  if (found == rows_.end()) return {};
  const Row& row = found->second;
  return {row.plan.reload, row.lastCause, row.latest > row.settled};
}

}  // namespace resident
