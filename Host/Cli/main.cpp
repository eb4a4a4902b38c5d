// quorvel-host: the one program that holds the host and, for commands that run in one process, the
// extension.
#include <string_view>

#include "Cli/Program.hpp"
#include "Foundation/ProcessPrivacy.hpp"
#include "Foundation/ThisProcess.hpp"
#include "QuorvelWidgets/Gallery/ComponentSheet.hpp"
#include "QuorvelWidgets/Gallery/DocumentStates.hpp"
#include "QuorvelWidgets/Gallery/SnapshotStates.hpp"
#include "QuorvelWidgets/QuorvelWidgetsExtension.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotSample.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"

namespace {

std::string sampleDocument(const foundation::Device& device, std::string_view language) {
  foundation::Device reader = device;
  if (!language.empty()) reader.preferredLanguages = {std::string(language)};
  return foundation::encodeJson(quorvel::sampleSnapshot(reader));
}

std::vector<cli::DocumentState> statesOnSheets() {
  std::vector<cli::DocumentState> states;
  for (const auto& state : quorvel::snapshotStates()) {
    if (!state.caption.empty()) states.push_back({state.name, state.caption, state.isUsual});
  }
  return states;
}

}  // namespace

int main(int argc, char** argv) {
  foundation::keepMemoryPrivate();
  const cli::Program program{
      .extension = quorvel::quorvelWidgetsExtension(),
      .sampleDocument = sampleDocument,
      .states = statesOnSheets(),
      .documentInState = quorvel::documentInState,
      .documentWithOtherAmounts = quorvel::documentWithOtherAmounts,
      .componentSheet = quorvel::componentSheet,
      .componentSheetWidth = quorvel::kComponentSheetWidth,
      .languages = {quorvel::kLanguageCodes.begin(), quorvel::kLanguageCodes.end()},
      .environment = foundation::processEnvironment(),
      .folder = foundation::programFolder()};
  return cli::run(
      std::span<const char* const>(argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)),
      program);
}
