// `options`: the choices that a widget's parameter has.
#include <fmt/format.h>

#include "Cli/Commands/Commands.hpp"
#include "Cli/Guest.hpp"
#include "Cli/Output.hpp"
#include "Foundation/JsonWriter.hpp"
#include "Foundation/Printable.hpp"

namespace cli {
namespace {

std::string asJson(const widgetruntime::OptionsAnswer& answer) {
  foundation::JsonWriter json;
  json.beginObject().key("options").beginArray();
  for (const auto& option : answer.options) {
    json.beginObject().member("id", option.id).member("title", option.title).endObject();
  }
  json.endArray().key("default");
  answer.defaultOption ? json.value(*answer.defaultOption) : json.null();
  json.member("more", answer.more).endObject();
  return json.take() + "\n";
}

std::string asText(const widgetruntime::OptionsAnswer& answer) {
  if (answer.options.empty() && !answer.more) return "there is nothing to choose from\n";
  std::string text;
  for (const auto& option : answer.options) {
    text += fmt::format("{}  {}{}\n",
                        foundation::printable(option.id),
                        foundation::printable(option.title),
                        option.id == answer.defaultOption ? "  (default)" : "");
  }
  if (answer.more) text += "... and more, which --configure takes by id as well\n";
  return text;
}

Result<void> checkParameter(const widgetruntime::WidgetListing& widget,
                            const std::string& parameter) {
  std::string names;
  if (widget.configuration) {
    for (const auto& known : widget.configuration->parameters) {
      if (known.name == parameter) return {};
      names += (names.empty() ? "" : ", ") + known.name;
    }
  }
  return refused(fmt::format("{} has no parameter \"{}\" ({})",
                             widget.description.kind,
                             parameter,
                             names.empty() ? "it has none" : "it has: " + names));
}

}  // namespace

Result<void> choices(const Options& options, const Program& program) {
  auto guest = Guest::open(options.source, program);
  if (!guest) return std::unexpected(guest.error());
  const auto widget = guest->widget(options.kind);
  if (!widget) return std::unexpected(widget.error());
  if (auto known = checkParameter(**widget, options.parameter); !known) return known;
  const auto answer = said(guest->client().options(
      {.kind = (*widget)->description.kind, .parameter = options.parameter, .query = {}}));
  if (!answer) return std::unexpected(answer.error());
  return print(options.json ? asJson(*answer) : asText(*answer));
}

}  // namespace cli
