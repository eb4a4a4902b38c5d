#include "QuorvelWidgets/WidgetSupport/Components/FaceStyle.hpp"

#include "QuorvelWidgets/WidgetSupport/Colors/WidgetContrast.hpp"
#include "QuorvelWidgets/WidgetSupport/Components/CardArtTile.hpp"

namespace quorvel {

using namespace viewkit;

double faceVeil(const std::vector<std::string>& colors, std::optional<double> textOpacity) {
  if (!textOpacity) return 0;
  std::vector<Rgb> stops;
  for (const Color& color : faceColors(colors)) {
    stops.push_back(std::get<Color::Pair>(color.value).light);
  }
  return leastVeil(stops, 0xFFFFFF, *textOpacity);
}

bool hidesTheFace(double veil) {
  constexpr double kMostVeil = 0.35;
  return veil > kMostVeil;
}

std::vector<std::string> readableFace(std::vector<std::string> colors) {
  if (hidesTheFace(faceVeil(colors, 1))) colors.clear();
  return colors;
}

Gradient veilGradient(double veil, double foot) {
  constexpr double kFade = 0.25;
  const Color full = Color::black().withOpacity(veil);
  if (foot >= 1) return Gradient::even({full, full}, {0, 0}, {0, 1});
  return {.stops = {{full, 0}, {full, foot}, {full.withOpacity(0), std::min(foot + kFade, 1.0)}},
          .start = {0, 0},
          .end = {0, 1}};
}

View faceGround(const std::vector<std::string>& colors,
                std::optional<double> textOpacity,
                double foot) {
  View gradient = LinearGradient(Gradient::even(faceColors(colors), {0, 0}, {1, 1}));
  const double veil = faceVeil(colors, textOpacity);
  if (veil == 0) return gradient;
  return gradient.overlay(Rectangle().fill(veilGradient(veil, foot)));
}

View faceEdge(double cornerRadius) {
  constexpr double kFade = 0.06;  ///< of the width, at both ends
  const Color light = Color::white().withOpacity(0.24);
  const Color none = light.withOpacity(0);
  return Rectangle()
      .fill(Gradient{.stops = {{none, 0}, {light, kFade}, {light, 1 - kFade}, {none, 1}},
                     .start = {0, 0},
                     .end = {1, 0}})
      .frame(FixedFrame{.height = 1})
      .padding(Insets::horizontal(cornerRadius * 0.8));
}

View faceCutout(double cornerRadius) {
  constexpr double kGap = 1.5;
  return Rectangle()
      .fill(Color::clear())
      .cutout(RoundedRectangleShape{cornerRadius + kGap, CornerStyle::continuous})
      .padding(-kGap);
}

}  // namespace quorvel
