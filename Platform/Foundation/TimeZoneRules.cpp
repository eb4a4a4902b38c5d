// The TZif format of RFC 8536 and the POSIX rule in its footer. ICU has zones of its own, which
// lag behind the system's, and the C library's local time depends on the process's environment.
#include "Foundation/TimeZoneRules.hpp"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <utility>

#include "Foundation/Ascii.hpp"
#include "Foundation/CivilDate.hpp"
#include "Foundation/FileManager.hpp"

namespace foundation {
namespace {

constexpr std::string_view kDatabase = "/usr/share/zoneinfo/";
constexpr std::size_t kMaximumFile = 1 << 20;
constexpr std::int32_t kMaximumOffset = 26 * 3600;
constexpr std::size_t kMaximumIdentifier = 255;
constexpr std::size_t kShortestName = 3;
// Where a rule names a summer time and no days, the C library takes these.
constexpr std::string_view kChangesByDefault = ",M3.2.0,M11.1.0";

/// Big-endian fields, front to back; reads past the end give 0 and are remembered.
class Bytes {
 public:
  explicit Bytes(std::string_view rest) : rest_(rest) {}

  std::int64_t integer(std::size_t size) {
    const std::string_view field = take(size);
    std::uint64_t value = field.empty() || (field[0] & 0x80) == 0 ? 0 : ~std::uint64_t{0};
    for (const char c : field) value = value << 8 | static_cast<unsigned char>(c);
    return static_cast<std::int64_t>(value);
  }
  std::string_view take(std::size_t size) {
    if (size > rest_.size()) {
      isShort_ = true;
      return {};
    }
    const std::string_view front = rest_.substr(0, size);
    rest_.remove_prefix(size);
    return front;
  }
  [[nodiscard]] bool isShort() const { return isShort_; }
  [[nodiscard]] std::string_view rest() const { return rest_; }

 private:
  std::string_view rest_;
  bool isShort_ = false;
};

struct Header {
  char version = 0;
  std::size_t isUtCount = 0;
  std::size_t isStandardCount = 0;
  std::size_t leapCount = 0;
  std::size_t timeCount = 0;
  std::size_t typeCount = 0;
  std::size_t charCount = 0;

  [[nodiscard]] std::size_t bodySize(std::size_t timeSize) const {
    return timeCount * (timeSize + 1) + typeCount * 6 + charCount + leapCount * (timeSize + 4) +
           isStandardCount + isUtCount;
  }
};

std::optional<Header> readHeader(Bytes& bytes) {
  if (bytes.take(4) != "TZif") return std::nullopt;
  Header header;
  const std::string_view version = bytes.take(1);
  bytes.take(15);
  for (std::size_t* count : {&header.isUtCount,
                             &header.isStandardCount,
                             &header.leapCount,
                             &header.timeCount,
                             &header.typeCount,
                             &header.charCount}) {
    const std::int64_t value = bytes.integer(4);
    if (value < 0 || value > static_cast<std::int64_t>(kMaximumFile)) return std::nullopt;
    *count = static_cast<std::size_t>(value);
  }
  if (bytes.isShort() || header.typeCount == 0) return std::nullopt;
  header.version = version[0];
  return header;
}

/// Front-to-back reader of a POSIX TZ rule.
class RuleText {
 public:
  explicit RuleText(std::string_view text) : text_(text) {}

  [[nodiscard]] bool atEnd() const { return text_.empty(); }
  bool take(char c) {
    if (!text_.starts_with(c)) return false;
    text_.remove_prefix(1);
    return true;
  }
  bool takeName() {
    const bool quoted = take('<');
    std::size_t size = 0;
    while (size < text_.size() && (quoted ? text_[size] != '>' : isLetter(text_[size]))) ++size;
    text_.remove_prefix(size);
    return (!quoted || take('>')) && size >= kShortestName;
  }
  std::optional<int> takeNumber(int maximum) {
    if (text_.empty() || !isAsciiDigit(text_[0])) return std::nullopt;
    int value = 0;
    for (; !text_.empty() && isAsciiDigit(text_[0]); text_.remove_prefix(1)) {
      value = value * 10 + (text_[0] - '0');
      if (value > maximum) return std::nullopt;
    }
    return value;
  }
  /// [+-]h[h[h]][:mm[:ss]] in seconds.
  std::optional<std::int32_t> takeTime() {
    const bool isNegative = take('-');
    if (!isNegative) take('+');
    const auto hours = takeNumber(167);
    if (!hours) return std::nullopt;
    std::int32_t seconds = *hours * 3600;
    for (const std::int32_t unit : {60, 1}) {
      if (!take(':')) break;
      const auto part = takeNumber(59);
      if (!part) return std::nullopt;
      seconds += *part * unit;
    }
    return isNegative ? -seconds : seconds;
  }
  /// A time that is a zone's distance from UTC.
  std::optional<std::int32_t> takeOffset() {
    const auto seconds = takeTime();
    return seconds && std::abs(*seconds) <= kMaximumOffset ? seconds : std::nullopt;
  }
  std::optional<YearlyChange> takeChange() {
    YearlyChange change;
    if (!take(',') || !takeDay(change)) return std::nullopt;
    if (take('/')) {
      const auto time = takeTime();
      if (!time) return std::nullopt;
      change.secondOfDay = *time;
    }
    return change;
  }

