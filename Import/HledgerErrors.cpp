#include "Import/HledgerErrors.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace importer {
namespace {

struct Reason {
  std::string_view sign;   ///< what hledger's message holds, in this or a later version
  std::string_view words;  ///< what we say
  std::string_view advice = {};
};
// The first that fits: the more particular ones stand in front.
constexpr Reason kReasons[] = {
    {"No existing files match", "an included file is missing"},
    {"was not found", "there is no such journal", "-f names another"},
    {"Cyclic include", "the file includes itself"},
    {"assertion", "a balance assertion fails"},
    {"could not balance", "an entry does not balance"},
    {"unbalanced", "an entry does not balance"},
    {"invalid date", "there is no such day"},
    {"not a first day", "a periodic rule does not start on the first day of its interval"},
    {"regular expression",
     "a query is no regular expression",
     "a backslash stands before a character that is meant as it is"},
    {"invalid byte sequence", "the text is not UTF-8"},
    {"permission denied", "there is no permission to read it"},
    {"Permission denied", "there is no permission to read it"},
    {"unexpected", "this is not journal syntax"},
};

std::string_view firstLine(std::string_view text) {
  return text.substr(0, text.find('\n'));
}

/// The number behind the first of `words`, as ":12".
std::string numberAfter(std::string_view text, std::string_view word) {
  const auto at = text.find(word);
  if (at == std::string_view::npos) return {};
  const std::string_view rest = text.substr(at + word.size());
  return ":" + std::string(rest.substr(0, rest.find_first_not_of("0123456789")));
}

Reason reasonFor(std::string_view errors) {
  const auto* found = std::ranges::find_if(
      kReasons, [&](const Reason& reason) { return errors.contains(reason.sign); });
  return found == std::end(kReasons) ? Reason{"", "hledger refuses it"} : *found;
}

/// "print" of the program's words: the first that is no option.
std::string reportOf(const Subprocess& run) {
  const auto word = std::find_if(run.command.begin() + 1, run.command.end(), [](const auto& text) {
    return !text.starts_with('-');
  });
  return word == run.command.end() ? std::string{} : *word;
}

}  // namespace

std::string errorPlace(std::string_view errors) {
  std::string_view line = firstLine(errors);
  const auto slash = line.find('/');
  if (slash == std::string_view::npos) return {};
  const bool isQuoted = slash > 0 && line[slash - 1] == '"';
  line.remove_prefix(slash);
  if (isQuoted) {
    // "FILE" (lines 1-3), "FILE" (line 2, column 9)
    const auto quote = line.find('"');
    std::string place{line.substr(0, quote)};
    const std::string_view rest = line.substr(std::min(quote, line.size()));
    const std::string lines = numberAfter(rest, "(lines ");
    return place + (lines.empty() ? numberAfter(rest, "(line ") : lines) +
           numberAfter(rest, "column ");
  }
  // FILE:4:1: and, in later versions, FILE:1-3:
  if (const auto colon = line.find(": "); colon != std::string_view::npos)
    line = line.substr(0, colon);
  while (line.ends_with(':')) line.remove_suffix(1);
  return std::string(line);
}

std::string_view errorReason(std::string_view errors) {
  return reasonFor(errors).words;
}

Failure hledgerFailure(const Subprocess& run,
                       const std::string& journal,
                       const std::string& version,
                       const std::string& problem) {
  const auto line = [](std::string text) { return Failure{ExitCode::refused, std::move(text)}; };
  const Outcome& outcome = run.outcome;
  switch (outcome.ending) {
    case Ending::missing:
      return line("hledger is not installed: sudo apt install hledger");
    case Ending::notStarted:
    case Ending::failed:
      return line(fmt::format("cannot run hledger: {}", std::strerror(outcome.status)));
    case Ending::tooSlow:
      return line(
          fmt::format("{}: hledger did not finish in time; try `hledger stats` yourself", journal));
    case Ending::tooMuch:
      return line(
          fmt::format("{}: hledger printed more than any journal needs; check that `hledger` "
                      "is the program that you expect",
                      journal));
    case Ending::declined:
    case Ending::exited:
      break;
  }
  if (outcome.ending == Ending::declined || outcome.status == 0) {
    return line(fmt::format("{}: the report of hledger {} {}; `hledger {} -O csv` shows it",
                            journal,
                            version,
                            problem.empty() ? "ends in the middle" : problem,
                            reportOf(run)));
  }
  const std::string place = errorPlace(outcome.errors);
  const Reason reason = reasonFor(outcome.errors);
  return line(fmt::format("{}: {}; {}",
                          place.empty() ? journal : place,
                          reason.words,
                          reason.advice.empty()
                              ? fmt::format("`hledger -f {} check` shows it", journal)
                              : reason.advice));
}

}  // namespace importer
