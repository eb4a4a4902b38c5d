// What `validate` says of documents.

#include "Commands/CommandsFixture.hpp"

namespace cli {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST_P(Commands, ValidateAccepts) {
  const json answer = asked({"validate", kHousehold, "--json"});
  EXPECT_EQ(answer["file"], kHousehold);
  EXPECT_EQ(answer["accepted"], true);
  EXPECT_TRUE(answer["problems"].empty());
  EXPECT_EQ(answer["leftOut"], 0);
  ASSERT_EQ(answer["widgets"].size(), offeredKinds().size());
  EXPECT_EQ(answer["widgets"][0], json::parse(R"({"kind":"QuorvelCardLimitWidget",
                            "shows":"The remaining limit of 3 cards."})"));
}

TEST_P(Commands, ValidateSaysWhatTheWidgetsWillShow) {
  const Outcome outcome =
      run({"validate", example("minimal.json").string(), "--now", "2025-03-14T09:30:00Z"});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_THAT(outcome.out, StartsWith(example("minimal.json").string() + ": accepted\n"));
  for (const std::string& kind : offeredKinds()) {
    EXPECT_THAT(outcome.out, HasSubstr("  " + kind + ": "));
  }
}

TEST_P(Commands, ValidatePointsAtEveryProblem) {
  const TemporaryFolder folder;
  std::string text = contentsOf(example("minimal.json"));
  text.replace(text.find("\"en\""), 4, "7");
  text.replace(text.find("true"), 4, "\"x\"");
  const std::string file = folder.write("broken.json", text);
  const Outcome outcome = run({"validate", kHousehold, file, "--json"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.errors, HasSubstr("1 of 2 documents refused"));
  const json answer = json::parse(outcome.out.substr(outcome.out.find('\n') + 1), nullptr, false);
  EXPECT_EQ(answer["accepted"], false);
  ASSERT_EQ(answer["problems"].size(), 2u) << answer;
  // The document has one member per line, behind the brace's own line.
  EXPECT_EQ(answer["problems"][0]["pointer"], "/lang");
  EXPECT_EQ(answer["problems"][0]["line"], 4);
  EXPECT_EQ(answer["problems"][0]["column"], 10);
  EXPECT_EQ(answer["problems"][1]["pointer"], "/money/showDecimals");
}

TEST_P(Commands, ValidateSurvivesWhatIsNoDocument) {
  const TemporaryFolder folder;
  const std::string deep = folder.write("deep.json", std::string(100'000, '['));
  const std::string empty = folder.write("empty.json", "");
  const std::string bytes = folder.write("bytes.json", std::string("\xFF\x00\xFE{", 4));
  for (const std::string& file : {deep,
                                  empty,
                                  bytes,
                                  folder.path().string(),
                                  std::string("/dev/zero"),
                                  std::string("/nonexistent.json")}) {
    const Outcome outcome = run({"validate", file, "--json"});
    EXPECT_EQ(outcome.status, 1) << file;
    const json answer = json::parse(outcome.out, nullptr, false);
    EXPECT_EQ(answer["accepted"], false) << file;
    EXPECT_FALSE(answer["problems"].empty()) << file;
  }
}

TEST_P(Commands, ValidateCountsTheProblemsThatItDoesNotName) {
  const TemporaryFolder folder;
  std::string dues = "1";
  for (int i = 1; i < 1234; ++i) dues += ",1";
  std::string text = contentsOf(example("minimal.json"));
  text.replace(text.find("\"dues\": []"), 10, "\"dues\": [" + dues + "]");
  const Outcome outcome = run({"validate", folder.write("dues.json", text)});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(outcome.out, HasSubstr("/dues/99: expected object, found number\n  and 1134 more\n"));
}

}  // namespace
}  // namespace cli
