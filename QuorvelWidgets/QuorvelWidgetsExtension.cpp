#include "QuorvelWidgets/QuorvelWidgetsExtension.hpp"

#include "Foundation/Bundle.hpp"
#include "Foundation/FileManager.hpp"
#include "QuorvelWidgets/QuorvelWidgetsBundle.hpp"
#include "QuorvelWidgets/SnapshotDiagnosis.hpp"
#include "QuorvelWidgets/WidgetSupport/SnapshotStore.hpp"

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

/// Where the group's folder is, or would be.
std::string containerPath(const InitializeParameters& parameters, const SnapshotStore& store) {
  if (parameters.container) return *parameters.container;
  if (!parameters.containerRoot) return {};
  return foundation::appendingPathComponent(*parameters.containerRoot, store.appGroup());
}

widgetruntime::WidgetBundle makeBundle(const InitializeParameters& parameters) {
  const FileManager files = makeFileManager(parameters);
  const SnapshotStore store = makeStore(parameters, files);
  widgetruntime::WidgetBundle bundle =
      makeQuorvelWidgetsBundle(store, files, parameters.offersControls);
  bundle.appGroup = store.appGroup();
  bundle.urlScheme = store.urlScheme();
  bundle.container = containerPath(parameters, store);
  return bundle;
}

}  // namespace

widgetruntime::ExtensionDefinition quorvelWidgetsExtension() {
  return {.makeBundle = makeBundle, .diagnose = diagnoseSnapshot};
}

}  // namespace quorvel
