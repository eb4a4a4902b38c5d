#include "Samples.hpp"

#include "ViewKit/ViewKit.hpp"

namespace viewkit {

// The example of docs/viewkit.md.
Sample documentedSample() {
  const Color ink = Color::dynamic(0x6B1F3A, 0xB4416A);
  const View header = HStack{{.spacing = 6}, Text{"Due"}.font(13, FontWeight::semibold)};
  return {"Documented",
          header.named("WidgetHeader")
              .padding({.top = 8})
              .background(Capsule().fill(ink.withOpacities(0.1, 0.24))),
          "WidgetHeader HStack spacing 6\n"
          "  .padding(top 8)\n"
          "  .background\n"
          "    Capsule fill #6B1F3A/#B4416A 0.1/0.24\n"
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
