// The table itself, and the list of files that a renderer asks for.
#include "Rendering/Text/FontTable.hpp"

#include <unistd.h>

#include <array>
#include <string_view>
#include <vector>

#include "Rendering/Text/FontFile.hpp"

namespace rendering {

namespace {

using viewkit::FontWeight;

constexpr std::string_view kInter = "/usr/share/fonts/opentype/inter/Inter-";
constexpr std::string_view kNoto = "/usr/share/fonts/truetype/noto/NotoSans";
constexpr std::string_view kCjk = "/usr/share/fonts/opentype/noto/NotoSansCJK-";

/// How a family names its files. Weights name the files to try, best first, separated by spaces.
struct FamilyRow {
  std::string_view prefix;
  std::string_view name;
  std::string_view suffix;
  std::string_view package;
  bool optional = false;
  std::array<std::string_view, kFontWeights> weights{
      "Regular", "Medium Regular", "SemiBold Bold", "Bold", "ExtraBold Bold"};
};

constexpr std::array<std::string_view, kFontWeights> kTwoWeights{
    "Regular", "Regular", "Bold", "Bold", "Bold"};
constexpr std::array<std::string_view, kFontWeights> kAllWeights{
    "Regular", "Medium", "SemiBold", "Bold", "ExtraBold"};

constexpr FamilyRow optionalNoto(std::string_view name, std::string_view package) {
  return {kNoto, name, ".ttf", package, true, kTwoWeights};
}

constexpr std::array<FamilyRow, kFontFamilies> kFamilies{{
    {kInter, "", ".otf", "fonts-inter", false, kAllWeights},
    {kNoto, "ArabicUI-", ".ttf", "fonts-noto-ui-core"},
    {kNoto, "DevanagariUI-", ".ttf", "fonts-noto-ui-core"},
    {kCjk, "", ".ttc", "fonts-noto-cjk", false, kTwoWeights},
    optionalNoto("ThaiUI-", "fonts-noto-ui-core"),
    optionalNoto("BengaliUI-", "fonts-noto-ui-core"),
    optionalNoto("TamilUI-", "fonts-noto-ui-core"),
    optionalNoto("TeluguUI-", "fonts-noto-ui-core"),
    optionalNoto("GujaratiUI-", "fonts-noto-ui-core"),
    optionalNoto("GurmukhiUI-", "fonts-noto-ui-core"),
    optionalNoto("KannadaUI-", "fonts-noto-ui-core"),
    optionalNoto("MalayalamUI-", "fonts-noto-ui-core"),
    optionalNoto("SinhalaUI-", "fonts-noto-ui-core"),
    optionalNoto("KhmerUI-", "fonts-noto-ui-core"),
    optionalNoto("LaoUI-", "fonts-noto-ui-core"),
    optionalNoto("MyanmarUI-", "fonts-noto-ui-core"),
    optionalNoto("Hebrew-", "fonts-noto-core"),
    optionalNoto("Armenian-", "fonts-noto-core"),
    optionalNoto("Georgian-", "fonts-noto-core"),
    {"/usr/share/fonts/truetype/noto/",
     "Noto",
     ".ttf",
     "fonts-noto-color-emoji",
     true,
     {"ColorEmoji", "ColorEmoji", "ColorEmoji", "ColorEmoji", "ColorEmoji"}},
}};

bool exists(const std::string& path) {
  return access(path.c_str(), R_OK) == 0;
}

std::string pathOf(const FamilyRow& row, std::string_view weight) {
  std::string path;
  for (std::string_view part : {row.prefix, row.name, weight, row.suffix}) path += part;
  return path;
}

/// Calls `take` with each candidate until it returns true.
template <class Take>
void eachCandidate(const FamilyRow& row, FontWeight weight, Take take) {
  std::string_view rest = row.weights[static_cast<std::size_t>(weight)];
  while (!rest.empty()) {
    const std::size_t space = rest.find(' ');
    const bool last = space == std::string_view::npos;
    if (take(pathOf(row, rest.substr(0, space)), last)) return;
    rest = last ? std::string_view{} : rest.substr(space + 1);
  }
}

}  // namespace

std::optional<FontSource> fontSource(FontFamily family, FontWeight weight) {
  std::optional<FontSource> result;
  eachCandidate(kFamilies[static_cast<std::size_t>(family)], weight, [&](std::string path, bool) {
    if (exists(path)) result = FontSource{std::move(path), 0};
    return result.has_value();
  });
  return result;
}

std::vector<FontFile> fontFiles() {
  std::vector<FontFile> files;
  const auto add = [&](std::string path, const FamilyRow& row, bool optional) {
    for (const FontFile& file : files) {
      if (file.path == path) return;
    }
    // The finer weights of the scripts that do without them come with the larger package.
    const std::string_view package =
        optional && !row.optional ? std::string_view("fonts-noto-ui-extra") : row.package;
    const bool found = exists(path);
    files.push_back({std::move(path), std::string(package), optional, found});
  };
  for (const FamilyRow& row : kFamilies) {
    for (int weight = 0; weight < kFontWeights; ++weight) {
      eachCandidate(row, static_cast<FontWeight>(weight), [&](std::string path, bool last) {
        add(std::move(path), row, row.optional || !last);
        return false;
      });
    }
  }
  return files;
}

}  // namespace rendering
