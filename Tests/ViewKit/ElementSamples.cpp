// A view for each element and shape.
#include "Samples.hpp"
#include "ViewKit/ViewKit.hpp"

namespace viewkit {

namespace {

constexpr Rgb kLight = 0x6B1F3A;
constexpr Rgb kDark = 0xB4416A;

std::vector<Sample> layoutSamples() {
  return {
      {"Empty", View{}, "Empty\n", R"({"type":"Empty"})"},
      {"Row",
       HStack{{.alignment = VerticalAlignment::top, .spacing = 6}},
       "HStack alignment top spacing 6\n",
       R"({"type":"HStack","alignment":"top","spacing":6})"},
      {"PlainRow", HStack{{}}, "HStack\n", R"({"type":"HStack"})"},
      {"BaselineRow",
       HStack{{.alignment = VerticalAlignment::firstTextBaseline}},
       "HStack alignment firstTextBaseline\n",
       R"({"type":"HStack","alignment":"firstTextBaseline"})"},
      {"Column",
       VStack{{.alignment = HorizontalAlignment::leading, .spacing = 0}, Text{"x"}, Spacer{}},
       "VStack alignment leading spacing 0\n  Text \"x\"\n  Spacer\n",
       R"({"type":"VStack","alignment":"leading","spacing":0,)"
       R"("children":[{"type":"Text","text":"x"},{"type":"Spacer"}]})"},
      {"Pile",
       ZStack{{.alignment = Alignment::bottomTrailing}},
       "ZStack alignment bottomTrailing\n",
       R"({"type":"ZStack","alignment":"bottomTrailing"})"},
      {"Spacer", Spacer{0}, "Spacer minLength 0\n", R"({"type":"Spacer","minLength":0})"},
      {"Canvas",
       Canvas{Circle().position(kWidth / 3, 4)},
       "Canvas\n  Circle\n    .position(x W/3 y 4)\n",
       R"({"type":"Canvas","children":[{"type":"Circle","modifiers":)"
       R"([{"position":{"x":[0.3333333333333333,0,0],"y":4}}]}]})"},
      {"Gauge",
       Gauge{{.fraction = 0.25, .lineWidth = 5}, Text{"5"}},
       "Gauge fraction 0.25 lineWidth 5\n  Text \"5\"\n",
       R"({"type":"Gauge","fraction":0.25,"lineWidth":5,)"
       R"("children":[{"type":"Text","text":"5"}]})"},
      {"Fitting",
       Fitting{Text{"Groceries"}, Symbol{"cart"}},
       "Fitting\n  Text \"Groceries\"\n  Symbol \"cart\"\n",
       R"({"type":"Fitting","children":[{"type":"Text","text":"Groceries"},)"
       R"({"type":"Symbol","symbol":"cart"}]})"},
      {"Component",
       View{HStack{{.spacing = 6}, Text{"x"}}}.named("WidgetHeader"),
       "WidgetHeader HStack spacing 6\n  Text \"x\"\n",
       R"({"type":"HStack","spacing":6,"name":"WidgetHeader",)"
       R"("children":[{"type":"Text","text":"x"}]})"},
  };
}

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

std::vector<Sample> textSamples() {
  return {
      {"Text", Text{"Due"}, "Text \"Due\"\n", R"({"type":"Text","text":"Due"})"},
      {"TextWithEverything",
       allOfText(),
       "Text \"Ra\\\"te\" size 11.5 weight heavy tracking -0.25 lineLimit 2 minimumScale 0.85 "
       "align trailing\n"
       "    balanced language \"pt-BR\" direction rightToLeft numericTransition "
       "fallback \"R\"\n",
       R"({"type":"Text","text":"Ra\"te","size":11.5,"weight":"heavy","tracking":-0.25,)"
       R"("lineLimit":2,"minimumScale":0.85,"align":"trailing","balanced":true,)"
       R"("language":"pt-BR","direction":"rightToLeft","numericTransition":true,"fallback":"R"})"},
      {"RoundedText",
       roundedText(),
       "Text \"9\" design rounded\n",
       R"({"type":"Text","text":"9","design":"rounded"})"},
      {"Symbol",
       Symbol{"cart.fill"}.font(13, FontWeight::medium).fallback("tag.fill"),
       "Symbol \"cart.fill\" size 13 weight medium fallback \"tag.fill\"\n",
       R"({"type":"Symbol","symbol":"cart.fill","size":13,"weight":"medium",)"
       R"("fallback":"tag.fill"})"},
      {"Image",
       Image{{.path = "Art/card.png",
              .mode = ImageElement::ContentMode::fill,
              .alignment = Alignment::top},
             Circle()},
       "Image \"Art/card.png\" mode fill alignment top\n  Circle\n",
       R"({"type":"Image","path":"Art/card.png","mode":"fill","alignment":"top",)"
       R"("children":[{"type":"Circle"}]})"},
  };
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

std::vector<Sample> shapeSamples() {
  return {
      {"Rectangle",
       Rectangle().fill(Color::white()),
       "Rectangle fill #FFFFFF\n",
       R"({"type":"Rectangle","paint":"#FFFFFF"})"},
      {"RoundedRectangle",
       RoundedRectangle(kWidth * 0.3, CornerStyle::continuous).innerStroke(Color::secondary(), 1.5),
       "RoundedRectangle radius 0.3W style continuous innerStroke secondary lineWidth 1.5\n",
       R"({"type":"RoundedRectangle","radius":[0.3,0,0],"style":"continuous",)"
       R"("mode":"innerStroke","paint":"secondary","lineWidth":1.5})"},
      {"Capsule", Capsule(), "Capsule\n", R"({"type":"Capsule"})"},
      {"Circle",
       Circle().fill(Color::dynamic(kLight, kDark).withOpacities(0.1, 0.24)),
       "Circle fill #6B1F3A/#B4416A 0.1/0.24\n",
       R"({"type":"Circle","paint":"#6B1F3A/#B4416A 0.1/0.24"})"},
      {"Arc",
       Arc({.center = {kWidth * 0.5, kHeight - 4},
            .radius = min(kWidth / 2, kHeight) - 4.5,
            .startDegrees = 180})
           .stroke(Color::primary().withOpacity(0.18), 9, LineCap::round)
           .trim(0.25, 0.5),
       "Arc center (0.5W, H - 4) radius min(0.5W, H) - 4.5 from 180 stroke primary 0.18 "
       "lineWidth 9\n    cap round trimFrom 0.25 trimTo 0.5\n",
       R"({"type":"Arc","center":[[0.5,0,0],[0,1,-4]],)"
       R"("radius":[0,0,-4.5,["min",1,[0.5,0,0],[0,1,0]]],"from":180,"mode":"stroke",)"
       R"("paint":"primary 0.18","lineWidth":9,"cap":"round","trimFrom":0.25,"trimTo":0.5})"},
      {"Path",
       outline().stroke(Color::black(), 2, LineCap::square, LineJoin::bevel),
       "Path M(0, H) L(0.5W, 2) C(1, 2)(3, 4)(W, 6) Z stroke #000000 lineWidth 2 cap square "
       "join bevel\n",
       R"({"type":"Path","steps":[["M",0,[0,1,0]],["L",[0.5,0,0],2],["C",1,2,3,4,[1,0,0],6],)"
       R"(["Z"]],"mode":"stroke","paint":"#000000","lineWidth":2,"cap":"square",)"
       R"("join":"bevel"})"},
      {"InheritedStroke",
       View{ShapeElement{.geometry = CircleShape{}, .mode = ShapeElement::Mode::stroke}},
       "Circle stroke\n",
       R"({"type":"Circle","mode":"stroke"})"},
      {"Gradient",
       LinearGradient(diagonal()),
       "Rectangle fill gradient (0, 0) to (1, 1), #FFFFFF at 0, #6B1F3A/#B4416A at 1\n",
       R"({"type":"Rectangle","paint":{"stops":[["#FFFFFF",0],["#6B1F3A/#B4416A",1]],)"
       R"("end":[1,1]}})"},
  };
}

}  // namespace

std::vector<Sample> elementSamples() {
  std::vector<Sample> samples;
  for (const auto& some : {layoutSamples(), textSamples(), shapeSamples()}) {
    samples.insert(samples.end(), some.begin(), some.end());
  }
  return samples;
}

}  // namespace viewkit
