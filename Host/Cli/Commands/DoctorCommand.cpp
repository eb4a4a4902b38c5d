// `doctor`: what is found, what is missing, and what to do about it.
#include <fmt/format.h>

#include "Cli/Commands/Commands.hpp"
#include "Cli/HostRequest.hpp"
#include "Cli/Output.hpp"
#include "Cli/Picture.hpp"
#include "Foundation/JsonWriter.hpp"
#include "Foundation/Locale.hpp"
#include "Foundation/Printable.hpp"
#include "Rendering/Symbols/SymbolData.hpp"

namespace cli {
namespace {

namespace fs = std::filesystem;

struct Finding {
  std::string what;
  bool found = false;
  bool needed = true;  ///< pictures are wrong or absent without it
  std::string where;
  std::string advice;
};
using Findings = std::vector<Finding>;

void examineFonts(Findings& findings) {
  for (const auto& font : rendering::fontFiles()) {
    findings.push_back({.what = "font",
                        .found = font.found,
                        .needed = !font.optional,
                        .where = font.path,
                        .advice = font.found ? "" : "apt-get install " + font.package});
  }
}

/// They are built in; a table without rows is a broken build.
void examineSymbols(Findings& findings) {
  using rendering::symboldata::kIconCount;
  using rendering::symboldata::kNameCount;
  findings.push_back({.what = "symbols",
                      .found = kNameCount > 0 && kIconCount > 0,
                      .where = fmt::format("built in: {} names, {} icons", kNameCount, kIconCount),
                      .advice = "build again with the icon packages that ./dev installs"});
}

void examinePlaces(Findings& findings, const Options& options, const Program& program) {
  const session::Places places = findPlaces(options.source, program.folder);
  std::error_code ignored;
  findings.push_back({.what = "extension program",
                      .found = !places.extension.empty() && fs::exists(places.extension, ignored),
                      .needed = options.source.isolated,
                      .where = places.extension.string(),
                      .advice = "build or install quorvel-widgets, or name it with --extension; "
                                "without it, no --isolated"});
  const std::string problem = informationProblem(places.infoPlist);
  findings.push_back(
      {.what = "Info.plist",
       .found = problem.empty(),
       .needed = false,
       .where = places.infoPlist.string(),
       .advice = fmt::format("{}; name one with --info-plist; without it, the built-in group and "
                             "scheme are used",
                             problem)});
}

void examineTimeZone(Findings& findings, const Program& program) {
  const auto setting = foundation::timeZoneSetting(program.environment);
  std::string advice = "link /etc/localtime to a zone, or set TZ; until then it is UTC";
  if (!setting.ignored.empty())
    advice = fmt::format("TZ is \"{}\", which names no zone and is ignored", setting.ignored);
  findings.push_back(
      {.what = "time zone",
       .found = !setting.source.empty() && setting.ignored.empty(),
       .needed = false,
       .where = fmt::format("{} ({})",
                            setting.zone.identifier,
                            setting.source.empty() ? "nothing says otherwise" : setting.source),
       .advice = std::move(advice)});
}

void examineData(Findings& findings,
                 Guest& guest,
                 const Options& options,
                 const foundation::Device& device) {
  std::error_code ignored;
  const fs::path container = guest.about().container;
  findings.push_back(
      {.what = "container",
       .found = !container.empty() && fs::is_directory(container, ignored),
       .needed = options.source.snapshot.empty(),
       .where = container.string(),
       .advice =
           fmt::format("the application makes it, for the group {}; or name one with --container",
                       guest.about().appGroup)});
  const auto& document = guest.document();
  const bool exists = !document.empty() && fs::exists(document, ignored);
  const std::string problem = exists ? documentProblem(guest, device) : std::string{};
  findings.push_back(
      {.what = "document",
       .found = exists && problem.empty(),
       .where = document.string(),
       .advice = exists ? problem
                        : "the application writes it; `quorvel-host sample` writes one to try"});
}

void examineResidentHost(Findings& findings, const Program& program) {
  const auto socket = controlSocket(program);
  const auto status = askHost(program, "status", "{}");
  findings.push_back({.what = "resident host",
                      .found = status.has_value(),
                      .needed = false,
                      .where = socket.value_or(""),
                      .advice = status ? std::string{} : status.error().line});
  if (!status) return;
  const std::string problem = status->textOf("sessionProblem");
  findings.push_back({.what = "session lock",
                      .found = problem.empty(),
                      .needed = false,
                      .where = problem.empty() ? "amounts are hidden while it is locked" : "",
                      .advice = problem + "; amounts are hidden only by `quorvel-host hide on`"});
}

std::string asJson(const Findings& findings) {
  foundation::JsonWriter json;
  json.beginObject().key("findings").beginArray();
  for (const Finding& finding : findings) {
    json.beginObject().member("what", finding.what).member("found", finding.found);
    json.member("needed", finding.needed).member("where", finding.where);
    json.member("advice", finding.found ? std::string{} : finding.advice).endObject();
  }
  json.endArray().endObject();
  return json.take() + "\n";
}

std::string asText(const Findings& findings) {
  std::string text;
  for (const Finding& finding : findings) {
    const char* state = finding.found ? "found  " : finding.needed ? "MISSING" : "absent ";
    text +=
        foundation::printable(fmt::format(
            "{}  {:<18} {}", state, finding.what, finding.where.empty() ? "-" : finding.where)) +
        "\n";
    if (!finding.found) text += foundation::printable("         -> " + finding.advice) + "\n";
  }
  return text;
}

}  // namespace

Result<void> doctor(const Options& options, const Program& program) {
  Findings findings;
  examinePlaces(findings, options, program);
  examineTimeZone(findings, program);
  auto guest = Guest::open(options.source, program);
  findings.push_back({.what = options.source.isolated ? "extension, isolated" : "extension",
                      .found = guest.has_value(),
                      .where = guest ? fmt::format("{} widgets, {} controls",
                                                   guest->about().bundle.widgets.size(),
                                                   guest->about().bundle.controls.size())
                                     : std::string{},
                      .advice = guest ? std::string{} : guest.error().line});
  if (guest)
    examineData(findings, *guest, options, deviceFrom(options.device, program.environment));
  examineResidentHost(findings, program);
  examineSymbols(findings);
  examineFonts(findings);
  if (auto done = print(options.json ? asJson(findings) : asText(findings)); !done) return done;
  for (const Finding& finding : findings) {
    if (finding.needed && !finding.found)
      return refused(finding.what + " missing: " + finding.advice);
  }
  return {};
}

}  // namespace cli
