// What a dispatcher refuses, and how it says so.
#include <string>

#include "Conversation.hpp"

namespace widgetruntime {
namespace {

using testing::HasSubstr;

TEST(Dispatcher, RefusesEnvelopesThatAreNoRequests) {
  expectTranscript(R"(
> {"jsonrpc":"2.0","id":1,"method":"widget/unknown","params":{}}
< {"jsonrpc":"2.0","id":1,"error":{"code":-32601,"message":"unknown method \"widget/unknown\""}}
---
> {"jsonrpc":"1.0","id":2,"method":"shutdown"}
< {"jsonrpc":"2.0","id":2,"error":{"code":-32600,"message":"/jsonrpc: expected \"2.0\""}}
---
> {"jsonrpc":"2.0","id":3}
< {"jsonrpc":"2.0","id":3,"error":{"code":-32600,"message":"/method: expected a short string"}}
---
> {"jsonrpc":"2.0","id":1.5,"method":"shutdown"}
< {"jsonrpc":"2.0","id":null,"error":{"code":-32600,
    "message":"/id: expected a whole number or a short string"}}
---
> []
< {"jsonrpc":"2.0","id":null,"error":{"code":-32600,"message":"/jsonrpc: expected \"2.0\""}}
---
> {"jsonrpc":"2.0","method":"$/cancelRequest","params":{"id":1}}
---
> {"jsonrpc":"2.0","method":"widget/unknown"}
)");
}

TEST(Dispatcher, RefusesTextsThatAreNoJson) {
  Dispatcher dispatcher(testsupport::fake::definition());
  const std::string deep = std::string(17, '[') + std::string(17, ']');
  for (const std::string& text : {std::string(),
                                  std::string("{"),
                                  std::string("{}x"),
                                  deep,
                                  std::string("{\"jsonrpc\":\"2.0\",\"id\":\"\xFF\"}")}) {
    EXPECT_THAT(dispatcher.handle(text), HasSubstr(R"("id":null,"error":{"code":-32700,)")) << text;
  }
}

TEST(Dispatcher, NamesTheParameterThatIsWrong) {
  struct Row {
    std::string parameters;
    std::string message;
  };
  const std::string device =
      R"("now":"2025-03-14T23:30:00Z","timeZone":"UTC","locale":"en","languages":[])";
  const auto families = [](const std::string& where) {
    return where +
           ": expected systemSmall, systemMedium, systemLarge, accessoryCircular, "
           "accessoryRectangular, accessoryInline";
  };
  const std::string small = R"("kind":"Clock","family":"systemSmall",)";
  const std::string start = small + device;
  const std::vector<Row> rows{
      {"", "/kind: missing"},
      {R"("kind":7)", "/kind: expected a string"},
      {R"("kind":"Clock")", "/family: missing"},
      {R"("kind":"Clock","family":"huge")", families("/family")},
      {small + R"("previewFamily":"x",)" + device, families("/previewFamily")},
      {small + R"("isPreview":1,)" + device, "/isPreview: expected true or false"},
      {small + R"("configuration":[],)" + device, "/configuration: expected an object"},
      {small + R"("configuration":{"a":1},)" + device, "/configuration/a: expected a string"},
      {small + R"("now":"today")", "/now: expected a date-time like 2025-03-14T09:30:00Z"},
      {start, "/environments: missing"},
      {start + R"(,"environments":{})", "/environments: expected an array"},
      {start + R"(,"environments":[1])", "/environments/0: expected an object"},
      {start + R"(,"environments":[{},{},{},{},{},{},{},{},{}])",
       "/environments: 9 elements, 8 are allowed"},
      {start + R"(,"environments":[{},{"renderingMode":"sepia"}])",
       "/environments/1/renderingMode: expected fullColor, accented, vibrant"},
      {start + R"(,"environments":[{"systemMargins":{"top":1}}])",
       "/environments/0/systemMargins/leading: missing"},
      {start + R"(,"environments":[{"layoutDirection":"up"}])",
       "/environments/0/layoutDirection: expected leftToRight, rightToLeft"},
      {R"("kind":"Nothing","family":"systemSmall","environments":[],)" + device,
       R"(unknown widget kind \"Nothing\")"},
      {R"("kind":")" + std::string(20000, 'k') + "\"", "/kind: 20000 bytes, 16384 are allowed"},
  };
  Dispatcher dispatcher(testsupport::fake::definition());
  ASSERT_THAT(dispatcher.handle(kInitialize), HasSubstr("\"result\""));
  for (const Row& row : rows) {
    const std::string request =
        R"({"jsonrpc":"2.0","id":1,"method":"widget/timeline","params":{)" + row.parameters + "}}";
    EXPECT_EQ(
        dispatcher.handle(request),
        R"({"jsonrpc":"2.0","id":1,"error":{"code":-32602,"message":")" + row.message + "\"}}");
  }
}

}  // namespace
}  // namespace widgetruntime
