#include "Import/HledgerRunner.hpp"

#include <fmt/format.h>

#include <charconv>
#include <sstream>

#include "Import/HledgerErrors.hpp"

namespace importer {
namespace {

constexpr int kOldest = 1025;       // --layout=bare and tags that postings inherit from accounts
constexpr int kVerboseTags = 1030;  // from here on rules are not named in comments unless asked
constexpr int kConfigFile = 1040;   // from here on a file may add options
constexpr int kDaysAhead = 60;
constexpr std::size_t kLongestList = std::size_t{4} << 20;

auto boundedList(std::string& text) {
  return [&text](std::string_view piece) {
    text += piece;
    return text.size() <= kLongestList;
  };
}

}  // namespace

HledgerRunner::HledgerRunner(const JournalRequest& request)
    : request_(request), environment_(request.environment), journal_(request.file) {
  // A journal with a currency sign cannot be read under the C locale.
  environment_["LC_ALL"] = "C.UTF-8";
  environment_.erase("LANGUAGE");
  if (!journal_.empty()) return;
  const auto set = environment_.find("LEDGER_FILE");
  const bool isSet = set != environment_.end() && !set->second.empty();
  journal_ = isSet ? set->second : "~/.hledger.journal";
}

Day HledgerRunner::end() const {
  return request_.today + kDaysAhead + 1;
}

std::vector<std::string> HledgerRunner::command(std::vector<std::string> words) const {
  std::vector<std::string> result{request_.program};
  if (version_ >= kConfigFile) result.emplace_back("--no-conf");
  result.insert(result.end(), words.begin(), words.end());
  if (!request_.file.empty()) result.insert(result.end(), {"-f", request_.file});
  return result;
}

// A forecast that begins on a later day of a month drifts to that day; assertions may not hold in
// it.
std::vector<std::string> HledgerRunner::withForecast(std::vector<std::string> words) const {
  const std::string year = text(monthOf(request_.today)).substr(0, 4);
  words.push_back(fmt::format("--forecast={}-01-01..{}", year, text(end())));
  words.emplace_back("-I");
  return words;
}

std::vector<std::string> HledgerRunner::withNamedForecast(std::vector<std::string> words) const {
  words = withForecast(std::move(words));
  if (version_ >= kVerboseTags) words.emplace_back("--verbose-tags");
  return words;
}

HledgerRun HledgerRunner::list(std::vector<std::string> words, std::string& text) const {
  HledgerRun run;
  run.process.command = command(std::move(words));
  run.process.output = boundedList(text);
  run.problem = [] { return std::string("is longer than any list of names"); };
  return run;
}

Result<void> HledgerRunner::runAll(std::vector<HledgerRun>& runs) const {
  std::vector<Subprocess> processes;
  processes.reserve(runs.size());
  for (HledgerRun& run : runs) processes.push_back(std::move(run.process));
  runSubprocesses(processes, environment_, request_.limits);
  for (std::size_t i = 0; i < runs.size(); ++i) {
    if (processes[i].outcome.isSuccess() && runs[i].finish()) continue;
    return std::unexpected(hledgerFailure(processes[i],
                                          runs[i].place.empty() ? journal_ : runs[i].place,
                                          versionText_,
                                          runs[i].problem()));
  }
  return {};
}

Result<std::string> HledgerRunner::readVersion() {
  std::string text;
  std::vector<HledgerRun> runs(1);
  runs[0].process.command = {request_.program, "--version"};
  runs[0].process.output = boundedList(text);
  if (auto done = runAll(runs); !done) return std::unexpected(done.error());
  const auto version = hledgerVersion(text);
  if (!version)
    return refused("`hledger --version` does not name a version; check that `hledger` is hledger");
  const std::string_view word = std::string_view(text).substr(sizeof "hledger");
  versionText_ = word.substr(0, word.find_first_of(", \n"));
  version_ = *version;
  if (version_ >= kOldest) return versionText_;
  return refused(fmt::format("hledger {} is too old: install 1.25 or later", versionText_));
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> result;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) result.push_back(std::move(line));
  return result;
}

std::optional<int> hledgerVersion(std::string_view text) {
  constexpr std::string_view kName = "hledger ";
  if (!text.starts_with(kName)) return std::nullopt;
  const char* const end = text.data() + text.size();
  int major = 0;
  int minor = 0;
  const auto [point, first] = std::from_chars(text.data() + kName.size(), end, major);
  if (first != std::errc{} || point == end || *point != '.') return std::nullopt;
  if (std::from_chars(point + 1, end, minor).ec != std::errc{}) return std::nullopt;
  constexpr int kMinors = 1000;  // of each major version, in one number
  if (major < 0 || major >= kMinors || minor < 0 || minor >= kMinors) return std::nullopt;
  return major * kMinors + minor;
}

}  // namespace importer
