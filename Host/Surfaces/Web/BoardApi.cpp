#include "Surfaces/Web/BoardApi.hpp"

#include <utility>

#include "Foundation/JsonWriter.hpp"
#include "Surfaces/Web/BoardJson.hpp"

namespace surfaces {
namespace {

constexpr int kRefused = 400;
constexpr int kNotFound = 404;

WebReply refusal(std::string_view line, int status = kRefused) {
  return {status, "application/json", errorJson(line), {}};
}

WebReply done(std::string json = "{}") {
  return {200, "application/json", std::move(json), {}};
}

std::string idJson(const std::string& id) {
  foundation::JsonWriter json;
  json.beginObject().member("id", id).endObject();
  return json.take();
}

WebReply replyOf(const BoardHost::Answer<void>& answer) {
  return answer ? done() : refusal(answer.error());
}

using Answer = BoardHost::Answer<WebReply>;

std::unexpected<std::string> lacks(std::string_view member) {
  return std::unexpected("the request lacks \"" + std::string(member) + "\"");
}

Answer add(BoardHost& host, const BoardChange& change) {
  if (!change.kind) return lacks("kind");
  if (!change.family) return lacks("family");
  const auto id = host.add(
      {{.kind = *change.kind, .family = *change.family, .configuration = change.configuration},
       change.column.value_or(0),
       change.row.value_or(0)});
  if (!id) return std::unexpected(id.error());
  return done(idJson(*id));
}

Answer configure(BoardHost& host, const BoardChange& change) {
  if (!change.id) return lacks("id");
  if (!change.family) return lacks("family");
  return replyOf(host.configure(
      {.id = *change.id, .family = *change.family, .configuration = change.configuration}));
}

Answer move(BoardHost& host, const BoardChange& change) {
  if (!change.cells) return lacks("cells");
  return replyOf(host.move(*change.cells));
}

Answer remove(BoardHost& host, const BoardChange& change) {
  if (!change.id) return lacks("id");
  return replyOf(host.remove(*change.id));
}

Answer reload(BoardHost& host, const BoardChange& change) {
  return replyOf(host.reload(change.id.value_or("")));
}

Answer hide(BoardHost& host, const BoardChange& change) {
  if (!change.hidden) return lacks("hidden");
  host.hide(*change.hidden);
  return done();
}

/// What answers at once.
constexpr std::pair<std::string_view, Answer (*)(BoardHost&, const BoardChange&)> kChanges[] = {
    {"/add", add},
    {"/remove", remove},
    {"/configure", configure},
    {"/move", move},
    {"/reload", reload},
    {"/hide", hide},
};

/// Cuts what it ends with; false when it ends otherwise.
bool cutEnd(std::string_view& text, std::string_view end) {
  if (!text.ends_with(end)) return false;
  text.remove_suffix(end.size());
  return true;
}

}  // namespace

void BoardApi::handle(const WebRequest& request, Respond respond) {
  if (request.method == "POST") {
    change(request, respond);
  } else {
    answerQuestion(request, respond);
  }
}

void BoardApi::answerQuestion(const WebRequest& request, const Respond& respond) {
  constexpr std::string_view kWidget = "/widget/";
  if (request.path == "/state") return respond(done(stateJson(host_.state())));
  if (request.path == "/preview") return answerPreview(request, respond);
  if (request.path.starts_with(kWidget))
    return answerWidget(request, std::string_view(request.path).substr(kWidget.size()), respond);
  if (request.path != "/options") return respond(refusal("There is nothing here.", kNotFound));
  host_.options({.kind = request.value("kind"),
                 .parameter = request.value("parameter"),
                 .words = request.value("query"),
                 .id = request.value("id")},
                [respond](const auto& answer) {
                  respond(answer ? done(optionsJson(*answer)) : refusal(answer.error()));
                });
}

void BoardApi::answerWidget(const WebRequest& request,
                            std::string_view name,
                            const Respond& respond) {
  const auto view = readView(request.query);
  if (!view) return respond(refusal(view.error()));
  if (cutEnd(name, ".png")) {
    return host_.png(std::string(name), *view, [respond](const auto& png) {
      respond(png ? WebReply{200, "image/png", *png, "widget.png"} : refusal(png.error()));
    });
  }
  const bool isDownload = cutEnd(name, ".svg");
  const std::string id(name);
  host_.draw(id, *view, [respond, id, isDownload](const auto& picture) {
    if (!picture) return respond(refusal(picture.error(), kNotFound));
    if (!isDownload) return respond(done(pictureJson(id, *picture)));
    const auto& drawn = picture->shown.picture;
    respond(drawn ? WebReply{200, "image/svg+xml", drawn->text, "widget.svg"}
                  : refusal("There is no picture of it yet.", kNotFound));
  });
}

void BoardApi::answerPreview(const WebRequest& request, const Respond& respond) {
  const auto view = readView(request.query);
  if (!view) return respond(refusal(view.error()));
  const auto family = widgetruntime::named<widgetruntime::WidgetFamily>(request.value("family"));
  if (!family) return respond(refusal("family: expected a family's name"));
  Subject subject{.kind = request.value("kind"), .family = *family};
  if (const std::string text = request.value("configuration"); !text.empty()) {
    auto configuration = readConfiguration(text);
    if (!configuration) return respond(refusal(configuration.error()));
    subject.configuration = *std::move(configuration);
  }
  host_.preview(subject, *view, [respond](const auto& picture) {
    respond(picture ? done(pictureJson("", *picture)) : refusal(picture.error()));
  });
}

void BoardApi::change(const WebRequest& request, const Respond& respond) {
  const auto wanted = readChange(request.body);
  if (!wanted) return respond(refusal(wanted.error()));
  const auto then = [respond](const auto& answer) { respond(replyOf(answer)); };
  if (request.path == "/perform") {
    const auto& intent = wanted->intent;
    if (!intent) return respond(refusal(lacks("intent").error()));
    return host_.perform(*intent, then);
  }
  if (request.path == "/open") {
    const auto& id = wanted->id;
    if (!id) return respond(refusal(lacks("id").error()));
    return host_.open(*id, wanted->region, then);
  }
  for (const auto& [path, operation] : kChanges) {
    if (request.path != path) continue;
    const auto answer = operation(host_, *wanted);
    return respond(answer ? *answer : refusal(answer.error()));
  }
  respond(refusal("There is nothing here.", kNotFound));
}

}  // namespace surfaces