 private:
  static bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

  bool takeDay(YearlyChange& change) {
    if (take('M')) {
      const auto month = takeNumber(12);
      if (!month || *month == 0 || !take('.')) return false;
      const auto week = takeNumber(5);
      if (!week || *week == 0 || !take('.')) return false;
      const auto day = takeNumber(6);
      if (!day) return false;
      change.month = *month;
      change.week = *week;
      change.day = *day;
      return true;
    }
    const bool isJulian = take('J');
    const auto day = takeNumber(365);
    if (!day || (isJulian && *day == 0)) return false;
    change.form = isJulian ? YearlyChange::Form::julianDay : YearlyChange::Form::zeroBasedDay;
    change.day = *day;
    return true;
  }

  std::string_view text_;
};

/// Wall time in seconds since 1970 as if the zone were UTC.
std::int64_t wallSeconds(const YearlyChange& change, std::int64_t year) {
  const std::int64_t newYear = daysFromCivil(year, 1, 1);
  std::int64_t day = newYear + change.day;
  if (change.form == YearlyChange::Form::julianDay) {
    // Counts 1...365 and never 29 February.
    const bool isLeap = daysFromCivil(year, 3, 1) - daysFromCivil(year, 2, 1) == 29;
    day += (isLeap && change.day >= 60 ? 1 : 0) - 1;
  } else if (change.form == YearlyChange::Form::weekdayOfMonth) {
    const std::int64_t first = daysFromCivil(year, change.month, 1);
    const std::int64_t end = daysFromCivil(year, change.month + 1, 1);
    day = first + floorMod(change.day - weekdayOf(first), 7) + 7 * (change.week - 1);
    if (day >= end) day -= 7;
  }
  return day * kSecondsOfDay + change.secondOfDay;
}

}  // namespace

std::optional<TimeZoneRules> TimeZoneRules::parseRule(std::string_view text,
                                                      std::string_view changesByDefault) {
  RuleText rule(text);
  if (!rule.takeName()) return std::nullopt;
  const auto west = rule.takeOffset();
  if (!west) return std::nullopt;
  TimeZoneRules rules;
  rules.firstOffset_ = -*west;
  if (rule.atEnd()) return rules;

  Yearly yearly{.standardOffset = -*west, .summerOffset = -*west + 3600};
  if (!rule.takeName()) return std::nullopt;
  const auto summerWest = rule.takeOffset();
  if (summerWest) yearly.summerOffset = -*summerWest;
  if (rule.atEnd()) rule = RuleText(changesByDefault);
  const auto toSummer = rule.takeChange();
  const auto toStandard = rule.takeChange();
  if (!toSummer || !toStandard || !rule.atEnd()) return std::nullopt;
  yearly.toSummer = *toSummer;
  yearly.toStandard = *toStandard;
  rules.yearly_ = yearly;
  return rules;
}

std::optional<TimeZoneRules> TimeZoneRules::parseRule(std::string_view rule) {
  return parseRule(rule, kChangesByDefault);
}

std::optional<TimeZoneRules> TimeZoneRules::parse(std::string_view file) {
  Bytes bytes(file);
  auto header = readHeader(bytes);
  if (!header) return std::nullopt;
  std::size_t timeSize = 4;
  if (header->version >= '2') {
    bytes.take(header->bodySize(4));
    header = readHeader(bytes);
    if (!header) return std::nullopt;
    timeSize = 8;
  }
  Bytes times(bytes.take(header->timeCount * timeSize));
  const std::string_view indices = bytes.take(header->timeCount);
  std::vector<std::int32_t> offsets;
  for (std::size_t i = 0; i < header->typeCount; ++i) {
    const std::int64_t offset = bytes.integer(4);
    bytes.take(2);
    if (offset < -kMaximumOffset || offset > kMaximumOffset) return std::nullopt;
    offsets.push_back(static_cast<std::int32_t>(offset));
    if (bytes.isShort()) return std::nullopt;
  }
  bytes.take(header->charCount);
  Bytes leaps(bytes.take(header->leapCount * (timeSize + 4)));
  bytes.take(header->isStandardCount + header->isUtCount);
  if (bytes.isShort()) return std::nullopt;

  TimeZoneRules rules;
  rules.firstOffset_ = offsets.front();
  std::int32_t offset = rules.firstOffset_;
  for (const char c : indices) {
    const auto index = static_cast<unsigned char>(c);
    const std::int64_t at = times.integer(timeSize);
    const bool isLater = rules.changes_.empty() || at > rules.changes_.back().at;
    if (index >= offsets.size() || !isLater) return std::nullopt;
    rules.changes_.push_back({at, offset, offsets[index]});
    offset = offsets[index];
  }
  if (timeSize == 8) {
    std::string_view footer = bytes.rest();
    if (footer.size() < 2 || footer.front() != '\n' || footer.back() != '\n') return std::nullopt;
    footer = footer.substr(1, footer.size() - 2);
    if (!footer.empty()) {
      const auto last = parseRule(footer, "");
      if (!last) return std::nullopt;
      rules.yearly_ = last->yearly_;
    }
  }
  for (std::size_t i = 0; i < header->leapCount; ++i) {
    const std::int64_t at = leaps.integer(timeSize);
    const std::int64_t correction = leaps.integer(4);
    if (!rules.addLeapSecond(at, static_cast<std::int32_t>(correction))) return std::nullopt;
  }
  return rules;
}

/// From here on the clock shows `correction` seconds less than without leap seconds.
bool TimeZoneRules::addLeapSecond(std::int64_t at, std::int32_t correction) {
  const std::int32_t step = correction - leapSeconds_;
  const bool isLater = leapSeconds_ == 0 || at > lastLeapSecond_;
  if (!isLater || std::abs(step) != 1) return false;
  auto next = std::ranges::lower_bound(changes_, at, {}, &ClockChange::at);
  if (next == changes_.end() || next->at != at) {
    const std::int32_t before = next == changes_.begin() ? firstOffset_ : std::prev(next)->after;
    next = changes_.insert(next, {at, before, before});
  }
  next->after -= step;
  for (++next; next != changes_.end(); ++next) {
    next->before -= step;
    next->after -= step;
  }
  if (yearly_) {
    yearly_->standardOffset -= step;
    yearly_->summerOffset -= step;
  }
  leapSeconds_ = correction;
  lastLeapSecond_ = at;
  return true;
}

std::optional<TimeZoneRules> TimeZoneRules::load(std::string_view identifier) {
  if (identifier == "UTC" || identifier == "GMT") return TimeZoneRules();
  if (identifier.empty() || identifier.size() > kMaximumIdentifier) return std::nullopt;
  if (identifier.front() == '/') {
    const auto file = contentsOfFile(std::string(identifier), kMaximumFile);
    return file ? parse(*file) : std::nullopt;
  }
  const auto isNameByte = [](char c) {
    return isAsciiLetterOrDigit(c) || c == '_' || c == '+' || c == '-' || c == '/';
  };
  // Without dots a name cannot leave the database's folder.
  if (std::ranges::all_of(identifier, isNameByte)) {
    const auto file = contentsOfFile(appendingPathComponent(kDatabase, identifier), kMaximumFile);
    if (auto rules = file ? parse(*file) : std::nullopt) return rules;
  }
  return parseRule(identifier);
}

void TimeZoneRules::appendYear(const Yearly& y, std::int64_t year, std::vector<ClockChange>& out) {
  // Each rule's wall time is that of the offset in force before it.
  ClockChange summer{
      wallSeconds(y.toSummer, year) - y.standardOffset, y.standardOffset, y.summerOffset};
  ClockChange standard{
      wallSeconds(y.toStandard, year) - y.summerOffset, y.summerOffset, y.standardOffset};
  if (standard.at < summer.at) std::swap(summer, standard);
  out.push_back(summer);
  out.push_back(standard);
}

std::vector<ClockChange> TimeZoneRules::changesBetween(std::int64_t from, std::int64_t to) const {
  std::vector<ClockChange> out;
  const auto first = std::ranges::upper_bound(changes_, from, {}, &ClockChange::at);
  for (auto change = first; change != changes_.end() && change->at <= to; ++change) {
    if (change->before != change->after) out.push_back(*change);
  }
  if (!yearly_ || (!changes_.empty() && to <= changes_.back().at)) return out;

  const std::int64_t start = changes_.empty() ? from : std::max(from, changes_.back().at);
  std::vector<ClockChange> yearly;
  const std::int64_t lastYear = civilFromDays(floorDiv(to, kSecondsOfDay)).year + 1;
  for (std::int64_t year = civilFromDays(floorDiv(start, kSecondsOfDay)).year - 1; year <= lastYear;
       ++year) {
    appendYear(*yearly_, year, yearly);
  }
  std::ranges::copy_if(yearly, std::back_inserter(out), [&](const ClockChange& change) {
    return change.at > start && change.at <= to && change.before != change.after;
  });
  return out;
}

std::int32_t TimeZoneRules::offsetAt(std::int64_t seconds) const {
  const bool isPastTable = changes_.empty() || seconds >= changes_.back().at;
  if (yearly_ && isPastTable) {
    constexpr std::int64_t kTwoYears = 2 * 366 * kSecondsOfDay;
    const auto recent = changesBetween(seconds - kTwoYears, seconds);
    if (!recent.empty()) return recent.back().after;
  }
  const auto next = std::ranges::upper_bound(changes_, seconds, {}, &ClockChange::at);
  return next == changes_.begin() ? firstOffset_ : std::prev(next)->after;
}

}  // namespace foundation
