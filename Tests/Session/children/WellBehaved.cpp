// The tests' extension as a process, with widgets that end, block or spoil it.
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <string>

#include "FakeExtension.hpp"
#include "WidgetRuntime/ExtensionMain.hpp"

namespace {

struct Provider {
  using Entry = testsupport::fake::Entry;
  void (*act)() = nullptr;
  Entry placeholder(const testsupport::fake::ProviderContext& context) const {
    act();
    return {context.device.now, testsupport::fake::documentOf(context), "after all"};
  }
  Entry getSnapshot(const testsupport::fake::ProviderContext& context) const {
    return placeholder(context);
  }
  widgetruntime::Timeline<Entry> getTimeline(
      const testsupport::fake::ProviderContext& context) const {
    return {{placeholder(context)}, {}};
  }
};

void crash() {
  ::kill(::getpid(), SIGKILL);
}
void hang() {
  while (true) ::pause();
}
void pauseBriefly() {
  ::usleep(150'000);
}
void print() {
  std::puts("Content-Length: 3\r\n\r\nstray");
  std::fflush(stdout);
}

widgetruntime::WidgetBundle makeBundle(const widgetruntime::InitializeParameters& parameters) {
  widgetruntime::WidgetBundle bundle = testsupport::fake::makeBundle(parameters);
  const auto add = [&](std::string kind, void (*act)()) {
    bundle.widgets.push_back(widgetruntime::makeStaticConfiguration(
        {.kind = std::move(kind)}, Provider{act}, testsupport::fake::body));
  };
  add("Crashing", crash);
  add("Hanging", hang);
  add("Late", pauseBriefly);
  add("Printing", print);
  return bundle;
}

}  // namespace

int main(int argc, char** argv) {
  return widgetruntime::NSExtensionMain(argc, argv, {makeBundle, testsupport::fake::diagnose});
}
