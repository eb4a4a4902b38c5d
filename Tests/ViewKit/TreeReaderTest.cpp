// The bounds of a tree that is read, and what stands within them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ReadTrees.hpp"
#include "ViewKit/ViewKit.hpp"

namespace viewkit {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

std::string nested(std::size_t depth) {
  std::string json = R"({"type":"Spacer"})";
  for (std::size_t i = 1; i < depth; ++i) {
    json = R"({"type":"HStack","children":[)" + json + "]}";
  }
  return json;
}

std::string list(std::size_t count, const std::string& item) {
  std::string json = "[";
  for (std::size_t i = 0; i < count; ++i) json += (i == 0 ? "" : ",") + item;
  return json + "]";
}

std::string deepLength(std::size_t choices) {
  std::string json = "[1,0,0]";
  for (std::size_t i = 0; i < choices; ++i) json = R"([0,0,0,["min",2,)" + json + ",[0,1,0]]]";
  return json;
}

TEST(TreeReader, DotsInsideANameAreNoParent) {
  for (const char* path : {"Art/a..b.png", "...", "Art/..a", "a/./b", ""}) {
    EXPECT_TRUE(read(element(R"("Image","path":")" + std::string(path) + "\"")).has_value())
        << path;
  }
}

TEST(TreeReader, BoundsThemselvesAreAccepted) {
  for (const std::string& json : {modified(R"({"opacity":0})"),
                                  modified(R"({"opacity":1})"),
                                  element(R"("Text","text":"x","minimumScale":1)"),
                                  element(R"("Text","text":"x","lineLimit":1)"),
                                  element(R"("HStack","spacing":-1000000)"),
                                  element(R"("Spacer","minLength":1000000)")}) {
    EXPECT_EQ(failure(json), "accepted") << json;
  }
}

// ---- limits

TEST(TreeLimits, Depth) {
  EXPECT_EQ(failure(nested(64)), "accepted");
  EXPECT_THAT(failure(nested(65)), StartsWith("/children/0/children/0"));
  EXPECT_THAT(failure(nested(65)), HasSubstr(": the tree is too deep"));
}

TEST(TreeLimits, ContentsCountForTheDepth) {
  const std::string inner = R"({"background":{"type":"Circle"}})";
  for (const char* name : {"background", "overlay", "containerBackground"}) {
    const std::string json =
        modified(std::string("{\"") + name + R"(":{"type":"Circle","modifiers":[)" + inner + "]}}");
    EXPECT_EQ(failure(json, {.depth = 3}), "accepted");
    EXPECT_EQ(
        failure(json, {.depth = 2}),
        std::string("/modifiers/0/") + name + "/modifiers/0/background: the tree is too deep");
  }
}

TEST(TreeLimits, Nodes) {
  const auto tree = [](std::size_t nodes) {
    return element(R"("HStack","children":)" + list(nodes - 1, R"({"type":"Spacer"})"));
  };
  EXPECT_EQ(failure(tree(4000)), "accepted");
  EXPECT_EQ(failure(tree(4001)), "/children/3999: the tree has too many nodes");
  EXPECT_EQ(failure(tree(4002)), "/children: 4001 elements, 4000 are allowed");
}

TEST(TreeLimits, ContentsCountAsNodes) {
  const std::string json = R"({"type":"HStack","children":[{"type":"Spacer"}],)"
                           R"("modifiers":[{"background":{"type":"Circle"}}]})";
  EXPECT_EQ(failure(json, {.nodes = 3}), "accepted");
  EXPECT_EQ(failure(json, {.nodes = 2}), "/modifiers/0/background: the tree has too many nodes");
}

TEST(TreeLimits, Strings) {
  const auto text = [](std::size_t bytes) {
    return element(R"("Text","text":")" + std::string(bytes, 'a') + "\"");
  };
  EXPECT_EQ(failure(text(16384)), "accepted");
  EXPECT_EQ(failure(text(16385)), "/text: 16385 bytes, 16384 are allowed");
  EXPECT_EQ(failure(element(R"("Spacer","name":"abc")"), {.stringBytes = 2}),
            "/name: 3 bytes, 2 are allowed");
  EXPECT_EQ(failure(modified(R"({"link":"abc"})"), {.stringBytes = 2}),
            "/modifiers/0/link: 3 bytes, 2 are allowed");
}

