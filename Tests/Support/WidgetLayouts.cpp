#include "Tests/Support/WidgetLayouts.hpp"

#include <algorithm>
#include <cctype>
#include <stdexcept>

#include "Control/KindName.hpp"
#include "Foundation/Bundle.hpp"
#include "QuorvelWidgets/Due/DueWidget.hpp"
#include "QuorvelWidgets/QuorvelWidgetsBundle.hpp"
#include "Tests/Support/TemporaryFolder.hpp"

namespace testsupport {
namespace {

using widgetruntime::IntentValues;
using widgetruntime::Widget;
using widgetruntime::WidgetContent;
using widgetruntime::WidgetFamily;

/// The extension with a document that can be exchanged.
class Extension {
 public:
  WidgetContent content(const WidgetLayout& layout, const WidgetState& state) {
    replaceDocument(state.snapshot);
    widgetruntime::Environment environment = state.environment;
    environment.widgetFamily = layout.family;
    // As hosts ask: they draw no container behind accessories.
    if (isAccessory(layout.family)) environment.showsWidgetContainerBackground = false;
    return widget(layout.kind)
        .snapshot({.family = layout.family, .device = {.now = state.date}}, layout.configuration)
        .content(environment);
  }

  [[nodiscard]] const widgetruntime::WidgetBundle& bundle() const { return bundle_; }

 private:
  [[nodiscard]] const Widget& widget(std::string_view kind) const {
    for (const Widget& widget : bundle_.widgets) {
      if (widget.description.kind == kind) return widget;
    }
    throw std::invalid_argument("no widget " + std::string{kind});
  }

  void replaceDocument(const std::optional<quorvel::WidgetSnapshot>& snapshot) {
    if (snapshot == document_) return;
    if (snapshot) {
      folder_.write(quorvel::kSnapshotFileName, quorvel::encodeWidgetSnapshot(*snapshot));
    } else {
      std::filesystem::remove(folder_.path() / quorvel::kSnapshotFileName);
    }
    document_ = snapshot;
  }

  TemporaryFolder folder_;
  std::optional<quorvel::WidgetSnapshot> document_;
  foundation::FileManager files_ = foundation::FileManager::withContainer(folder_.path());
  widgetruntime::WidgetBundle bundle_ = quorvel::makeQuorvelWidgetsBundle(
      quorvel::SnapshotStore{foundation::Bundle{}, files_}, files_);
};

Extension& extension() {
  static Extension extension;
  return extension;
}

/// One for each choice of an enumeration that is not the default.
std::vector<IntentValues> otherConfigurations(const Widget& widget) {
  std::vector<IntentValues> others;
  if (!widget.configuration) return others;
  for (const auto& parameter : widget.configuration->parameters) {
    for (const auto& option : parameter.cases) {
      if (option.id != parameter.defaultValue) others.push_back({{parameter.name, option.id}});
    }
  }
  return others;
}

std::vector<WidgetLayout> makeLayouts() {
  const auto now = morningOf("2025-03-14");
  const WidgetState state{"full", now, richSnapshot("en", now), {}};
  std::vector<WidgetLayout> layouts;
  for (const Widget& widget : bundle().widgets) {
    for (const WidgetFamily family : widget.description.families) {
      const WidgetLayout usual = layoutOf(widget.description.kind, family);
      layouts.push_back(usual);
      for (const IntentValues& configuration : otherConfigurations(widget)) {
        WidgetLayout other = layoutOf(widget.description.kind, family, configuration);
        if (viewOf(other, state) != viewOf(usual, state)) layouts.push_back(std::move(other));
      }
    }
  }
  for (const WidgetFamily family : widgetruntime::kAllFamilies) {
    if (isAccessory(family)) layouts.push_back(layoutOf(quorvel::DueWidget::kKind, family));
  }
  return layouts;
}

/// "systemSmall" is "small".
std::string shortName(WidgetFamily family) {
  const std::string_view name = nameOf(family);
  std::string word{name.substr(std::min(name.size(), name.find_first_of("SMLCRI")))};
  word[0] = static_cast<char>(std::tolower(word[0]));
  return word;
}

}  // namespace

WidgetLayout layoutOf(std::string_view kind,
                      WidgetFamily family,
                      const IntentValues& configuration) {
  const std::string widget = control::shortKind(kind);
  std::string form = shortName(family);
  for (const auto& [parameter, value] : configuration) form += "-" + value;
  return {.kind = std::string{kind},
          .family = family,
          .configuration = configuration,
          .widget = inUpperCamel(widget),
          .form = form,
          .name = widget + "-" + form};
}

std::string inUpperCamel(std::string_view hyphenated) {
  std::string result;
  bool startsWord = true;
  for (const char c : hyphenated) {
    if (c != '-') result += startsWord ? static_cast<char>(std::toupper(c)) : c;
    startsWord = c == '-';
  }
  return result;
}

const widgetruntime::WidgetBundle& bundle() {
  return extension().bundle();
}

const std::vector<WidgetLayout>& layouts() {
  static const std::vector<WidgetLayout> layouts = makeLayouts();
  return layouts;
}

WidgetContent contentOf(const WidgetLayout& layout, const WidgetState& state) {
  return extension().content(layout, state);
}

viewkit::View viewOf(const WidgetLayout& layout, const WidgetState& state) {
  return contentOf(layout, state).view;
}

}  // namespace testsupport
