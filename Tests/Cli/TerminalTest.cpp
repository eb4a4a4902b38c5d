// No command prints what a terminal would obey, wherever it comes from: a document, a file's name
// or the extension itself.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "CommandRunner.hpp"
#include "Foundation/Utf8.hpp"

namespace cli {
namespace {

// Control characters but for line ends, embeddings and overrides, and bytes that are no text.
std::string firstObeyed(std::string_view text) {
  while (!text.empty()) {
    const auto step = foundation::utf8Step(text);
    const char32_t c = step.scalar;
    const bool isControl = (c < 0x20 && c != '\n') || (c >= 0x7F && c <= 0x9F);
    if (!step.valid || isControl || (c >= 0x202A && c <= 0x202E)) {
      return "U+" + std::to_string(static_cast<unsigned>(c)) + " before " +
             std::string(text.substr(step.length, 20));
    }
    text.remove_prefix(step.length);
  }
  return "";
}

// Raw text is what a program wrote: no test of ours looks at it through an escaping library.
void expectHarmless(const Words& words) {
  const Outcome outcome = runHost(words);
  std::string command;
  for (const std::string& word : words) command += word + " ";
  EXPECT_LE(outcome.status, 2) << command;
  EXPECT_FALSE(outcome.out.empty() && outcome.errors.empty()) << command;
  EXPECT_EQ(firstObeyed(outcome.out), "") << command;
  EXPECT_EQ(firstObeyed(outcome.errors), "") << command;
}

const std::string kHostile = "\x1B[2J\u009B31m\u202Eabc\u202C\x07\x7F";

nlohmann::json hostileDocument() {
  const nlohmann::json due{{"id", kHostile},
                           {"name", kHostile},
                           {"amount", 12},
                           {"dueDate", "2025-03-20"},
                           {"kind", "card"},
                           {"cardId", kHostile},
                           {"subtitle", kHostile},
                           {"symbol", kHostile}};
  const nlohmann::json card{{"id", kHostile},
                            {"bankName", kHostile},
                            {"productName", kHostile},
                            {"last4", kHostile},
                            {"limit", 10},
                            {"remaining", 5},
                            {"gradient", {kHostile}},
                            {"hasImage", true}};
  auto document = nlohmann::json::parse(contentsOf(example("household.json")));
  document["money"]["symbol"] = kHostile;
  document["dues"] = {due, due};
  document["cards"] = {card, card};
  document["spending"]["topCategory"] = kHostile;
  document["spending"]["topCategoryIcon"] = kHostile;
  document[kHostile] = 1;
  return document;
}

const std::vector<std::string> kTextForms{"text", "tree", "placed", "accessibility", "svg"};

TEST(Terminal, ObeysNoDocument) {
  const TemporaryFolder folder;
  const std::string file = folder.write("document.json", hostileDocument().dump());
  const Words source{"--snapshot", file, "--now", "2025-03-14T09:30:00Z"};
  const auto with = [&](Words words) {
    words.insert(words.end(), source.begin(), source.end());
    return words;
  };
  for (const std::string& kind : offeredKinds()) {
    for (const std::string& form : kTextForms) {
      expectHarmless(with({"render", kind, "--family", "systemMedium", "--format", form}));
    }
    expectHarmless(with({"timeline", kind}));
  }
  for (const char* form : {"--json", "--isolated"}) {
    expectHarmless(with({"options", "QuorvelCardLimitWidget", "card", form}));
  }
}

TEST(Terminal, ObeysNoNameOfAFile) {
  const TemporaryFolder folder;
  auto broken = hostileDocument();
  broken["dues"][0][kHostile] = 1;
  broken["dues"][0]["amount"] = kHostile;
  const std::string file = folder.write(kHostile + "\xFF.json", broken.dump());
  expectHarmless({"validate", file});
  expectHarmless({"validate", file, "--json"});
  expectHarmless({"validate", kHostile});
  expectHarmless({"render", "QuorvelDueWidget", "--format", "text", "--snapshot", file});
  expectHarmless({"render", "QuorvelDueWidget", "--format", "text", "--snapshot", kHostile});
  expectHarmless({"render", kHostile, "--format", "text", "--snapshot", file});
  expectHarmless({"render", "QuorvelDueWidget", "--format", kHostile});
  expectHarmless({"sample", "-o", folder.at(kHostile + "/x")});
  expectHarmless({"sample", "--lang", kHostile});
  expectHarmless({"doctor", "--container", folder.at(kHostile)});
  expectHarmless({"doctor", "--snapshot", file});
  expectHarmless({"perform", kHostile, "--container", folder.path()});
  expectHarmless({kHostile});
}

TEST(Terminal, ObeysNoExtension) {
  const TemporaryFolder folder;
  const Words source{"--isolated", "--extension", TEST_HOSTILE, "--container", folder.path()};
  const auto with = [&](Words words) {
    words.insert(words.end(), source.begin(), source.end());
    return words;
  };
  expectHarmless(with({"list"}));
  expectHarmless(with({"list", "--json"}));
  for (const std::string& form : kTextForms) {
    expectHarmless(with({"render", "Hostile", "--format", form}));
  }
  expectHarmless(with({"timeline", "Hostile"}));
  expectHarmless(with({"options", "Hostile", "card"}));
  expectHarmless(with({"options", "Hostile", "card", "--json"}));
  expectHarmless(with({"options", "Hostile", "other"}));
  expectHarmless(with({"validate", example("household.json")}));
  expectHarmless(with({"validate", example("household.json"), "--json"}));
  expectHarmless(with({"perform", "Act", "--no-open"}));
  expectHarmless(with({"doctor"}));
  expectHarmless(with({"doctor", "--json"}));
}

}  // namespace
}  // namespace cli
