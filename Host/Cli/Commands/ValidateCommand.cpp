// `validate`: whether documents are accepted, what is wrong with them, and what the widgets will
// show.
#include <fmt/format.h>

#include "Cli/Commands/Commands.hpp"
#include "Cli/Output.hpp"
#include "Cli/Picture.hpp"
#include "Foundation/JsonWriter.hpp"
#include "Foundation/Printable.hpp"

namespace cli {
namespace {

using widgetruntime::DiagnoseAnswer;

std::string asJson(const std::string& file, const DiagnoseAnswer& answer) {
  foundation::JsonWriter json;
  json.beginObject()
      .member("file", file)
      .member("accepted", answer.accepted)
      .key("problems")
      .beginArray();
  for (const auto& problem : answer.problems) {
    json.beginObject().member("pointer", problem.pointer);
    json.member("line", static_cast<std::int64_t>(problem.line));
    json.member("column", static_cast<std::int64_t>(problem.column));
    json.member("expected", problem.expected).member("found", problem.found).endObject();
  }
  json.endArray().member("leftOut", static_cast<std::int64_t>(answer.leftOut));
  json.key("widgets").beginArray();
  for (const auto& widget : answer.widgets) {
    json.beginObject().member("kind", widget.kind).member("shows", widget.shows).endObject();
  }
  json.endArray().endObject();
  return json.take() + "\n";
}

std::string asText(const std::string& file, const DiagnoseAnswer& answer) {
  std::string text = fmt::format(
      "{}: {}\n", foundation::printable(file), answer.accepted ? "accepted" : "refused");
  for (const auto& problem : answer.problems) {
    std::string place =
        problem.line > 0 ? fmt::format("{}:{}: ", problem.line, problem.column) : std::string{};
    place += problem.pointer.empty() ? "the document" : problem.pointer;
    text += "  " +
            foundation::printable(
                fmt::format("{}: expected {}, found {}", place, problem.expected, problem.found)) +
            "\n";
  }
  if (answer.leftOut > 0) text += fmt::format("  and {} more\n", answer.leftOut);
  for (const auto& widget : answer.widgets)
    text += foundation::printable(fmt::format("  {}: {}", widget.kind, widget.shows)) + "\n";
  return text;
}

/// The extension may run elsewhere: paths are made absolute before it sees them.
std::string absolute(const std::string& file) {
  std::error_code ignored;
  const auto full = std::filesystem::absolute(file, ignored);
  return full.empty() ? file : full.string();
}

}  // namespace

Result<void> validate(const Options& options, const Program& program) {
  auto guest = Guest::open(options.source, program);
  if (!guest) return std::unexpected(guest.error());
  const auto device = deviceFrom(options.device, program.environment);
  std::size_t rejected = 0;
  for (const std::string& file : options.files) {
    const auto answer = said(
        guest->client().diagnose({.path = absolute(file), .text = std::nullopt, .device = device}));
    if (!answer) return std::unexpected(answer.error());
    if (!answer->accepted) ++rejected;
    if (auto done = print(options.json ? asJson(file, *answer) : asText(file, *answer)); !done)
      return done;
  }
  if (rejected == 0) return {};
  return refused(fmt::format("{} of {} documents refused", rejected, options.files.size()));
}

}  // namespace cli