TEST(TreeLimits, Modifiers) {
  const auto tree = [](std::size_t count) {
    return element(R"("Spacer","modifiers":)" + list(count, R"({"zIndex":1})"));
  };
  EXPECT_EQ(failure(tree(64)), "accepted");
  EXPECT_EQ(failure(tree(65)), "/modifiers: 65 elements, 64 are allowed");
}

TEST(TreeLimits, ModifiersFromTheRootToALeaf) {
  // Four levels of 64 are 256; beside them, or in the background of another, as many again.
  const auto many = [](int count) {
    std::string list;
    for (int i = 0; i < count; ++i) list += (i == 0 ? "" : ",") + std::string{R"({"opacity":1})"};
    return R"("modifiers":[)" + list + "]";
  };
  const auto level = [&](const std::string& inner, int count) {
    return R"({"type":"HStack","children":[)" + inner + "]," + many(count) + "}";
  };
  const std::string leaf = R"({"type":"Circle"})";
  const std::string most = level(level(level(level(leaf, 64), 64), 64), 64);
  EXPECT_EQ(failure(most), "accepted");
  EXPECT_EQ(failure(level(most + "," + most, 0)), "accepted");
  EXPECT_EQ(failure(level(most, 1)),
            "/children/0/children/0/children/0/children/0/modifiers: "
            "too many modifiers from the root to here");
  EXPECT_EQ(failure(R"({"type":"Circle","modifiers":[{"background":)" + most + "}]}"),
            "/modifiers/0/background/children/0/children/0/children/0/modifiers: "
            "too many modifiers from the root to here");
}

TEST(TreeLimits, LengthDepth) {
  const auto tree = [](std::size_t depth) {
    return modified(R"({"offset":{"x":)" + deepLength(depth) + "}}");
  };
  EXPECT_EQ(failure(tree(8)), "accepted");
  EXPECT_THAT(failure(tree(9)), HasSubstr(": the length is too deep"));
}

TEST(TreeLimits, LengthTerms) {
  const std::string json =
      modified(R"({"offset":{"x":[0,0,0,["min",1,[1,0,0],3],["max",1,[1,0,0],3]]}})");
  EXPECT_EQ(failure(json, {.lengthTerms = 2}), "accepted");
  EXPECT_EQ(failure(json, {.lengthTerms = 1}),
            "/modifiers/0/offset/x/4: the length has too many terms");
}

TEST(TreeLimits, PathSteps) {
  const std::string json = element(R"("Path","steps":[["Z"],["Z"]])");
  EXPECT_EQ(failure(json, {.pathSteps = 2}), "accepted");
  EXPECT_EQ(failure(json, {.pathSteps = 1}), "/steps: 2 elements, 1 are allowed");
}

TEST(TreeLimits, GradientStops) {
  const std::string json = element(R"("Circle","paint":{"stops":[["primary",0],["primary",1]]})");
  EXPECT_EQ(failure(json, {.gradientStops = 2}), "accepted");
  EXPECT_EQ(failure(json, {.gradientStops = 1}), "/paint/stops: 2 elements, 1 are allowed");
}

TEST(TreeReader, RefusesTheFirstUnknownMemberOfMany) {
  std::string json = R"({"type":"Spacer")";
  for (int i = 0; i < 100; ++i) json += ",\"a" + std::to_string(i) + "\":1";
  EXPECT_EQ(failure(json + "}"), "/a0: unknown or repeated member");
  EXPECT_EQ(failure(json + R"(,"minLength":1})"), "/a0: unknown or repeated member");
}

TEST(TreeLimits, NamesInMessagesAreCut) {
  EXPECT_EQ(failure(element(R"("Spacer",")" + std::string(1000, 'a') + "\":1")),
            "/" + std::string(40, 'a') + ": unknown or repeated member");
}

}  // namespace
}  // namespace viewkit
