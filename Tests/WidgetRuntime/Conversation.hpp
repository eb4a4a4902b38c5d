// A conversation with a dispatcher over the tests' extension.
#pragma once

#include <gmock/gmock.h>

#include <string_view>

#include "FakeExtension.hpp"
#include "Tests/Support/Transcript.hpp"
#include "WidgetRuntime/Dispatcher.hpp"

namespace widgetruntime {

inline constexpr std::string_view kInitialize =
    R"({"jsonrpc":"2.0","id":0,"method":"initialize","params":{"protocolVersion":1}})";

inline void expectTranscript(std::string_view transcript, bool isInitialized = true) {
  Dispatcher dispatcher(testsupport::fake::definition());
  if (isInitialized) {
    ASSERT_THAT(dispatcher.handle(kInitialize), testing::HasSubstr("\"result\""));
  }
  const auto handle = [&](std::string_view request) { return dispatcher.handle(request); };
  EXPECT_EQ(testsupport::replay(transcript, handle), testsupport::joined(transcript));
}

}  // namespace widgetruntime
