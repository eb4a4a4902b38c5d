// Sample documents that must decode and ones that must not, and a schema that says the same of
// them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetSnapshot.hpp"
#include "SnapshotFixtures.hpp"

namespace quorvel {
namespace {

using nlohmann::json;
namespace fs = std::filesystem;

const fs::path kSource = QUORVEL_SOURCE_DIR;
const fs::path kDocuments = kSource / "Tests/WidgetSupport/documents";

std::vector<fs::path> documentsIn(const char* folder) {
  std::vector<fs::path> paths;
  for (const auto& entry : fs::directory_iterator(kDocuments / folder)) {
    paths.push_back(entry.path());
  }
  std::ranges::sort(paths);
  return paths;
}

std::string nameOf(const fs::path& path) {
  std::string name = path.stem().string();
  std::ranges::replace(name, '-', '_');
  return name;
}

/// The part of JSON Schema that the schema uses. A keyword that is not known here fails the test.
class SchemaChecker {
 public:
  explicit SchemaChecker(json schema) : root_(std::move(schema)) {}

  [[nodiscard]] bool accepts(const json& value) const { return matches(root_, value); }

 private:
  [[nodiscard]] bool matches(const json& schema, const json& value) const {
    for (const auto& [keyword, rule] : schema.items()) {
      if (!keywordHolds(keyword, rule, value)) return false;
    }
    return true;
  }

  [[nodiscard]] bool keywordHolds(const std::string& keyword,
                                  const json& rule,
                                  const json& value) const {
    static const std::set<std::string> kRemarks{"$schema", "title", "description", "$defs"};
    if (kRemarks.contains(keyword)) return true;
    if (keyword == "type") return isOfType(rule, value);
    if (keyword == "$ref") {
      return matches(root_.at(json::json_pointer(rule.get<std::string>().substr(1))), value);
    }
    if (keyword == "anyOf") {
      return std::ranges::any_of(rule, [&](const json& one) { return matches(one, value); });
    }
    if (keyword == "required") {
      return !value.is_object() ||
             std::ranges::all_of(rule, [&](const json& key) { return value.contains(key); });
    }
    if (keyword == "properties") return propertiesMatch(rule, value);
    if (keyword == "items") {
      return !value.is_array() ||
             std::ranges::all_of(value, [&](const json& item) { return matches(rule, item); });
    }
    if (keyword == "pattern") {
      return !value.is_string() ||
             std::regex_search(value.get<std::string>(), std::regex(rule.get<std::string>()));
    }
    ADD_FAILURE() << "unknown keyword " << keyword;
    return false;
  }

  [[nodiscard]] bool propertiesMatch(const json& properties, const json& value) const {
    if (!value.is_object()) return true;
    return std::ranges::all_of(properties.items(), [&](const auto& property) {
      return !value.contains(property.key()) || matches(property.value(), value.at(property.key()));
    });
  }

  static bool isOfType(const json& rule, const json& value) {
    if (rule.is_array()) {
      return std::ranges::any_of(rule, [&](const json& one) { return isOfType(one, value); });
    }
    const std::string name = rule.get<std::string>();
    if (name == "number") return value.is_number();
    return name == value.type_name();  // object, array, string, boolean, null
  }

