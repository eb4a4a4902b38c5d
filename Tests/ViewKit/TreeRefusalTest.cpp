// What a reader of trees refuses, and where it says the fault is.
#include <gtest/gtest.h>

#include "ReadTrees.hpp"

namespace viewkit {
namespace {

struct Refusal {
  std::string name;
  std::string json;
  std::string message;
};
void PrintTo(const Refusal& refusal, std::ostream* out) {
  *out << refusal.name;
}

class TreeRefusal : public ::testing::TestWithParam<Refusal> {};

TEST_P(TreeRefusal, SaysWhereAndWhat) {
  EXPECT_EQ(failure(GetParam().json), GetParam().message);
}

const char* const kNumberInUnit = "expected a number in 0...1";

std::vector<Refusal> nodeRefusals() {
  return {
      {"treeIsNoObject", "[]", "/: expected an object"},
      {"treeIsNull", "null", "/: expected an object"},
      {"typeMissing", "{}", "/type: expected a type's name"},
      {"typeIsANumber", element("3"), "/type: expected a type's name"},
      {"unknownElement", element(R"("Marquee")"), "/type: unknown element"},
      {"unknownMember",
       element(R"("Text","text":"x","colour":"red")"),
       "/colour: unknown or repeated member"},
      {"repeatedMember",
       element(R"("Text","text":"x","text":"y")"),
       "/text: unknown or repeated member"},
      {"memberOfAnotherElement",
       element(R"("Spacer","text":"x")"),
       "/text: unknown or repeated member"},
      {"unknownMemberIsEscaped",
       element(R"("Spacer","a/b~\n":1)"),
       "/a~1b~0?: unknown or repeated member"},
      {"nameIsANumber", element(R"("Spacer","name":3)"), "/name: expected a string"},
      {"childrenAreNoArray", element(R"("HStack","children":{})"), "/children: expected an array"},
      {"childIsAString",
       element(R"("HStack","children":["x"])"),
       "/children/0: expected an object"},
      {"modifiersAreNoArray",
       element(R"("Spacer","modifiers":{})"),
       "/modifiers: expected an array"},
      {"modifierIsAString", modified(R"("padding")"), "/modifiers/0: expected an object"},
      {"unknownModifier", modified(R"({"wobble":1})"), "/modifiers/0: unknown modifier"},
      {"emptyModifier", modified("{}"), "/modifiers/0: unknown modifier"},
      {"twoModifiersInOne",
       modified(R"({"opacity":1,"zIndex":1})"),
       "/modifiers/0/zIndex: unknown or repeated member"},
      {"unknownModifierOption",
       modified(R"({"frame":{"widht":1}})"),
       "/modifiers/0/frame/widht: unknown or repeated member"},
      {"frameIsANumber", modified(R"({"frame":3})"), "/modifiers/0/frame: expected an object"},
      {"deepPath",
       R"({"type":"HStack","children":[{"type":"Spacer"},{"type":"Spacer"},)"
       R"({"type":"Circle","modifiers":[{"opacity":2}]}]})",
       std::string("/children/2/modifiers/0/opacity: ") + kNumberInUnit},
      {"pathThroughABackground",
       modified(R"({"background":{"type":"Text","size":"big"}})"),
       "/modifiers/0/background/size: expected a number in 0...1000000"},
  };
}

std::vector<Refusal> elementRefusals() {
  return {
      {"textIsANumber", element(R"("Text","text":3)"), "/text: expected a string"},
      {"textIsNull", element(R"("Text","text":null)"), "/text: expected a string"},
      {"flagIsANumber",
       element(R"("Text","text":"x","balanced":1)"),
       "/balanced: expected true or false"},
      {"unknownEnumValue",
       element(R"("Text","text":"x","weight":"fat")"),
       "/weight: expected regular, medium, semibold, bold, heavy"},
      {"enumIsANumber",
       element(R"("Text","text":"x","design":1)"),
       "/design: expected standard, rounded"},
      {"unknownAlignment",
       element(R"("HStack","alignment":"up")"),
       "/alignment: expected an alignment"},
      {"alignmentIsANumber",
       element(R"("HStack","alignment":1)"),
       "/alignment: expected an alignment"},
      {"spacingIsNull",
       element(R"("HStack","spacing":null)"),
       "/spacing: expected a number in -1000000...1000000"},
      {"spacingIsAbsurd",
       element(R"("HStack","spacing":1000001)"),
       "/spacing: expected a number in -1000000...1000000"},
      {"spacerIsNegative",
       element(R"("Spacer","minLength":-1)"),
       "/minLength: expected a number in 0...1000000"},
      {"fontSizeIsNegative",
       element(R"("Text","text":"x","size":-1)"),
       "/size: expected a number in 0...1000000"},
      {"noLines",
       element(R"("Text","text":"x","lineLimit":0)"),
       "/lineLimit: expected a number in 1...1000000"},
      {"halfALine",
       element(R"("Text","text":"x","lineLimit":1.5)"),
       "/lineLimit: expected a whole number"},
      {"scaleIsZero",
       element(R"("Text","text":"x","minimumScale":0)"),
       "/minimumScale: expected a number above 0...1"},
      {"scaleIsAboveOne",
       element(R"("Text","text":"x","minimumScale":1.5)"),
       "/minimumScale: expected a number above 0...1"},
      {"fractionIsAboveOne",
       element(R"("Gauge","fraction":1.01)"),
       std::string("/fraction: ") + kNumberInUnit},
      {"trimIsNegative",
       element(R"("Circle","trimFrom":-0.1)"),
       std::string("/trimFrom: ") + kNumberInUnit},
      {"lineWidthIsNegative",
       element(R"("Circle","lineWidth":-1)"),
       "/lineWidth: expected a number in 0...1000000"},
  };
}

std::vector<Refusal> modifierRefusals() {
  return {
      {"opacityIsNegative",
       modified(R"({"opacity":-0.1})"),
       std::string("/modifiers/0/opacity: ") + kNumberInUnit},
      {"opacityIsNull",
       modified(R"({"opacity":null})"),
       std::string("/modifiers/0/opacity: ") + kNumberInUnit},
      {"opacityIsInfinite",
       modified(R"({"opacity":"infinity"})"),
       std::string("/modifiers/0/opacity: ") + kNumberInUnit},
      {"leastWidthIsInfinite",
       modified(R"({"flexibleFrame":{"minWidth":"infinity"}})"),
       "/modifiers/0/flexibleFrame/minWidth: expected a number in 0...1000000"},
      {"mostWidthIsAnotherWord",
       modified(R"({"flexibleFrame":{"maxWidth":"huge"}})"),
       "/modifiers/0/flexibleFrame/maxWidth: expected a number in 0...1000000 or \"infinity\""},
      {"mostHeightIsNegative",
       modified(R"({"flexibleFrame":{"maxHeight":-1}})"),
       "/modifiers/0/flexibleFrame/maxHeight: expected a number in 0...1000000 or \"infinity\""},
      {"ratioIsZero",
       modified(R"({"aspectRatio":0})"),
       "/modifiers/0/aspectRatio: expected a number above 0...1000000"},
      {"shadowRadiusIsNegative",
       modified(R"({"shadow":"#000000","radius":-1})"),
       "/modifiers/0/radius: expected a number in 0...1000000"},
      {"threeInsets",
       modified(R"({"padding":[1,2,3]})"),
       "/modifiers/0/padding: expected 4 numbers"},
      {"paddingIsANumber",
       modified(R"({"padding":1})"),
       "/modifiers/0/padding: expected 4 numbers"},
      {"insetIsAString",
       modified(R"({"padding":[1,"2",3,4]})"),
       "/modifiers/0/padding/1: expected a number in -1000000...1000000"},
      {"linkIsANumber", modified(R"({"link":1})"), "/modifiers/0/link: expected a string"},
      {"unknownPrivacy",
       modified(R"({"privacy":"secret"})"),
       "/modifiers/0/privacy: expected masked, covered"},
  };
}

std::vector<Refusal> paintRefusals() {
  const std::string notAColor =
      "expected a colour: #RRGGBB/#RRGGBB or a role, then opacities in 0...1";
  const auto paint = [](const std::string& value) {
    return element(R"("Circle","paint":)" + value);
  };
  return {
      {"paintIsANumber", paint("1"), "/paint: " + notAColor},
      {"colorIsShort", paint(R"("#FFF")"), "/paint: " + notAColor},
      {"colorIsNotHexadecimal", paint(R"("#GGGGGG")"), "/paint: " + notAColor},
      {"colorHasASign", paint(R"("#-12345")"), "/paint: " + notAColor},
      {"colorWithoutDark", paint(R"("#FFFFFF/")"), "/paint: " + notAColor},
      {"unknownRole", paint(R"("tertiary")"), "/paint: " + notAColor},
      {"colorOpacityIsAboveOne", paint(R"("#FFFFFF 1.5")"), "/paint: " + notAColor},
      {"colorOpacityIsNegative", paint(R"("#FFFFFF 1/-1")"), "/paint: " + notAColor},
      {"colorOpacityIsNotANumber", paint(R"("primary nan")"), "/paint: " + notAColor},
      {"colorOpacityIsMissing", paint(R"("primary ")"), "/paint: " + notAColor},
      {"colorHasATail", paint(R"("#FFFFFF 0.5 ")"), "/paint: " + notAColor},
      {"gradientHasAnUnknownMember",
       paint(R"({"angle":3})"),
       "/paint/angle: unknown or repeated member"},
      {"gradientStopIsAColor",
       paint(R"({"stops":["#FFFFFF"]})"),
       "/paint/stops/0: expected a colour and its location"},
      {"gradientLocationIsOutside",
       paint(R"({"stops":[["#FFFFFF",2]]})"),
       std::string("/paint/stops/0/1: ") + kNumberInUnit},
      {"gradientStopHasNoColor", paint(R"({"stops":[[1,1]]})"), "/paint/stops/0/0: " + notAColor},
      {"gradientEndIsANumber", paint(R"({"end":1})"), "/paint/end: expected 2 numbers"},
  };
}

std::vector<Refusal> shapeRefusals() {
  const std::string notALength = "expected a number or [w, h, points, term...]";
  const auto width = [](const std::string& value) {
    return modified(R"({"frame":{"width":)" + value + "}}");
  };
  const auto path = [](const std::string& steps) { return element(R"("Path","steps":)" + steps); };
  const std::string atWidth = "/modifiers/0/frame/width";
  return {
      {"unknownClip",
       modified(R"({"clip":{"type":"Star"}})"),
       "/modifiers/0/clip/type: unknown shape"},
      {"clipIsNoShape",
       modified(R"({"clip":{"type":"Text"}})"),
       "/modifiers/0/clip/type: unknown shape"},
      {"clipWithAPaint",
       modified(R"({"clip":{"type":"Circle","paint":"primary"}})"),
       "/modifiers/0/clip/paint: unknown or repeated member"},
      {"lengthIsAString", width(R"("W")"), atWidth + ": " + notALength},
      {"lengthHasTwoParts", width("[1,2]"), atWidth + ": " + notALength},
      {"lengthIsAbsurd", width("1e7"), atWidth + ": the length is too large"},
      {"lengthFactorIsAbsurd",
       width("[1e7,0,0]"),
       atWidth + "/0: expected a number in -1000000...1000000"},
      {"lengthAddsUpToTheAbsurd",
       width(R"([0,0,1e6,["min",1e6,5,5]])"),
       atWidth + ": the length is too large"},
      {"widthIsNegative", width("-1"), atWidth + ": expected a number in 0...1000000"},
      {"widthFoldsToANegative",
       width(R"([0,0,0,["min",1,3,-1]])"),
       atWidth + ": expected a number in 0...1000000"},
      {"radiusIsNegative",
       element(R"("RoundedRectangle","radius":-1)"),
       "/radius: expected a number in 0...1000000"},
      {"termIsANumber",
       width("[0,0,0,1]"),
       atWidth + "/3: expected [choice, factor, length, length]"},
      {"termIsShort",
       width(R"([0,0,0,["min",1,2]])"),
       atWidth + "/3: expected [choice, factor, length, length]"},
      {"unknownChoice", width(R"([0,0,0,["mid",1,2,3]])"), atWidth + "/3/0: expected min, max"},
      {"termFactorIsAString",
       width(R"([0,0,0,["min","1",2,3]])"),
       atWidth + "/3/1: expected a number in -1000000...1000000"},
      {"termLengthIsNull", width(R"([0,0,0,["min",1,2,null]])"), atWidth + "/3/3: " + notALength},
      {"centerIsANumber", element(R"("Arc","center":1)"), "/center: expected two lengths"},
      {"stepsAreNoArray", path("1"), "/steps: expected an array"},
      {"stepIsEmpty", path("[[]]"), "/steps/0: expected a step: [letter, x, y...]"},
      {"unknownStep", path(R"([["Z"],["Q",1,2]])"), "/steps/1/0: expected M, L, C, Z"},
      {"stepLacksACoordinate", path(R"([["M",1]])"), "/steps/0: wrong number of coordinates"},
      {"closeHasCoordinates", path(R"([["Z",1,2]])"), "/steps/0: wrong number of coordinates"},
      {"coordinateIsAString", path(R"([["M",1,"2"]])"), "/steps/0/2: " + notALength},
  };
}

std::vector<Refusal> pathRefusals() {
  std::vector<Refusal> refusals;
  const std::pair<const char*, const char*> paths[] = {{"absolute", "/etc/passwd"},
                                                       {"parent", ".."},
                                                       {"leadingParent", "../a.png"},
                                                       {"innerParent", "Art/../../a.png"},
                                                       {"trailingParent", "Art/.."},
                                                       {"nul", "Art/a\\u0000.png"}};
  for (const auto& [name, path] : paths) {
    refusals.push_back({std::string(name) + "Path",
                        element(R"("Image","path":")" + std::string(path) + "\""),
                        "/path: expected a path below the container"});
  }
  return refusals;
}

const auto kName = [](const auto& info) { return info.param.name; };
INSTANTIATE_TEST_SUITE_P(Nodes, TreeRefusal, ::testing::ValuesIn(nodeRefusals()), kName);
INSTANTIATE_TEST_SUITE_P(Elements, TreeRefusal, ::testing::ValuesIn(elementRefusals()), kName);
INSTANTIATE_TEST_SUITE_P(Modifiers, TreeRefusal, ::testing::ValuesIn(modifierRefusals()), kName);
INSTANTIATE_TEST_SUITE_P(Paints, TreeRefusal, ::testing::ValuesIn(paintRefusals()), kName);
INSTANTIATE_TEST_SUITE_P(Shapes, TreeRefusal, ::testing::ValuesIn(shapeRefusals()), kName);
INSTANTIATE_TEST_SUITE_P(Paths, TreeRefusal, ::testing::ValuesIn(pathRefusals()), kName);

}  // namespace
}  // namespace viewkit
