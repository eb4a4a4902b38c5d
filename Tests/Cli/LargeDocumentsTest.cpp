// Documents at the limits, through a child: an entry in time, never an error on the wire, and a
// diagnosis that stays small.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "CommandRunner.hpp"

namespace cli {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr std::size_t kMebibyte = std::size_t{1} << 20;

// One that nothing is wrong with: a value put in the place of `"dues": []` or the like, and the
// rest of the root's members.
std::string document(const std::string& key, const std::string& value) {
  std::string text =
      R"({"generatedAt":"2025-03-14T09:30:00Z","isHidden":false,"lang":"en",)"
      R"("money":{"symbol":"$","showDecimals":true},"totalLimit":1,"totalRemaining":1)";
  for (const char* list : {"dues", "cards"}) {
    if (key != list) text += std::string(",\"") + list + "\":[]";
  }
  return text + ",\"" + key + "\":" + value + "}";
}

std::string repeated(std::size_t count, const std::string& element) {
  std::string list = "[" + element;
  list.reserve(count * (element.size() + 1) + 2);
  for (std::size_t i = 1; i < count; ++i) (list += ',') += element;
  return list + "]";
}

std::string spending(std::size_t days) {
  return R"({"month":"2025-03","spent":10,"lastMonthSpent":10,"topCategoryAmount":0,"daily":)" +
         repeated(days, "1") + "}";
}

const std::string kDue =
    R"({"id":"d","name":"Rent","amount":5,"dueDate":"2025-03-20","kind":"bill"})";
const std::string kCard =
    R"({"id":"c","bankName":"Bank","productName":"Card","limit":5,"remaining":4,"gradient":[],)"
    R"("hasImage":false})";

Outcome render(const std::string& kind, const std::string& file) {
  return runHost({"render",
                  kind,
                  "--isolated",
                  "--snapshot",
                  file,
                  "--now",
                  "2025-03-14T09:30:00Z",
                  "--time-zone",
                  "UTC",
                  "--locale",
                  "en_US",
                  "--family",
                  "systemMedium",
                  "--format",
                  "text"});
}

struct Row {
  std::string name;
  std::string kind;
  std::string shows;
  std::string (*text)();
};

void PrintTo(const Row& row, std::ostream* out) {
  *out << row.name;
}

class LargeDocuments : public ::testing::TestWithParam<Row> {};

TEST_P(LargeDocuments, AreShown) {
  const TemporaryFolder folder;
  const std::string file = folder.write("document.json", GetParam().text());
  const Outcome outcome = render(GetParam().kind, file);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.errors, IsEmpty());
  EXPECT_THAT(outcome.out, HasSubstr(GetParam().shows));
}

