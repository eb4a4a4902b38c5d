// Each path of the board's server, and what it asks of the host.
#include <gmock/gmock.h>

#include "Surfaces/Web/BoardApi.hpp"

namespace surfaces {
namespace {

using testing::HasSubstr;

/// Notes what it is asked in words, and refuses all of it when told to.
struct FakeHost : BoardHost {
  std::vector<std::string> asked;
  std::optional<std::string> refusal;
  bool hasPicture = true;

  template <class T>
  void answer(const std::string& question, const Then<T>& then, T value) {
    asked.push_back(question);
    if (refusal) return then(std::unexpected(*refusal));
    then(std::move(value));
  }
  Answer<void> done(const std::string& question) {
    asked.push_back(question);
    if (refusal) return std::unexpected(*refusal);
    return {};
  }
  [[nodiscard]] BoardPicture picture() const {
    BoardPicture result{.version = 3};
    if (!hasPicture) return result;
    auto drawn = std::make_shared<Picture>();
    drawn->text = "<svg/>";
    result.shown.picture = drawn;
    return result;
  }

  BoardState state() override { return {.container = "/container"}; }
  void draw(const std::string& id, const BoardView& view, Then<BoardPicture> then) override {
    answer("draw " + id + (view.hidesAmounts ? " hidden" : ""), then, picture());
  }
  void preview(const Subject& subject, const BoardView&, Then<BoardPicture> then) override {
    std::string question = "preview " + subject.kind;
    for (const auto& [name, value] : subject.configuration) question += " " + name + "=" + value;
    answer(question, then, picture());
  }
  void png(const std::string& id, const BoardView&, Then<std::string> then) override {
    answer("png " + id, then, std::string("PNG"));
  }
  void options(const OptionsQuestion& question, Then<widgetruntime::OptionsAnswer> then) override {
    answer("options " + question.kind + " " + question.parameter + " '" + question.words + "' '" +
               question.id + "'",
           then,
           {});
  }
  void perform(const std::string& intent, Then<void> then) override {
    then(done("perform " + intent));
  }
  Answer<std::string> add(const BoardCard& card) override {
    if (auto added = done("add " + card.subject.kind + " at " + std::to_string(card.column) + "," +
                          std::to_string(card.row));
        !added)
      return std::unexpected(added.error());
    return "w9";
  }
  Answer<void> remove(const std::string& id) override { return done("remove " + id); }
  Answer<void> configure(const Subject& subject) override {
    return done("configure " + subject.id);
  }
  Answer<void> move(const std::vector<BoardMove>& moves) override {
    std::string question = "move";
    for (const auto& [id, column, row] : moves)
      question += " " + id + " " + std::to_string(column) + "," + std::to_string(row);
    return done(question);
  }
  Answer<void> reload(const std::string& id) override { return done("reload '" + id + "'"); }
  void hide(bool hides) override { asked.push_back(hides ? "hide" : "show"); }
  void open(const std::string& id, std::optional<std::size_t> region, Then<void> then) override {
    then(done("open " + id + (region ? " " + std::to_string(*region) : "")));
  }
};

class BoardApiTest : public testing::Test {
 protected:
  WebReply ask(const WebRequest& request) {
    std::optional<WebReply> result;
    api.handle(request, [&](WebReply reply) { result = std::move(reply); });
    EXPECT_TRUE(result) << request.path;
    return result.value_or(WebReply{});
  }
  WebReply get(const std::string& path, std::map<std::string, std::string> query = {}) {
    return ask({.method = "GET", .path = path, .query = std::move(query)});
  }
  WebReply post(const std::string& path, const std::string& body) {
    return ask({.method = "POST", .path = path, .body = body});
  }

