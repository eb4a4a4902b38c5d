#include "QuorvelWidgets/QuorvelWidgetsExtension.hpp"

#include "Foundation/Bundle.hpp"
#include "Foundation/FileManager.hpp"
#include "QuorvelWidgets/QuorvelWidgetsBundle.hpp"
#include "QuorvelWidgets/SnapshotDiagnosis.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotStore.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"

namespace quorvel {

using foundation::Bundle;
using foundation::FileManager;
using widgetruntime::InitializeParameters;

namespace {

FileManager makeFileManager(const InitializeParameters& parameters) {
  return parameters.container ? FileManager::withContainer(*parameters.container)
                              : FileManager{parameters.containerRoot.value_or("")};
}

SnapshotStore makeStore(const InitializeParameters& parameters, const FileManager& files) {
  return {parameters.infoPlist ? Bundle::withInformationAt(*parameters.infoPlist) : Bundle{},
          files,
          parameters.snapshotFile};
}

widgetruntime::WidgetBundle makeBundle(const InitializeParameters& parameters) {
  const FileManager files = makeFileManager(parameters);
  const SnapshotStore store = makeStore(parameters, files);
  widgetruntime::WidgetBundle bundle =
      makeQuorvelWidgetsBundle(store,
                               files,
                               {.lang = preferredLanguageCode(parameters.preferredLanguages),
                                .offersControls = parameters.offersControls});
  bundle.appGroup = store.appGroup();
  bundle.urlScheme = store.urlScheme();
  bundle.container = files.containerPath(store.appGroup()).value_or("");
  return bundle;
}

std::string documentPath(const InitializeParameters& parameters) {
  if (parameters.snapshotFile) return *parameters.snapshotFile;
  const FileManager files = makeFileManager(parameters);
  const auto container = files.containerPath(makeStore(parameters, files).appGroup());
  return container ? foundation::appendingPathComponent(*container, kSnapshotFileName)
                   : std::string{};
}

}  // namespace

widgetruntime::ExtensionDefinition quorvelWidgetsExtension() {
  return {.makeBundle = makeBundle, .diagnose = diagnoseSnapshot, .documentPath = documentPath};
}

}  // namespace quorvel
