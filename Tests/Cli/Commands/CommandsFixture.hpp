// Commands that say the same in one process and with the extension as a child.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "CommandRunner.hpp"

namespace cli {

inline const std::string kHousehold = example("household.json").string();

/// Every command answers the same in one process and through a child.
class Commands : public ::testing::TestWithParam<bool> {
 protected:
  static Outcome run(Words words) {
    if (GetParam()) words.emplace_back("--isolated");
    return runHost(words);
  }
  static nlohmann::json asked(const Words& words) {
    const Outcome outcome = run(words);
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
    EXPECT_THAT(outcome.errors, ::testing::IsEmpty());
    return nlohmann::json::parse(outcome.out, nullptr, false);
  }
};

}  // namespace cli