  json root_;
};

const SchemaChecker& schema() {
  static const SchemaChecker checker(
      json::parse(testsupport::contentsOf(kSource / "docs/widget-snapshot.schema.json")));
  return checker;
}

/// What a schema can say: the text is JSON, and the value has the form.
bool schemaAccepts(const std::string& text) {
  const json value = json::parse(text, nullptr, false);
  return !value.is_discarded() && schema().accepts(value);
}

class SnapshotAcceptedDocument : public testing::TestWithParam<fs::path> {};

TEST_P(SnapshotAcceptedDocument, DecodesAndFitsTheSchema) {
  const std::string text = testsupport::contentsOf(GetParam());
  const auto snapshot = decodeWidgetSnapshot(text);
  EXPECT_TRUE(snapshot) << snapshot.error().problems.front().pointer << ": "
                        << snapshot.error().problems.front().found;
  EXPECT_TRUE(schemaAccepts(text));
}

TEST_P(SnapshotAcceptedDocument, SurvivesEncoding) {
  const auto snapshot = decodeWidgetSnapshot(testsupport::contentsOf(GetParam()));
  ASSERT_TRUE(snapshot);
  const std::string written = encodeWidgetSnapshot(*snapshot);
  EXPECT_EQ(decodeWidgetSnapshot(written), snapshot);
  EXPECT_TRUE(schemaAccepts(written));
}

INSTANTIATE_TEST_SUITE_P(Samples,
                         SnapshotAcceptedDocument,
                         testing::ValuesIn(documentsIn("accepted")),
                         [](const auto& test) { return nameOf(test.param); });

class SnapshotRejectedDocument : public testing::TestWithParam<fs::path> {};

TEST_P(SnapshotRejectedDocument, IsRejectedWithAReason) {
  const auto snapshot = decodeWidgetSnapshot(testsupport::contentsOf(GetParam()));
  ASSERT_FALSE(snapshot);
  ASSERT_FALSE(snapshot.error().problems.empty());
  const foundation::JsonProblem& problem = snapshot.error().problems.front();
  EXPECT_GE(problem.line, 1U);
  EXPECT_GE(problem.column, 1U);
  EXPECT_FALSE(problem.expected.empty());
}

TEST_P(SnapshotRejectedDocument, DoesNotFitTheSchemaEither) {
  // A schema knows neither the calendar nor which of two equal keys is read.
  const std::set<std::string> beyondASchema{"day_that_does_not_exist",
                                            "first_of_equal_keys_counts"};
  EXPECT_EQ(schemaAccepts(testsupport::contentsOf(GetParam())),
            beyondASchema.contains(nameOf(GetParam())));
}

INSTANTIATE_TEST_SUITE_P(Samples,
                         SnapshotRejectedDocument,
                         testing::ValuesIn(documentsIn("rejected")),
                         [](const auto& test) { return nameOf(test.param); });

TEST(SnapshotDocuments, ThereAreSamplesOfBothKinds) {
  EXPECT_GE(documentsIn("accepted").size(), 12U);
  EXPECT_GE(documentsIn("rejected").size(), 12U);
}

TEST(SnapshotDocuments, ExamplesOfTheManualAreAccepted) {
  const std::string manual = testsupport::contentsOf(kSource / "docs/snapshot.md");
  const std::string fence = "```json\n";
  std::size_t examples = 0;
  for (std::size_t at = manual.find(fence); at != std::string::npos;
       at = manual.find(fence, at + 1)) {
    const std::size_t start = at + fence.size();
    const std::string text = manual.substr(start, manual.find("```", start) - start);
    EXPECT_TRUE(decodeWidgetSnapshot(text)) << text;
    EXPECT_TRUE(schemaAccepts(text)) << text;
    ++examples;
  }
  EXPECT_GE(examples, 2U);
}

/// The schema's properties of a definition ("" is the root) and which of them it requires.
std::map<std::string, bool> schemaKeys(const json& whole, const std::string& definition) {
  const json& object = definition.empty() ? whole : whole.at("$defs").at(definition);
  std::map<std::string, bool> keys;
  for (const auto& [key, rule] : object.at("properties").items()) keys[key] = false;
  for (const json& key : object.at("required")) keys.at(key) = true;
  return keys;
}

template <class Record>
std::map<std::string, bool> recordKeys() {
  std::map<std::string, bool> keys;
  for (const foundation::JsonField& field : Record::jsonFields()) {
    keys[std::string(field.key)] = field.required;
  }
  return keys;
}

TEST(SnapshotDocuments, SchemaListsTheKeysOfTheRecords) {
  const json whole =
      json::parse(testsupport::contentsOf(kSource / "docs/widget-snapshot.schema.json"));
  EXPECT_EQ(schemaKeys(whole, ""), recordKeys<WidgetSnapshot>());
  EXPECT_EQ(schemaKeys(whole, "moneyStyle"), recordKeys<WidgetMoneyStyle>());
  EXPECT_EQ(schemaKeys(whole, "due"), recordKeys<WidgetSnapshot::Due>());
  EXPECT_EQ(schemaKeys(whole, "card"), recordKeys<WidgetSnapshot::Card>());
  EXPECT_EQ(schemaKeys(whole, "budget"), recordKeys<WidgetSnapshot::Budget>());
  EXPECT_EQ(schemaKeys(whole, "spending"), recordKeys<WidgetSnapshot::Spending>());
  EXPECT_EQ(schemaKeys(whole, "spendingMonth"), recordKeys<WidgetSnapshot::Spending::Month>());
  EXPECT_EQ(schemaKeys(whole, "netWorth"), recordKeys<WidgetSnapshot::NetWorth>());
  EXPECT_EQ(schemaKeys(whole, "netWorthPoint"), recordKeys<WidgetSnapshot::NetWorth::Point>());
  EXPECT_EQ(schemaKeys(whole, "accent"), recordKeys<WidgetSnapshot::Accent>());
  EXPECT_EQ(schemaKeys(whole, "shade"), recordKeys<WidgetSnapshot::Shade>());
}

}  // namespace
}  // namespace quorvel
