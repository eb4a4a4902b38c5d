// What is asked over the control socket: written as it is read, with names that a person can type.
#include <gtest/gtest.h>

#include "Control/Requests.hpp"

namespace control {
namespace {

foundation::JsonDocument json(std::string_view text) {
  return foundation::parseJson(text).value_or(foundation::JsonDocument{});
}

template <class Request>
std::string problemOf(std::string_view text) {
  const auto request = read<Request>(json(text));
  return request ? "" : request.error();
}

TEST(ControlRequests, AreWrittenWithoutWhatTheyLack) {
  EXPECT_EQ(encode(ReloadRequest{}), "{}");
  EXPECT_EQ(encode(HideRequest{.hide = Hide::toggle}), R"({"hide":"toggle"})");
  EXPECT_EQ(encode(AddRequest{.kind = "due"}), R"({"kind":"due"})");
  EXPECT_EQ(encode(MoveRequest{.id = "w1", .column = 2}),
            R"({"id":"w1","surface":"board","column":2,"row":0})");
}

TEST(ControlRequests, AreReadAsTheyWereWritten) {
  const ConfigureRequest sent{.id = "w6",
                              .family = widgetruntime::WidgetFamily::systemMedium,
                              .configuration = widgetruntime::IntentValues{{"style", "ring"}}};
  const auto configured = read<ConfigureRequest>(json(encode(sent)));
  ASSERT_TRUE(configured) << configured.error();
  EXPECT_EQ(configured->id, sent.id);
  EXPECT_EQ(configured->family, sent.family);
  EXPECT_EQ(configured->configuration, sent.configuration);

  const auto opened = read<OpenRequest>(json(encode(OpenRequest{.target = "due", .region = 3})));
  ASSERT_TRUE(opened) << opened.error();
  EXPECT_EQ(opened->target, "due");
  EXPECT_EQ(opened->region, 3U);
}

TEST(ControlRequests, NeedNoParametersThatMayBeMissing) {
  const auto all = read<ReloadRequest>(foundation::JsonValue{});
  ASSERT_TRUE(all) << all.error();
  EXPECT_EQ(all->target, "");
}

TEST(ControlRequests, SayWhatIsWrongWhere) {
  EXPECT_EQ(problemOf<HideRequest>(R"({"hide":"perhaps"})"), "/hide: expected on, off, toggle");
  EXPECT_EQ(problemOf<HideRequest>("{}"), "/hide: missing");
  EXPECT_EQ(problemOf<MoveRequest>(R"({"id":"w1","surface":"wall","column":0,"row":0})"),
            "/surface: expected board, desktop");
  EXPECT_EQ(problemOf<MoveRequest>(R"({"id":"w1","surface":"board","column":0.5,"row":0})"),
            "/column: expected a whole number");
  EXPECT_EQ(problemOf<AddRequest>(R"({"kind":"due","configuration":{"card":1}})"),
            "/configuration/card: expected a string");
  EXPECT_EQ(problemOf<AddRequest>("[]"), "/: expected an object");
}

}  // namespace
}  // namespace control
