#include "Import/Settings.hpp"

#include <fmt/format.h>

// The library takes it for granted that "[" stands before a name, and ends the program otherwise,
// or goes astray where assertions are off. Here an assertion ends the parsing.
namespace importer {
struct TomlAssertion {};
[[noreturn]] static void failTomlAssertion() {
  throw TomlAssertion{};
}
}  // namespace importer
#undef NDEBUG
#define TOML_ASSERT(condition) ((condition) ? static_cast<void>(0) : importer::failTomlAssertion())
#include <toml++/toml.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <set>

#include "Foundation/FileManager.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"

namespace importer {
namespace {

constexpr std::size_t kLargestSettings = std::size_t{1} << 20;

/// The first problem that any reader of one document finds; the rest is read as if absent.
struct TomlProblems {
  std::string file;
  std::optional<std::string> first;

  void report(const toml::source_region& where, std::string_view why);
};

class TomlTable {
 public:
  TomlTable(const toml::table& table, std::string name, TomlProblems& problems)
      : table_(table), name_(std::move(name)), problems_(problems) {}

  std::optional<std::string> text(std::string_view key);
  std::optional<bool> boolean(std::string_view key);
  std::optional<Day> day(std::string_view key);
  std::optional<int> whole(std::string_view key, int least, int most);
  /// Above 0.
  std::optional<Decimal> amount(std::string_view key);
  std::vector<std::string> texts(std::string_view key);
  const toml::table* table(std::string_view key);
  const toml::array* tables(std::string_view key);

  /// To be called last: every key that was not asked for is a problem.
  void finish();

  [[nodiscard]] Place place() const;
  void report(const toml::node& node, std::string_view why) const;

 private:
  const toml::node* find(std::string_view key);
  void expected(std::string_view key, const toml::node& node, std::string_view what) const;

