// What a host makes of the same view: tints, appearances, redaction.
#include "Painting/Painting.hpp"

namespace rendering {
namespace {

using namespace viewkit;

TEST_F(Painting, AccentedModeKeepsOnlyTintsAndOpacity) {
  const View view =
      HStack{{.spacing = 0}, box(kRed.withOpacity(0.5), 1, 1), box(kBlue, 1, 1).accentable()};
  RenderOptions options = plain(2, 1);
  options.mode = RenderingMode::accented;
  options.tint = 0x3366CC;
  options.appearance = Appearance::dark;
  const Bitmap b = draw(view, options);
  EXPECT_EQ(at(b, 0, 0), 0x80808080) << "white at half";
  EXPECT_EQ(at(b, 1, 0), 0xFF3366CC);
}

// Pure green has 0.7152 of white's light, which is the grey 220 (0.7152 -> 0.8617 encoded).
TEST_F(Painting, VibrantModeTurnsColoursIntoGreys) {
  RenderOptions options = plain(1, 1);
  options.mode = RenderingMode::vibrant;
  EXPECT_EQ(at(draw(box(Color::same(0x00FF00), 1, 1), options), 0, 0), 0xFFDCDCDC);
}

TEST_F(Painting, RolesFollowTheAppearance) {
  const View view =
      HStack{{.spacing = 0}, box(Color::primary(), 1, 1), box(Color::secondary(), 1, 1)};
  RenderOptions options = plain(2, 1);
  EXPECT_EQ(at(draw(view, options), 0, 0), 0xFF000000);
  EXPECT_EQ(at(draw(view, options), 1, 0), 0x99000000);
  options.appearance = Appearance::dark;
  EXPECT_EQ(at(draw(view, options), 0, 0), 0xFFFFFFFF);
  EXPECT_EQ(at(draw(view, options), 1, 0), 0x99999999);
}

TEST_F(Painting, CoveredViewsBecomeABlankBar) {
  const View amount = Text{"7391"}.font(20, FontWeight::bold).foregroundStyle(kRed);
  const View covered = amount.privacySensitive(PrivacyTreatment::covered);
  RenderOptions options = plain(80, 30);
  expectSame(draw(covered, options), draw(amount, options), 0);
  options.redaction.privacy = true;
  const Bitmap bar = draw(covered, options);
  EXPECT_EQ(at(bar, 40, 15), 0xFFECEBE6) << "an empty cell";
  const View blue = Text{"7391"}.font(20, FontWeight::bold).foregroundStyle(kBlue);
  expectSame(draw(blue.privacySensitive(PrivacyTreatment::covered), options), bar, 0);
  options.appearance = Appearance::dark;
  EXPECT_EQ(at(draw(covered, options), 40, 15), 0xFF2A2926);
  options.mode = RenderingMode::vibrant;
  EXPECT_EQ(at(draw(covered, options), 40, 15), 0x24242424) << "0.14 of white";
  options.mode = RenderingMode::fullColor;
  options.appearance = Appearance::light;
  const View masked = amount.privacySensitive(PrivacyTreatment::masked);
  expectSame(draw(masked, options), draw(amount, options), 0);
}

TEST_F(Painting, PlaceholdersShowBarsForTextsAndKeepShapes) {
  RenderOptions options = plain(60, 40);
  options.redaction.placeholder = true;
  const Bitmap text = draw(Text{"i"}.font(20).foregroundStyle(kRed), options);
  // 0.22 of the text's own colour.
  EXPECT_EQ(at(text, 30, 20), 0x38380000);
  // At least two em wide.
  EXPECT_EQ(at(text, 12, 20), 0x38380000);
  EXPECT_EQ(at(text, 48, 20), 0x38380000);
  EXPECT_EQ(at(draw(Circle().fill(kRed), options), 30, 20), 0xFFFF0000);
  const Bitmap symbol = draw(Symbol{"house.fill"}.font(20).foregroundStyle(kRed), options);
  EXPECT_EQ(at(symbol, 30, 20), 0x38380000);
}

}  // namespace
}  // namespace rendering