  FakeHost host;
  BoardApi api{host};
};

TEST_F(BoardApiTest, AnswersQuestions) {
  EXPECT_THAT(get("/state").body, HasSubstr(R"("container":"/container")"));
  EXPECT_THAT(get("/widget/w1", {{"privacy", "hidden"}}).body, HasSubstr(R"("svg":"<svg/>")"));
  EXPECT_EQ(get("/preview",
                {{"kind", "K"}, {"family", "systemSmall"}, {"configuration", R"({"card":"c"})"}})
                .status,
            200);
  EXPECT_EQ(
      get("/options", {{"kind", "K"}, {"parameter", "card"}, {"query", "vi"}, {"id", "c"}}).status,
      200);
  EXPECT_EQ(
      host.asked,
      (std::vector<std::string>{"draw w1 hidden", "preview K card=c", "options K card 'vi' 'c'"}));
}

TEST_F(BoardApiTest, OffersPicturesForDownload) {
  const WebReply svg = get("/widget/w1.svg");
  EXPECT_EQ(svg.type, "image/svg+xml");
  EXPECT_EQ(svg.body, "<svg/>");
  EXPECT_EQ(svg.fileName, "widget.svg");
  const WebReply png = get("/widget/w1.png");
  EXPECT_EQ(png.type, "image/png");
  EXPECT_EQ(png.body, "PNG");
  EXPECT_EQ(png.fileName, "widget.png");
  host.hasPicture = false;
  EXPECT_EQ(get("/widget/w1.svg").status, 404);
}

TEST_F(BoardApiTest, DoesWhatAPersonAsks) {
  EXPECT_EQ(post("/add", R"({"kind":"K","family":"systemSmall","column":2,"row":1})").body,
            R"({"id":"w9"})");
  for (const auto& [path, body] : std::initializer_list<std::pair<const char*, const char*>>{
           {"/remove", R"({"id":"w1"})"},
           {"/configure", R"({"id":"w1","family":"systemSmall"})"},
           {"/move",
            R"({"cells":[{"id":"w1","column":2,"row":3},{"id":"w2","column":0,"row":0}]})"},
           {"/reload", "{}"},
           {"/reload", R"({"id":"w1"})"},
           {"/hide", R"({"hidden":true})"},
           {"/hide", R"({"hidden":false})"},
           {"/open", R"({"id":"w1"})"},
           {"/open", R"({"id":"w1","region":2})"},
           {"/perform", R"({"intent":"I"})"}}) {
    const WebReply reply = post(path, body);
    EXPECT_EQ(reply.status, 200) << path;
    EXPECT_EQ(reply.body, "{}") << path;
  }
  EXPECT_EQ(host.asked,
            (std::vector<std::string>{"add K at 2,1",
                                      "remove w1",
                                      "configure w1",
                                      "move w1 2,3 w2 0,0",
                                      "reload ''",
                                      "reload 'w1'",
                                      "hide",
                                      "show",
                                      "open w1",
                                      "open w1 2",
                                      "perform I"}));
}

TEST_F(BoardApiTest, SaysWhatARequestLacks) {
  for (const auto& [path, member] :
       std::initializer_list<std::pair<const char*, const char*>>{{"/add", "kind"},
                                                                  {"/remove", "id"},
                                                                  {"/configure", "id"},
                                                                  {"/move", "cells"},
                                                                  {"/hide", "hidden"},
                                                                  {"/open", "id"},
                                                                  {"/perform", "intent"}}) {
    const WebReply reply = post(path, "{}");
    EXPECT_EQ(reply.status, 400) << path;
    EXPECT_EQ(reply.body, std::string(R"({"error":"the request lacks \")") + member + R"(\""})");
  }
  EXPECT_EQ(post("/add", R"({"kind":"K"})").status, 400);
  EXPECT_EQ(post("/hide", "no JSON").status, 400);
  EXPECT_TRUE(host.asked.empty());
}

TEST_F(BoardApiTest, HandsOnWhatTheHostRefuses) {
  host.refusal = "there is no such widget";
  const std::string body = R"({"error":"there is no such widget"})";
  for (const WebReply& reply : {get("/widget/w1"),
                                get("/widget/w1.png"),
                                get("/preview", {{"kind", "K"}, {"family", "systemSmall"}}),
                                get("/options"),
                                post("/remove", R"({"id":"w1"})"),
                                post("/open", R"({"id":"w1"})"),
                                post("/perform", R"({"intent":"I"})"),
                                post("/add", R"({"kind":"K","family":"systemSmall"})")}) {
    EXPECT_GE(reply.status, 400);
    EXPECT_EQ(reply.body, body);
  }
}

TEST_F(BoardApiTest, KnowsNoOtherPaths) {
  EXPECT_EQ(get("/").status, 404);
  EXPECT_EQ(get("/hide").status, 404);
  EXPECT_EQ(post("/state", "{}").status, 404);
  EXPECT_EQ(post("/widget/w1", "{}").status, 404);
}

TEST_F(BoardApiTest, RefusesViewsThatDoNotExist) {
  for (const char* path : {"/widget/w1", "/widget/w1.png", "/preview"})
    EXPECT_EQ(get(path, {{"mode", "sepia"}}).status, 400) << path;
  EXPECT_EQ(get("/preview", {{"kind", "K"}}).status, 400);
  EXPECT_EQ(
      get("/preview", {{"kind", "K"}, {"family", "systemSmall"}, {"configuration", "[]"}}).status,
      400);
  EXPECT_TRUE(host.asked.empty());
}

TEST_F(BoardApiTest, TellsWhetherAPageIsOpen) {
  std::vector<bool> told;
  api.onWatched = [&](bool isWatched) { told.push_back(isWatched); };
  api.watched(true);
  api.watched(false);
  EXPECT_EQ(told, (std::vector<bool>{true, false}));
}

}  // namespace
}  // namespace surfaces
