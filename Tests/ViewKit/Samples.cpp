#include "Samples.hpp"

#include "ViewKit/ViewKit.hpp"

namespace viewkit {

namespace {

constexpr Rgb kLight = 0x6B1F3A;
constexpr Rgb kDark = 0xB4416A;

View allOfText() {
  return Text{"Ra\"te"}
      .font(11.5, FontWeight::heavy)
      .tracking(-0.25)
      .lineLimit(2)
      .minimumScaleFactor(0.85)
      .multilineAlignment(TextAlignment::trailing)
      .balanced()
      .language("pt-BR")
      .direction(LayoutDirection::rightToLeft)
      .numericTransition()
      .fallback("R");
}

View roundedText() {
  return View{TextElement{.text = "9", .design = FontDesign::rounded}};
}

Shape outline() {
  return Path({{PathStep::Verb::move, {0, kHeight}},
               {PathStep::Verb::line, {kWidth * 0.5, 2}},
               {PathStep::Verb::cubic, {kWidth, 6}, {1, 2}, {3, 4}},
               {PathStep::Verb::close}});
}

Gradient diagonal() {
  return Gradient::even({Color::white(), Color::dynamic(kLight, kDark)}, {0, 0}, {1, 1});
}

Accessibility spoken() {
  return {.label = "Due", .value = "3", .children = Accessibility::Children::combine};
}

// A modifier is shown on the shortest text.
Sample modified(std::string name, View view, const std::string& dump, const std::string& json) {
  return {std::move(name),
          std::move(view),
          "Text \"x\" " + dump + "\n",
          R"({"type":"Text","text":"x","modifiers":[)" + json + "]}"};
}

}  // namespace

std::vector<Sample> elementSamples() {
  return {
      {"empty", View{}, "Empty\n", R"({"type":"Empty"})"},
      {"row",
       HStack{{.alignment = VerticalAlignment::top, .spacing = 6}},
       "HStack alignment top spacing 6\n",
       R"({"type":"HStack","alignment":"top","spacing":6})"},
      {"plainRow", HStack{{}}, "HStack\n", R"({"type":"HStack"})"},
      {"baselineRow",
       HStack{{.alignment = VerticalAlignment::firstTextBaseline}},
       "HStack alignment firstTextBaseline\n",
       R"({"type":"HStack","alignment":"firstTextBaseline"})"},
      {"column",
       VStack{{.alignment = HorizontalAlignment::leading, .spacing = 0}, Text{"x"}, Spacer{}},
       "VStack alignment leading spacing 0\n  Text \"x\"\n  Spacer\n",
       R"({"type":"VStack","alignment":"leading","spacing":0,)"
       R"("children":[{"type":"Text","text":"x"},{"type":"Spacer"}]})"},
      {"pile",
       ZStack{{.alignment = Alignment::bottomTrailing}},
       "ZStack alignment bottomTrailing\n",
       R"({"type":"ZStack","alignment":"bottomTrailing"})"},
      {"spacer", Spacer{0}, "Spacer minLength 0\n", R"({"type":"Spacer","minLength":0})"},
      {"text", Text{"Due"}, "Text \"Due\"\n", R"({"type":"Text","text":"Due"})"},
      {"textWithEverything",
       allOfText(),
       "Text \"Ra\\\"te\" size 11.5 weight heavy tracking -0.25 lineLimit 2 minimumScale 0.85 "
       "align trailing balanced language \"pt-BR\" direction rightToLeft numericTransition "
       "fallback \"R\"\n",
       R"({"type":"Text","text":"Ra\"te","size":11.5,"weight":"heavy","tracking":-0.25,)"
       R"("lineLimit":2,"minimumScale":0.85,"align":"trailing","balanced":true,)"
       R"("language":"pt-BR","direction":"rightToLeft","numericTransition":true,"fallback":"R"})"},
      {"roundedText",
       roundedText(),
       "Text \"9\" design rounded\n",
       R"({"type":"Text","text":"9","design":"rounded"})"},
      {"symbol",
       Symbol{"cart.fill"}.font(13, FontWeight::medium).fallback("tag.fill"),
       "Symbol \"cart.fill\" size 13 weight medium fallback \"tag.fill\"\n",
       R"({"type":"Symbol","symbol":"cart.fill","size":13,"weight":"medium",)"
       R"("fallback":"tag.fill"})"},
      {"image",
       Image{{.path = "Art/card.png",
              .mode = ImageElement::ContentMode::fill,
              .alignment = Alignment::top},
             Circle()},
       "Image \"Art/card.png\" mode fill alignment top\n  Circle\n",
       R"({"type":"Image","path":"Art/card.png","mode":"fill","alignment":"top",)"
       R"("children":[{"type":"Circle"}]})"},
      {"rectangle",
       Rectangle().fill(Color::white()),
       "Rectangle fill #FFFFFF\n",
       R"({"type":"Rectangle","paint":"#FFFFFF"})"},
      {"roundedRectangle",
       RoundedRectangle(kWidth * 0.3, CornerStyle::continuous).innerStroke(Color::secondary(), 1.5),
       "RoundedRectangle radius 0.3W style continuous innerStroke secondary lineWidth 1.5\n",
       R"({"type":"RoundedRectangle","radius":[0.3,0,0],"style":"continuous",)"
       R"("mode":"innerStroke","paint":"secondary","lineWidth":1.5})"},
      {"capsule", Capsule(), "Capsule\n", R"({"type":"Capsule"})"},
      {"circle",
       Circle().fill(Color::dynamic(kLight, kDark).withOpacities(0.1, 0.24)),
       "Circle fill #6B1F3A/#B4416A 0.1/0.24\n",
       R"({"type":"Circle","paint":"#6B1F3A/#B4416A 0.1/0.24"})"},
      {"arc",
       Arc({.center = {kWidth * 0.5, kHeight - 4},
            .radius = min(kWidth / 2, kHeight) - 4.5,
            .startDegrees = 180})
           .stroke(Color::primary().withOpacity(0.18), 9, LineCap::round)
           .trim(0.25, 0.5),
       "Arc center (0.5W, H - 4) radius min(0.5W, H) - 4.5 from 180 stroke primary 0.18 "
       "lineWidth 9 cap round trimFrom 0.25 trimTo 0.5\n",
       R"({"type":"Arc","center":[[0.5,0,0],[0,1,-4]],)"
       R"("radius":[0,0,-4.5,["min",1,[0.5,0,0],[0,1,0]]],"from":180,"mode":"stroke",)"
       R"("paint":"primary 0.18","lineWidth":9,"cap":"round","trimFrom":0.25,"trimTo":0.5})"},
      {"path",
       outline().stroke(Color::black(), 2, LineCap::square, LineJoin::bevel),
       "Path M(0, H) L(0.5W, 2) C(1, 2)(3, 4)(W, 6) Z stroke #000000 lineWidth 2 cap square "
       "join bevel\n",
       R"({"type":"Path","steps":[["M",0,[0,1,0]],["L",[0.5,0,0],2],["C",1,2,3,4,[1,0,0],6],)"
       R"(["Z"]],"mode":"stroke","paint":"#000000","lineWidth":2,"cap":"square",)"
       R"("join":"bevel"})"},
      {"inheritedStroke",
       View{ShapeElement{.geometry = CircleShape{}, .mode = ShapeElement::Mode::stroke}},
       "Circle stroke\n",
       R"({"type":"Circle","mode":"stroke"})"},
      {"gradient",
       LinearGradient(diagonal()),
       "Rectangle fill gradient (0, 0) to (1, 1), #FFFFFF at 0, #6B1F3A/#B4416A at 1\n",
       R"({"type":"Rectangle","paint":{"stops":[["#FFFFFF",0],["#6B1F3A/#B4416A",1]],)"
       R"("end":[1,1]}})"},
      {"canvas",
       Canvas{Circle().position(kWidth / 3, 4)},
       "Canvas\n  Circle .position(x W/3 y 4)\n",
       R"({"type":"Canvas","children":[{"type":"Circle","modifiers":)"
       R"([{"position":{"x":[0.3333333333333333,0,0],"y":4}}]}]})"},
      {"gauge",
       Gauge{{.fraction = 0.25, .lineWidth = 5}, Text{"5"}},
       "Gauge fraction 0.25 lineWidth 5\n  Text \"5\"\n",
       R"({"type":"Gauge","fraction":0.25,"lineWidth":5,)"
       R"("children":[{"type":"Text","text":"5"}]})"},
      {"fitting",
       Fitting{Text{"Groceries"}, Symbol{"cart"}},
       "Fitting\n  Text \"Groceries\"\n  Symbol \"cart\"\n",
       R"({"type":"Fitting","children":[{"type":"Text","text":"Groceries"},)"
       R"({"type":"Symbol","symbol":"cart"}]})"},
      {"component",
       View{HStack{{.spacing = 6}, Text{"x"}}}.named("WidgetHeader"),
       "WidgetHeader HStack spacing 6\n  Text \"x\"\n",
       R"({"type":"HStack","spacing":6,"name":"WidgetHeader",)"
       R"("children":[{"type":"Text","text":"x"}]})"},
  };
}

std::vector<Sample> modifierSamples() {
  const Text x{"x"};
  return {
      modified("frame",
               x.frame(FixedFrame{
                   .width = kWidth * 0.5 - 4.5, .height = 7, .alignment = Alignment::topLeading}),
               ".frame(width 0.5W - 4.5 height 7 alignment topLeading)",
               R"({"frame":{"width":[0.5,0,-4.5],"height":7,"alignment":"topLeading"}})"),
      modified("flexibleFrame",
               x.frame(FlexibleFrame{.minWidth = 1,
                                     .maxWidth = kInfinity,
                                     .minHeight = 2,
                                     .maxHeight = 3,
                                     .alignment = Alignment::leading}),
               ".flexibleFrame(minWidth 1 maxWidth infinity minHeight 2 maxHeight 3 alignment "
               "leading)",
               R"({"flexibleFrame":{"minWidth":1,"maxWidth":"infinity","minHeight":2,)"
               R"("maxHeight":3,"alignment":"leading"}})"),
      modified("padding",
               x.padding({.top = 8, .leading = 12.5, .trailing = -1}),
               ".padding(top 8 leading 12.5 trailing -1)",
               R"({"padding":[8,12.5,0,-1]})"),
      modified("paddingAllRound", x.padding(4), ".padding(4)", R"({"padding":[4,4,4,4]})"),
      modified("background",
               x.background(Capsule(), Alignment::leading),
               ".background(alignment leading)\n  background: Capsule",
               R"({"background":{"type":"Capsule"},"alignment":"leading"})"),
      modified("overlay",
               x.overlay(HStack{{}, Circle()}),
               ".overlay\n  overlay: HStack\n    Circle",
               R"({"overlay":{"type":"HStack","children":[{"type":"Circle"}]}})"),
      modified("foreground",
               x.foregroundStyle(Color::dynamic(kLight, kDark)),
               ".foreground(#6B1F3A/#B4416A)",
               R"({"foreground":"#6B1F3A/#B4416A"})"),
      modified("inheritedForeground",
               x.foregroundStyle(Paint{}),
               ".foreground(inherited)",
               R"({"foreground":null})"),
      modified("opacity", x.opacity(0.92), ".opacity(0.92)", R"({"opacity":0.92})"),
      modified("defaultOpacity", x.opacity(1), ".opacity(1)", R"({"opacity":1})"),
      modified("clip",
               x.clip(RoundedRectangleShape{6}),
               ".clip(RoundedRectangle radius 6)",
               R"({"clip":{"type":"RoundedRectangle","radius":6}})"),
      modified("cutout",
               x.cutout(CapsuleShape{}),
               ".cutout(Capsule)",
               R"({"cutout":{"type":"Capsule"}})"),
      modified("shadow",
               x.shadow({.color = Color::black().withOpacity(0.2), .radius = 4, .x = -1, .y = 2}),
               ".shadow(#000000 0.2 radius 4 x -1 y 2)",
               R"({"shadow":"#000000 0.2","radius":4,"x":-1,"y":2})"),
      modified("offset",
               x.offset(kWidth * -0.25, 3),
               ".offset(x -0.25W y 3)",
               R"({"offset":{"x":[-0.25,0,0],"y":3}})"),
      modified("position",
               x.position(0, kHeight / 2),
               ".position(y 0.5H)",
               R"({"position":{"y":[0,0.5,0]}})"),
      modified("zIndex", x.zIndex(-2), ".zIndex(-2)", R"({"zIndex":-2})"),
      modified("aspectRatio",
               x.aspectRatio(1.6, ImageElement::ContentMode::fill),
               ".aspectRatio(1.6 mode fill)",
               R"({"aspectRatio":1.6,"mode":"fill"})"),
      modified(
          "layoutPriority", x.layoutPriority(1), ".layoutPriority(1)", R"({"layoutPriority":1})"),
      modified("fixedSize", x.fixedSize(), ".fixedSize", R"({"fixedSize":{}})"),
      modified("fixedWidth",
               x.fixedSize(true, false),
               ".fixedSize(vertical false)",
               R"({"fixedSize":{"vertical":false}})"),
      modified("accessibility",
               x.accessibility(spoken()),
               ".accessibility(label \"Due\" value \"3\" children combine)",
               R"({"accessibility":{"label":"Due","value":"3","children":"combine"}})"),
      modified("accessibilityHidden",
               x.accessibilityHidden(),
               ".accessibility(hidden)",
               R"({"accessibility":{"hidden":true}})"),
      modified("privacy",
               x.privacySensitive(PrivacyTreatment::covered),
               ".privacy(covered)",
               R"({"privacy":"covered"})"),
      modified("accentable", x.accentable(), ".accentable", R"({"accentable":{}})"),
      modified("link",
               x.link("quorvel://a?b=c"),
               ".link(\"quorvel://a?b=c\")",
               R"({"link":"quorvel://a?b=c"})"),
      modified("widgetURL",
               x.widgetURL("quorvel://"),
               ".widgetURL(\"quorvel://\")",
               R"({"widgetURL":"quorvel://"})"),
      modified("containerBackground",
               x.containerBackground(Rectangle()),
               ".containerBackground\n  containerBackground: Rectangle",
               R"({"containerBackground":{"type":"Rectangle"}})"),
      modified("layoutDirection",
               x.layoutDirection(LayoutDirection::rightToLeft),
               ".layoutDirection(rightToLeft)",
               R"({"layoutDirection":"rightToLeft"})"),
      modified("sharedScale", x.sharedScale(), ".sharedScale", R"({"sharedScale":{}})"),
      modified("chain",
               x.padding({.top = 8}).foregroundStyle(Color::primary()).padding(1),
               ".padding(top 8) .foreground(primary) .padding(1)",
               R"({"padding":[8,0,0,0]},{"foreground":"primary"},{"padding":[1,1,1,1]})"),
  };
}

// The example of docs/viewkit.md.
Sample documentedSample() {
  const Color ink = Color::dynamic(kLight, kDark);
  const View header = HStack{{.spacing = 6}, Text{"Due"}.font(13, FontWeight::semibold)};
  return {"documented",
          header.named("WidgetHeader")
              .padding({.top = 8})
              .background(Capsule().fill(ink.withOpacities(0.1, 0.24))),
          "WidgetHeader HStack spacing 6 .padding(top 8) .background\n"
          "  background: Capsule fill #6B1F3A/#B4416A 0.1/0.24\n"
          "  Text \"Due\" size 13 weight semibold\n",
          R"({"type":"HStack","spacing":6,"name":"WidgetHeader",)"
          R"("children":[{"type":"Text","text":"Due","size":13,"weight":"semibold"}],)"
          R"("modifiers":[{"padding":[8,0,0,0]},)"
          R"({"background":{"type":"Capsule","paint":"#6B1F3A/#B4416A 0.1/0.24"}}]})"};
}

std::vector<Sample> allSamples() {
  std::vector<Sample> samples = elementSamples();
  samples.push_back(documentedSample());
  for (Sample& sample : modifierSamples()) samples.push_back(std::move(sample));
  return samples;
}

}  // namespace viewkit