INSTANTIATE_TEST_SUITE_P(
    Rows,
    LargeDocuments,
    ::testing::Values(Row{"dues",
                          "QuorvelDueWidget",
                          "Rent",
                          [] { return document("dues", repeated(200'000, kDue)); }},
                      Row{"cards",
                          "QuorvelCardLimitWidget",
                          "$4.00",
                          [] { return document("cards", repeated(200'000, kCard)); }},
                      Row{"days",
                          "QuorvelSpendingWidget",
                          "$10.00",
                          [] { return document("spending", spending(4 * kMebibyte)); }}),
    [](const auto& row) { return row.param.name; });

#if !defined(__SANITIZE_ADDRESS__)
// A timeline has more time than one entry: here every document counts, not how busy the machine is.
TEST(LargeDocument, UpToTheLimitIsReadAndKept) {
  const std::string padded = document("dues", "[]");
  const std::string rows[] = {
      padded + std::string(64 * kMebibyte - padded.size(), ' '),
      document("note", "\"" + std::string(63 * kMebibyte, 'x') + "\""),
      document("dues", repeated(64 * kMebibyte / (kDue.size() + 1) - 10, kDue)),
      document("cards", repeated(64 * kMebibyte / (kCard.size() + 1) - 10, kCard)),
      document("spending", spending(31 * kMebibyte))};
  for (const std::string& text : rows) {
    const TemporaryFolder folder;
    const Outcome outcome = runHost({"timeline",
                                     "QuorvelDueWidget",
                                     "--isolated",
                                     "--snapshot",
                                     folder.write("document.json", text),
                                     "--now",
                                     "2025-03-14T09:30:00Z"});
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_THAT(outcome.out, HasSubstr(", from 2025-03-14T09:30:00Z")) << text.substr(0, 200);
  }
}

TEST(LargeDocument, OfMoreThanMemoryHoldsIsNoDocument) {
  // An empty colour takes three bytes of text and thirty-two of memory.
  const TemporaryFolder folder;
  std::string card = kCard;
  card.replace(card.find("[]"), 2, repeated(21 * kMebibyte, "\"\""));
  const Outcome outcome =
      runHost({"timeline",
               "QuorvelCardLimitWidget",
               "--isolated",
               "--snapshot",
               folder.write("document.json", document("cards", "[" + card + "]"))});
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_THAT(outcome.out,
              AllOf(HasSubstr("Open Quorvel to get started"), Not(HasSubstr(", from "))));
}
#endif

TEST(LargeDocument, OverTheLimitIsNoDocument) {
  const TemporaryFolder folder;
  const std::string file = folder.write("document.json", document("dues", "[]"));
  std::filesystem::resize_file(file, 64 * kMebibyte + 1);
  const Outcome outcome = render("QuorvelDueWidget", file);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.errors, HasSubstr("larger than the limit"));
  EXPECT_THAT(outcome.out, HasSubstr("Open Quorvel"));
}

TEST(LargeDocument, IsDiagnosedInFewWords) {
  const TemporaryFolder folder;
  const std::string key(2 * kMebibyte, 'k');
  std::string keys;
  for (int i = 0; i < 2000; ++i) keys += ",\"\\ud800" + std::to_string(i) + "\":1";
  const std::string rows[] = {document(key + "\\ud800", "1"),
                              document("x\":1" + keys + ",\"y", "1"),
                              document("dues", repeated(100'000, "1")),
                              document("dues", "[{\"" + key + "\\udfff\":1}]")};
  for (const std::string& text : rows) {
    const std::string file = folder.write("document.json", text);
    const Outcome drawn = render("QuorvelDueWidget", file);
    EXPECT_EQ(drawn.status, 0);
    EXPECT_THAT(drawn.errors, Not(HasSubstr("the extension")));
    const Outcome outcome = runHost({"validate", "--isolated", file});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.out, HasSubstr("refused\n"));
    EXPECT_LT(outcome.out.size(), 100'000U);
  }
}

TEST(LargeDocument, WithEndlessNamesIsShown) {
  const TemporaryFolder folder;
  const std::string name(100'000, '\1');
  std::string escaped;
  for (std::size_t i = 0; i < name.size(); ++i) escaped += "\\u0001";
  const std::string due = R"({"id":"d","name":")" + escaped + R"(","subtitle":")" + escaped +
                          R"(","amount":5,"dueDate":"2025-03-20","kind":"card","cardId":")" +
                          escaped + "\"}";
  std::string card = kCard;
  for (const char* key : {"\"c\"", "\"Bank\"", "\"Card\""}) {
    card.replace(card.find(key), std::string(key).size(), "\"" + escaped + "\"");
  }
  const std::string dues = folder.write("dues.json", document("dues", repeated(5, due)));
  const std::string cards = folder.write("cards.json", document("cards", repeated(5, card)));
  for (const auto& [kind, file] :
       {std::pair{"QuorvelDueWidget", dues}, std::pair{"QuorvelCardLimitWidget", cards}}) {
    const Outcome outcome = render(kind, file);
    EXPECT_EQ(outcome.status, 0) << kind;
    EXPECT_THAT(outcome.errors, IsEmpty()) << kind;
    EXPECT_THAT(outcome.out, HasSubstr("$")) << kind;
  }
  const Outcome options =
      runHost({"options", "QuorvelCardLimitWidget", "card", "--isolated", "--snapshot", cards});
  EXPECT_EQ(options.status, 0) << options.errors;
  EXPECT_EQ(runHost({"validate", "--isolated", cards}).status, 0);
}

}  // namespace
}  // namespace cli