  const toml::table& table_;
  std::string name_;  ///< "budget", "[card]"; empty for the document
  TomlProblems& problems_;
  std::set<std::string, std::less<>> known_;
};

void TomlProblems::report(const toml::source_region& where, std::string_view why) {
  if (first) return;
  first = fmt::format("{}:{}:{}: {}", file, where.begin.line, where.begin.column, why);
}

const toml::node* TomlTable::find(std::string_view key) {
  known_.emplace(key);
  return table_.get(key);
}

void TomlTable::report(const toml::node& node, std::string_view why) const {
  problems_.report(node.source(), why);
}

void TomlTable::expected(std::string_view key,
                         const toml::node& node,
                         std::string_view what) const {
  report(node, fmt::format("{} must be {}", key, what));
}

std::optional<std::string> TomlTable::text(std::string_view key) {
  const toml::node* node = find(key);
  if (!node) return std::nullopt;
  const auto* value = node->as_string();
  if (!value) expected(key, *node, "a text in quotes");
  return value ? std::optional(value->get()) : std::nullopt;
}

std::optional<bool> TomlTable::boolean(std::string_view key) {
  const toml::node* node = find(key);
  if (!node) return std::nullopt;
  const auto* value = node->as_boolean();
  if (!value) expected(key, *node, "true or false");
  return value ? std::optional(value->get()) : std::nullopt;
}

std::optional<Day> TomlTable::day(std::string_view key) {
  const toml::node* node = find(key);
  if (!node) return std::nullopt;
  if (const auto* value = node->as_date()) {
    const toml::date date = value->get();
    return dayOf(date.year, date.month, date.day);
  }
  expected(key, *node, "a day such as 2026-03-14, without quotes");
  return std::nullopt;
}

std::optional<int> TomlTable::whole(std::string_view key, int least, int most) {
  const toml::node* node = find(key);
  if (!node) return std::nullopt;
  const auto* value = node->as_integer();
  if (value && value->get() >= least && value->get() <= most) return static_cast<int>(value->get());
  expected(key, *node, fmt::format("a whole number from {} to {}", least, most));
  return std::nullopt;
}

std::optional<Decimal> TomlTable::amount(std::string_view key) {
  const toml::node* node = find(key);
  if (!node) return std::nullopt;
  std::optional<Decimal> amount;
  if (const auto* whole = node->as_integer())
    amount = parseDecimal(fmt::format("{}", whole->get()));
  // The shortest text that reads back as the same number is the one that the person wrote.
  if (const auto* real = node->as_floating_point(); real && std::isfinite(real->get()))
    amount = parseDecimal(fmt::format("{}", real->get()));
  if (amount && *amount > Decimal{}) return amount;
  expected(key, *node, "an amount above 0, such as 1800 or 1800.50");
  return std::nullopt;
}

std::vector<std::string> TomlTable::texts(std::string_view key) {
  const toml::node* node = find(key);
  std::vector<std::string> result;
  if (!node) return result;
  const toml::array* values = node->as_array();
  if (!values || values->empty()) {
    expected(key, *node, "a list of texts, such as [\"first\", \"second\"]");
    return result;
  }
  for (const toml::node& one : *values) {
    if (const auto* value = one.as_string()) {
      result.push_back(value->get());
    } else {
      report(one, fmt::format("{} must hold texts in quotes only", key));
    }
  }
  return result;
}

const toml::table* TomlTable::table(std::string_view key) {
  const toml::node* node = find(key);
  if (!node) return nullptr;
  const toml::table* value = node->as_table();
  if (!value) expected(key, *node, fmt::format("a table: [{}]", key));
  return value;
}

const toml::array* TomlTable::tables(std::string_view key) {
  const toml::node* node = find(key);
  if (!node) return nullptr;
  const toml::array* value = node->as_array();
  if (value && value->is_array_of_tables()) return value;
  expected(key, *node, fmt::format("a list of tables: [[{}]]", key));
  return nullptr;
}

void TomlTable::finish() {
  for (const auto& [key, node] : table_) {
    if (known_.contains(key.str())) continue;
    std::string names;
    for (const std::string& name : known_) names += (names.empty() ? "" : ", ") + name;
    const std::string where = name_.empty() ? "here" : "in " + name_;
    problems_.report(
        key.source(),
        fmt::format(
            "unknown key {}; known {} are {}", fmt::format("\"{}\"", key.str()), where, names));
  }
}

Place TomlTable::place() const {
  const auto begin = table_.source().begin;
  return {begin.line, begin.column};
}

bool isColor(std::string_view text) {
  return text.size() == 7 && text[0] == '#' &&
         text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string_view::npos;
}

void checkColor(const std::optional<std::string>& color,
                const toml::table& table,
                std::string_view key,
                TomlProblems& problems) {
  const toml::node* node = table.get(key);
  if (color && node && !isColor(*color))
    problems.report(node->source(), fmt::format("{} must be a colour such as \"#315792\"", key));
}

CardSettings readCard(const toml::table& table, TomlProblems& problems) {
  TomlTable reader(table, "[[card]]", problems);
  CardSettings card;
  card.place = reader.place();
  card.account = reader.text("account").value_or("");
  card.bank = reader.text("bank");
  card.product = reader.text("product");
  card.last4 = reader.text("last4");
  card.limit = reader.amount("limit");
  card.dueDay = reader.whole("due-day", 1, 31);
  card.faces = reader.texts("faces");
  if (!std::ranges::all_of(card.faces, isColor))
    reader.report(*table.get("faces"), "faces must hold colours such as \"#315792\"");
  if (card.account.empty()) problems.report(table.source(), "a [[card]] needs its account");
  reader.finish();
  return card;
}

void readCards(const toml::array& tables, Settings& settings, TomlProblems& problems) {
  for (const toml::node& node : tables) {
    CardSettings card = readCard(*node.as_table(), problems);
    const bool isTwice = std::ranges::any_of(
        settings.cards, [&](const auto& c) { return c.account == card.account; });
    if (isTwice)
      problems.report(node.source(), fmt::format("a second [[card]] of \"{}\"", card.account));
    settings.cards.push_back(std::move(card));
  }
}

/// What begins with "-" would be an option.
std::vector<std::string> readQueries(TomlTable& reader, const toml::table& table, const char* key) {
  std::vector<std::string> queries = reader.texts(key);
  const auto isQuery = [](const std::string& text) { return !text.empty() && text[0] != '-'; };
  if (!std::ranges::all_of(queries, isQuery))
    reader.report(*table.get(key), fmt::format("{} must hold queries such as \"expenses\"", key));
  return queries;
}

void readAccounts(const toml::table& table, Settings& settings, TomlProblems& problems) {
  TomlTable reader(table, "[accounts]", problems);
  settings.spending = readQueries(reader, table, "spending");
  settings.exclude = readQueries(reader, table, "exclude");
  settings.liquid = readQueries(reader, table, "liquid");
  reader.finish();
}

void readBudget(const toml::table& table, Settings& settings, TomlProblems& problems) {
  TomlTable reader(table, "[budget]", problems);
  settings.budgetTotal = reader.amount("total");
  settings.budgetStartDay = reader.whole("start-day", 1, 28).value_or(1);
  reader.finish();
}

void readCategories(const toml::table& tables, Settings& settings, TomlProblems& problems) {
  for (const auto& [account, node] : tables) {
    const toml::table* table = node.as_table();
    if (!table) {
      problems.report(node.source(), "category must hold tables: [category.\"expenses:food\"]");
      continue;
    }
    TomlTable reader(*table, "[category]", problems);
    const CategorySettings category{.name = reader.text("name"),
                                    .icon = reader.text("icon"),
                                    .light = reader.text("light"),
                                    .dark = reader.text("dark")};
    checkColor(category.light, *table, "light", problems);
    checkColor(category.dark, *table, "dark", problems);
    reader.finish();
    settings.categories.emplace(account.str(), category);
  }
}

void readOpen(const toml::table& table, Settings& settings, TomlProblems& problems) {
  TomlTable reader(table, "[open]", problems);
  for (const std::string_view destination : kDestinations) {
    if (auto command = reader.text(destination))
      settings.open.emplace(destination, *std::move(command));
  }
  reader.finish();
}

void readDocument(const toml::table& document, Settings& settings, TomlProblems& problems) {
  TomlTable reader(document, "", problems);
  settings.language = reader.text("language");
  const auto isCode = [&](std::string_view code) { return code == settings.language; };
  if (settings.language && std::ranges::none_of(quorvel::kLanguageCodes, isCode)) {
    reader.report(
        *document.get("language"),
        fmt::format("language must be one of {}", fmt::join(quorvel::kLanguageCodes, ", ")));
  }
  settings.commodity = reader.text("commodity");
  settings.symbol = reader.text("symbol");
  settings.decimals = reader.boolean("decimals");
  settings.hidden = reader.boolean("hidden").value_or(false);
  settings.today = reader.day("today");
  if (const auto* table = reader.table("accounts")) readAccounts(*table, settings, problems);
  if (const auto* table = reader.table("budget")) readBudget(*table, settings, problems);
  if (const auto* tables = reader.tables("card")) readCards(*tables, settings, problems);
  if (const auto* table = reader.table("category")) readCategories(*table, settings, problems);
  if (const auto* table = reader.table("open")) readOpen(*table, settings, problems);
  reader.finish();
}

/// The line of the first table whose name does not begin like one.
int brokenTable(std::string_view toml) {
  int number = 1;
  for (; !toml.empty(); ++number) {
    const std::string_view line = toml.substr(0, toml.find('\n'));
    toml.remove_prefix(std::min(line.size() + 1, toml.size()));
    const auto start = line.find_first_not_of(" \t");
    if (start == std::string_view::npos || line[start] != '[') continue;
    const auto name = line.find_first_not_of("[ \t", start);
    const bool isDeep = line.substr(start).starts_with("[[[");
    const bool isName = name != std::string_view::npos && line[name] != ']' &&
                        (line[name] == '"' || line[name] == '\'' || line[name] == '-' ||
                         line[name] == '_' || std::isalnum(static_cast<unsigned char>(line[name])));
    if (isDeep || !isName) break;
  }
  return number;
}

}  // namespace

Result<Settings> parseSettings(std::string_view toml, const std::string& file) {
  TomlProblems problems{.file = file, .first = {}};
  toml::table document;
  try {
    document = toml::parse(toml, file);
  } catch (const toml::parse_error& error) {
    problems.report(error.source(), error.description());
  } catch (const TomlAssertion&) {
    problems.first =
        fmt::format("{}:{}: a table needs a name, in quotes or of letters, digits, - and _",
                    file,
                    brokenTable(toml));
  }
  if (problems.first) return refused(*problems.first);
  Settings settings;
  settings.file = file;
  readDocument(document, settings, problems);
  if (problems.first) return refused(*problems.first);
  return settings;
}

Result<Settings> readSettings(const std::string& file, Existence existence) {
  const auto text = foundation::readFile(file, kLargestSettings);
  if (text) return parseSettings(*text, file);
  if (text.error() == foundation::FileError::missing && existence == Existence::optional)
    return Settings{};
  return refused(fmt::format("{}: {}; `quorvel-import init` writes settings to start from",
                             file,
                             foundation::describe(text.error())));
}

}  // namespace importer
