#include "Form.hpp"

#include <algorithm>
#include <array>
#include <regex>

namespace house {
namespace {

using Lines = std::vector<std::string_view>;

std::size_t indentOf(std::string_view line) {
  return std::min(line.find_first_not_of(' '), line.size());
}

bool beginsWithOneOf(std::string_view text, const auto& words) {
  return std::ranges::any_of(words, [&](std::string_view word) { return text.starts_with(word); });
}

bool beginsAStatement(std::string_view line, std::size_t indent) {
  constexpr std::array kOtherLines{std::string_view{"//"},
                                   std::string_view{"#"},
                                   std::string_view{"}"},
                                   std::string_view{"namespace"}};
  return indent < line.size() && indentOf(line) == indent &&
         !beginsWithOneOf(line.substr(indent), kOtherLines);
}

bool endsAStatement(std::string_view line) {
  return !line.empty() && std::string_view{";{}"}.find(line.back()) != std::string_view::npos;
}

enum class Block { none, type, function };

/// What the statement begins, if it ends in the opening brace of a block.
Block blockOf(const std::string& statement) {
  static const std::regex kType{R"(^(template <.*> ?)?(struct|class|union|enum) )"};
  static const std::regex kTable{R"((= |\{)\{$)"};
  if (!statement.ends_with('{')) return Block::none;
  if (std::regex_search(statement, kType)) return Block::type;
  const auto opened = std::ranges::count(statement, '(');
  // A call that a lambda is handed to is still open here.
  const bool isClosed = opened == std::ranges::count(statement, ')');
  const bool isTable = std::regex_search(statement, kTable);
  return opened > 0 && isClosed && !isTable ? Block::function : Block::none;
}

class Scan {
 public:
  explicit Scan(Lines lines) : lines_(std::move(lines)) {}

  std::vector<Function> take() {
    range(0, lines_.size(), 0);
    return std::move(found_);
  }

 private:
  [[nodiscard]] std::size_t endOf(std::size_t opening, std::size_t end, std::size_t indent) const {
    for (std::size_t at = opening + 1; at < end; ++at) {
      if (indentOf(lines_[at]) == indent && lines_[at].substr(indent).starts_with('}')) return at;
    }
    return end;
  }

  void range(std::size_t begin, std::size_t end, std::size_t indent) {
    constexpr std::size_t kStep = 2;
    for (std::size_t at = begin; at < end; ++at) {
      if (!beginsAStatement(lines_[at], indent)) continue;
      const std::size_t first = at;
      std::string statement{lines_[at].substr(indent)};
      while (at + 1 < end && !endsAStatement(lines_[at])) {
        ++at;
        statement += ' ';
        statement += lines_[at].substr(indentOf(lines_[at]));
      }
      const Block block = blockOf(statement);
      if (block == Block::none) continue;
      const std::size_t last = endOf(at, end, indent);
      if (block == Block::type) {
        range(at + 1, last, indent + kStep);
      } else {
        found_.push_back({first + 1, last - first + 1, std::string{lines_[first].substr(indent)}});
      }
      at = last;
    }
  }

  Lines lines_;
  std::vector<Function> found_;
};

/// Each match in that format.
std::vector<std::string> allMatches(std::string_view text,
                                    const std::regex& pattern,
                                    const char* format) {
  std::vector<std::string> found;
  const std::string all{text};
  for (std::sregex_iterator match{all.begin(), all.end(), pattern}; match != std::sregex_iterator{};
       ++match) {
    found.push_back(match->format(format));
  }
  return found;
}

}  // namespace

std::vector<Function> functionsIn(std::string_view text) {
  return Scan{linesOf(text)}.take();
}

std::vector<std::string> uncapitalizedTests(std::string_view text) {
  static const std::regex kTest{R"((^|\n)TEST(_[FP])?\(\s*(\w+),\s*([^A-Z\s]\w*)\s*\))"};
  return allMatches(text, kTest, "$3.$4");
}

std::vector<std::string> sleepsIn(std::string_view text) {
  static const std::regex kSleep{R"(\b((sleep_for|sleep_until|usleep|nanosleep|sleep)\())"};
  return allMatches(text, kSleep, "$1");
}

std::size_t columnsOf(std::string_view line) {
  return static_cast<std::size_t>(std::ranges::count_if(
      line, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; }));
}

std::vector<std::string_view> linesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    lines.push_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

}  // namespace house
