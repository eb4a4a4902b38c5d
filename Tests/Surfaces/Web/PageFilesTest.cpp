// The page as it is served: small, whole, and asking nobody else.
#include <gmock/gmock.h>

#include <regex>

#include "Surfaces/Web/PageFiles.hpp"

namespace surfaces {
namespace {

std::size_t sizeOf(std::string_view ending) {
  std::size_t size = 0;
  for (const auto& [path, file] : pageFiles())
    if (path.ends_with(ending)) size += file.body.size();
  return size;
}

TEST(PageFiles, StayWithinTheirBounds) {
  EXPECT_LE(sizeOf(".js"), 40'000U);
  EXPECT_LE(sizeOf(".css"), 20'000U);
}

TEST(PageFiles, HaveTheirTypes) {
  EXPECT_EQ(pageFiles().at("/").type, "text/html; charset=utf-8");
  EXPECT_EQ(pageFiles().at("/board.js").type, "text/javascript; charset=utf-8");
  EXPECT_EQ(pageFiles().at("/board.css").type, "text/css; charset=utf-8");
  EXPECT_EQ(pageFiles().at("/icon.svg").type, "image/svg+xml; charset=utf-8");
}

/// What the files name is among them: nothing is fetched from elsewhere, nothing is missing.
TEST(PageFiles, NameNoFileBesideThemselves) {
  const std::regex named(R"re((?:href="|src="|from '\./|import\('\./)([^"'#]+)["'])re");
  for (const auto& [path, file] : pageFiles()) {
    const std::string body(file.body);
    EXPECT_EQ(body.find("https://"), std::string::npos) << path;
    for (std::sregex_iterator found(body.begin(), body.end(), named), end; found != end; ++found)
      EXPECT_TRUE(pageFiles().contains("/" + (*found)[1].str())) << path << ": " << (*found)[1];
  }
}

/// The page's policy forbids all of it.
TEST(PageFiles, HoldNothingInline) {
  const std::string page(pageFiles().at("/").body);
  EXPECT_FALSE(std::regex_search(page, std::regex(R"re(\sstyle="|\son[a-z]+="|<style)re")));
  for (const auto& [path, file] : pageFiles()) {
    if (!path.ends_with(".js")) continue;
    for (const char* word : {"innerHTML", "outerHTML", "insertAdjacentHTML", "eval(", "cookie"})
      EXPECT_EQ(file.body.find(word), std::string_view::npos) << path << " " << word;
  }
}

}  // namespace
}  // namespace surfaces
