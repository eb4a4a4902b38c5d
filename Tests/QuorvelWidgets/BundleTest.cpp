#include <gmock/gmock.h>

#include <algorithm>
#include <ostream>
#include <set>

#include "Foundation/Bundle.hpp"
#include "QuorvelWidgets/QuorvelWidgetsBundle.hpp"
#include "QuorvelWidgets/QuorvelWidgetsExtension.hpp"

namespace quorvel {
namespace {

using enum widgetruntime::WidgetFamily;
using Families = std::vector<widgetruntime::WidgetFamily>;

widgetruntime::WidgetBundle bundle(const BundleOptions& options = {}) {
  const auto files = foundation::FileManager::withContainer("/nonexistent");
  return makeQuorvelWidgetsBundle(SnapshotStore{foundation::Bundle{}, files}, files, options);
}

struct Declared {
  std::string kind;
  std::string name;
  std::string description;
  Families families;
  std::string intent;
};

void PrintTo(const Declared& declared, std::ostream* out) {
  *out << declared.kind;
}

const Declared kDeclared[] = {
    {"QuorvelCardLimitWidget",
     "Remaining Limit",
     "How much limit is left on your cards.",
     {systemSmall, systemMedium, systemLarge},
     "SelectCardIntent"},
    {"QuorvelDueWidget",
     "Next Due",
     "Card bills, bills and loans due next.",
     {systemSmall, systemMedium},
     ""},
    {"QuorvelNetWorthWidget",
     "Net Worth",
     "Your net worth and how it's trending.",
     {systemSmall, systemMedium, systemLarge},
     ""},
    {"QuorvelSafeToSpendWidget",
     "Safe to Spend",
     "How much you can spend per day to stay on budget.",
     {systemSmall, systemMedium},
     "SafeToSpendIntent"},
    {"QuorvelSpendingWidget",
     "Spending This Month",
     "This month's spending vs last month.",
     {systemSmall, systemMedium, systemLarge},
     ""},
};

const widgetruntime::Widget* widgetOf(const widgetruntime::WidgetBundle& bundle,
                                      std::string_view kind) {
  const auto widget = std::ranges::find(
      bundle.widgets, kind, [](const auto& each) { return each.description.kind; });
  return widget == bundle.widgets.end() ? nullptr : &*widget;
}

class DeclaredWidget : public ::testing::TestWithParam<Declared> {};

TEST_P(DeclaredWidget, IsOffered) {
  const auto offered = bundle();
  const auto* widget = widgetOf(offered, GetParam().kind);
  ASSERT_NE(widget, nullptr);
  EXPECT_EQ(widget->description.displayName, GetParam().name);
  EXPECT_EQ(widget->description.description, GetParam().description);
  EXPECT_EQ(widget->description.families, GetParam().families);
  EXPECT_EQ(widget->configuration ? widget->configuration->name : "", GetParam().intent);
}

INSTANTIATE_TEST_SUITE_P(Bundle,
                         DeclaredWidget,
                         ::testing::ValuesIn(kDeclared),
                         [](const auto& widget) { return widget.param.kind; });

TEST(Bundle, KeepsTheGallerysOrder) {
  std::vector<std::string> expected;
  for (const Declared& declared : kDeclared) expected.push_back(declared.kind);
  std::vector<std::string> kinds;
  for (const auto& widget : bundle().widgets) {
    const std::string& kind = widget.description.kind;
    if (std::ranges::find(expected, kind) != expected.end()) kinds.push_back(kind);
  }
  EXPECT_EQ(kinds, expected);
}

TEST(Bundle, KindsAreDistinct) {
  std::vector<std::string> kinds;
  for (const auto& widget : bundle().widgets) kinds.push_back(widget.description.kind);
  for (const auto& control : bundle().controls) kinds.push_back(control.kind);
  EXPECT_EQ(std::set(kinds.begin(), kinds.end()).size(), kinds.size());
}

TEST(Bundle, EveryWidgetIsNamedDescribedAndDrawnToItsEdges) {
  for (const auto& widget : bundle().widgets) {
    SCOPED_TRACE(widget.description.kind);
    EXPECT_TRUE(widget.description.kind.starts_with("Quorvel"));
    EXPECT_TRUE(widget.description.kind.ends_with("Widget"));
    EXPECT_NE(widget.description.displayName, "");
    EXPECT_TRUE(widget.description.description.ends_with("."));
    EXPECT_THAT(widget.description.families, ::testing::IsSupersetOf({systemSmall, systemMedium}));
    EXPECT_TRUE(widget.description.contentMarginsDisabled);
  }
}

struct Named {
  const char* lang;
  std::array<const char*, 6> names;  ///< those of kDeclared, then the control's
};

constexpr Named kNames[] = {
    {"en",
     {"Remaining Limit",
      "Next Due",
      "Net Worth",
      "Safe to Spend",
      "Spending This Month",
      "Add Expense"}},
    {"id",
     {"Sisa limit",
      "Jatuh tempo",
      "Kekayaan bersih",
      "Aman dibelanjakan",
      "Pengeluaran bulan ini",
      "Catat pengeluaran"}},
    {"es",
     {"Límite disponible",
      "Próximo pago",
      "Patrimonio neto",
      "Libre para gastar",
      "Gastado este mes",
      "Añadir gasto"}},
    {"pt-BR",
     {"Limite disponível",
      "Próximo vencimento",
      "Patrimônio líquido",
      "Livre para gastar",
      "Gasto neste mês",
      "Adicionar gasto"}},
    {"fr",
     {"Plafond restant",
      "Prochaine échéance",
      "Patrimoine net",
      "Disponible",
      "Dépensé ce mois-ci",
      "Ajouter une dépense"}},
    {"de",
     {"Verfügbares Limit",
      "Nächste Fälligkeit",
      "Nettovermögen",
      "Frei verfügbar",
      "Ausgaben im Monat",
      "Ausgabe hinzufügen"}},
    {"ru",
     {"Доступный лимит",
      "Ближайший платёж",
      "Чистый капитал",
      "Можно тратить",
      "Расходы за месяц",
      "Добавить расход"}},
    {"ja", {"利用可能額", "次の支払い", "純資産", "使えるお金", "今月の支出", "支出を追加"}},
    {"ko", {"남은 한도", "다음 결제", "순자산", "쓸 수 있는 돈", "이번 달 지출", "지출 추가"}},
    {"zh-Hans", {"可用额度", "下一笔待付款", "净资产", "可支配金额", "本月支出", "添加支出"}},
    {"zh-Hant", {"可用額度", "下一筆待繳", "淨資產", "可安心花用", "本月支出", "新增支出"}},
    {"hi", {"उपलब्ध लिमिट", "अगला भुगतान", "नेट वर्थ", "ख़र्च के लिए उपलब्ध", "इस महीने का ख़र्च", "ख़र्च जोड़ें"}},
    {"ar",
     {"الحد المتبقي",
      "الاستحقاق القادم",
      "صافي الثروة",
      "المتاح للإنفاق",
      "إنفاق هذا الشهر",
      "إضافة مصروف"}},
};

TEST(Bundle, NamesAreInTheGallerysLanguage) {
  static_assert(std::size(kNames) == 13);
  for (const auto& [lang, names] : kNames) {
    const auto named = bundle({.lang = lang});
    for (std::size_t i = 0; i < std::size(kDeclared); ++i) {
      EXPECT_EQ(widgetOf(named, kDeclared[i].kind)->description.displayName, names[i]) << lang;
    }
    EXPECT_EQ(named.controls[0].displayName, names[5]) << lang;
    EXPECT_EQ(named.controls[0].label, names[5]) << lang;
    EXPECT_EQ(named.actions[0].title, names[5]) << lang;
  }
}

TEST(Bundle, DescriptionsAreEnglishInEveryLanguage) {
  const auto english = bundle();
  const auto german = bundle({.lang = "de"});
  for (std::size_t i = 0; i < english.widgets.size(); ++i) {
    EXPECT_EQ(german.widgets[i].description.description,
              english.widgets[i].description.description);
  }
  EXPECT_EQ(german.controls[0].description, "Open Quorvel to log an expense.");
}

TEST(Bundle, TheDevicesFirstLanguageThatIsSpokenNamesTheWidgets) {
  const auto made =
      quorvelWidgetsExtension().makeBundle({.preferredLanguages = {"nl-NL", "de-AT", "fr"}});
  EXPECT_EQ(widgetOf(made, "QuorvelDueWidget")->description.displayName, "Nächste Fälligkeit");
  const auto usual = quorvelWidgetsExtension().makeBundle({});
  EXPECT_EQ(widgetOf(usual, "QuorvelDueWidget")->description.displayName, "Next Due");
}

TEST(Bundle, AHostWithoutControlsGetsTheWidgetsAlone) {
  const auto alone = bundle({.offersControls = false});
  EXPECT_EQ(alone.widgets.size(), bundle().widgets.size());
  EXPECT_TRUE(alone.controls.empty());
  EXPECT_TRUE(alone.actions.empty());
  EXPECT_EQ(bundle().controls.size(), 1U);
}

}  // namespace
}  // namespace quorvel
