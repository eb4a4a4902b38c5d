// The asker of the running host: one thread that owns the extension and the breaker before it.
//
// The thread lives as long as this object: the child ends with the thread that started it.
#pragma once

#include <memory>

#include "Resident/Asker.hpp"
#include "Resident/Worker.hpp"
#include "Session/ExtensionClient.hpp"

namespace resident {

class ExtensionAsker : public Asker {
 public:
  ExtensionAsker(Loop& loop,
                 std::unique_ptr<session::Transport> transport,
                 widgetruntime::InitializeParameters parameters,
                 session::Deadlines deadlines = {});
  ~ExtensionAsker() override;

  [[nodiscard]] bool isIdle() { return worker_.isIdle(); }

  void initialize(Then<widgetruntime::InitializeAnswer> then) override;
  void timeline(Urgency urgency,
                std::string key,
                widgetruntime::EntriesParameters parameters,
                Then<widgetruntime::EntriesAnswer> then) override;
  void options(widgetruntime::OptionsParameters parameters,
               Then<widgetruntime::OptionsAnswer> then) override;
  void perform(widgetruntime::PerformParameters parameters,
               Then<widgetruntime::PerformAnswer> then) override;

 private:
  struct Child;  // belongs to the thread
  template <class T, class Call>
  void submit(Urgency urgency, std::string key, Call call, Then<T> then);

  std::unique_ptr<Child> child_;
  Worker worker_;
};

}  // namespace resident
