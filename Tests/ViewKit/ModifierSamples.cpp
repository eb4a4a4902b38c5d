// A view for each modifier.
#include "Samples.hpp"
#include "ViewKit/ViewKit.hpp"

namespace viewkit {

namespace {

constexpr Rgb kLight = 0x6B1F3A;
constexpr Rgb kDark = 0xB4416A;

// A modifier is shown on the shortest text; `dump` is empty for one that changes nothing.
Sample modified(std::string name, View view, const std::string& dump, const std::string& json) {
  return {std::move(name),
          std::move(view),
          "Text \"x\"\n" + (dump.empty() ? "" : "  " + dump + "\n"),
          R"({"type":"Text","text":"x","modifiers":[)" + json + "]}"};
}

std::vector<Sample> roomSamples() {
  const Text x{"x"};
  return {
      modified("Frame",
               x.frame(FixedFrame{
                   .width = kWidth * 0.5 - 4.5, .height = 7, .alignment = Alignment::topLeading}),
               ".frame(width 0.5W - 4.5 height 7 alignment topLeading)",
               R"({"frame":{"width":[0.5,0,-4.5],"height":7,"alignment":"topLeading"}})"),
      modified("FlexibleFrame",
               x.frame(FlexibleFrame{.minWidth = 1,
                                     .maxWidth = kInfinity,
                                     .minHeight = 2,
                                     .maxHeight = 3,
                                     .alignment = Alignment::leading}),
               ".flexibleFrame(minWidth 1 maxWidth infinity minHeight 2 maxHeight 3 alignment "
               "leading)",
               R"({"flexibleFrame":{"minWidth":1,"maxWidth":"infinity","minHeight":2,)"
               R"("maxHeight":3,"alignment":"leading"}})"),
      modified("Padding",
               x.padding({.top = 8, .leading = 12.5, .trailing = -1}),
               ".padding(top 8 leading 12.5 trailing -1)",
               R"({"padding":[8,12.5,0,-1]})"),
      modified("PaddingAllRound", x.padding(4), ".padding(4)", R"({"padding":[4,4,4,4]})"),
      modified("Offset",
               x.offset(kWidth * -0.25, 3),
               ".offset(x -0.25W y 3)",
               R"({"offset":{"x":[-0.25,0,0],"y":3}})"),
      modified("Position",
               x.position(0, kHeight / 2),
               ".position(y 0.5H)",
               R"({"position":{"y":[0,0.5,0]}})"),
      modified("ZIndex", x.zIndex(-2), ".zIndex(-2)", R"({"zIndex":-2})"),
      modified("AspectRatio",
               x.aspectRatio(1.6, ImageElement::ContentMode::fill),
               ".aspectRatio(1.6 mode fill)",
               R"({"aspectRatio":1.6,"mode":"fill"})"),
      modified(
          "LayoutPriority", x.layoutPriority(1), ".layoutPriority(1)", R"({"layoutPriority":1})"),
      modified("FixedSize", x.fixedSize(), ".fixedSize", R"({"fixedSize":{}})"),
      modified("FixedWidth",
               x.fixedSize(true, false),
               ".fixedSize(vertical false)",
               R"({"fixedSize":{"vertical":false}})"),
      modified("SharedScale", x.sharedScale(), ".sharedScale", R"({"sharedScale":{}})"),
  };
}

std::vector<Sample> looksSamples() {
  const Text x{"x"};
  return {
      modified("Background",
               x.background(Capsule(), Alignment::leading),
               ".background(alignment leading)\n    Capsule",
               R"({"background":{"type":"Capsule"},"alignment":"leading"})"),
      modified("Overlay",
               x.overlay(HStack{{}, Circle()}),
               ".overlay\n    HStack\n      Circle",
               R"({"overlay":{"type":"HStack","children":[{"type":"Circle"}]}})"),
      modified("Foreground",
               x.foregroundStyle(Color::dynamic(kLight, kDark)),
               ".foreground(#6B1F3A/#B4416A)",
               R"({"foreground":"#6B1F3A/#B4416A"})"),
      modified("InheritedForeground",
               x.foregroundStyle(Paint{}),
               ".foreground(inherited)",
               R"({"foreground":null})"),
      modified("Opacity", x.opacity(0.92), ".opacity(0.92)", R"({"opacity":0.92})"),
      modified("DefaultOpacity", x.opacity(1), "", R"({"opacity":1})"),
      modified("Clip",
               x.clip(RoundedRectangleShape{6}),
               ".clip(RoundedRectangle radius 6)",
               R"({"clip":{"type":"RoundedRectangle","radius":6}})"),
      modified("Cutout",
               x.cutout(CapsuleShape{}),
               ".cutout(Capsule)",
               R"({"cutout":{"type":"Capsule"}})"),
      modified("Shadow",
               x.shadow({.color = Color::black().withOpacity(0.2), .radius = 4, .x = -1, .y = 2}),
               ".shadow(#000000 0.2 radius 4 x -1 y 2)",
               R"({"shadow":"#000000 0.2","radius":4,"x":-1,"y":2})"),
      modified("ContainerBackground",
               x.containerBackground(Rectangle()),
               ".containerBackground\n    Rectangle",
               R"({"containerBackground":{"type":"Rectangle"}})"),
      modified("Chain",
               x.padding({.top = 8}).foregroundStyle(Color::primary()).padding(1),
               ".padding(top 8)\n  .foreground(primary)\n  .padding(1)",
               R"({"padding":[8,0,0,0]},{"foreground":"primary"},{"padding":[1,1,1,1]})"),
  };
}

Accessibility spoken() {
  return {.label = "Due", .value = "3", .children = Accessibility::Children::combine};
}

std::vector<Sample> meaningSamples() {
  const Text x{"x"};
  return {
      modified("Accessibility",
               x.accessibility(spoken()),
               ".accessibility(label \"Due\" value \"3\" children combine)",
               R"({"accessibility":{"label":"Due","value":"3","children":"combine"}})"),
      modified("AccessibilityHidden",
               x.accessibilityHidden(),
               ".accessibility(hidden)",
               R"({"accessibility":{"hidden":true}})"),
      modified("Privacy",
               x.privacySensitive(PrivacyTreatment::covered),
               ".privacy(covered)",
               R"({"privacy":"covered"})"),
      modified("Accentable", x.accentable(), ".accentable", R"({"accentable":{}})"),
      modified("Link",
               x.link("quorvel://a?b=c"),
               ".link(\"quorvel://a?b=c\")",
               R"({"link":"quorvel://a?b=c"})"),
      modified("WidgetURL",
               x.widgetURL("quorvel://"),
               ".widgetURL(\"quorvel://\")",
               R"({"widgetURL":"quorvel://"})"),
      modified("LayoutDirection",
               x.layoutDirection(LayoutDirection::rightToLeft),
               ".layoutDirection(rightToLeft)",
               R"({"layoutDirection":"rightToLeft"})"),
  };
}

}  // namespace

std::vector<Sample> modifierSamples() {
  std::vector<Sample> samples;
  for (const auto& some : {roomSamples(), looksSamples(), meaningSamples()}) {
    samples.insert(samples.end(), some.begin(), some.end());
  }
  return samples;
}

}  // namespace viewkit
