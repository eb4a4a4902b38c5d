// quorvel-host: the one program that holds the host and, for commands that run in one process, the
// extension.
#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "Cli/Program.hpp"
#include "Foundation/ProcessPrivacy.hpp"
#include "QuorvelWidgets/ComponentSheet.hpp"
#include "QuorvelWidgets/QuorvelWidgetsExtension.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/SnapshotSample.hpp"
#include "QuorvelWidgets/WidgetSupport/Snapshot/WidgetLanguage.hpp"

extern char** environ;  // POSIX leaves it to the user

namespace {

foundation::ProcessEnvironment processEnvironment() {
  foundation::ProcessEnvironment environment;
  for (char** entry = environ; *entry != nullptr; ++entry) {
    const std::string_view text = *entry;
    const auto equals = text.find('=');
    if (equals != std::string_view::npos)
      environment.emplace(text.substr(0, equals), text.substr(equals + 1));
  }
  return environment;
}

std::filesystem::path programFolder() {
  std::error_code ignored;
  return std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
}

std::string sampleDocument(const foundation::Device& device, std::string_view language) {
  foundation::Device reader = device;
  if (!language.empty()) reader.preferredLanguages = {std::string(language)};
  return foundation::encodeJson(quorvel::sampleSnapshot(reader));
}

}  // namespace

int main(int argc, char** argv) {
  foundation::keepMemoryPrivate();
  const cli::Program program{
      .extension = quorvel::quorvelWidgetsExtension(),
      .sampleDocument = sampleDocument,
      .componentSheet = quorvel::componentSheet,
      .componentSheetWidth = quorvel::kComponentSheetWidth,
      .languages = {quorvel::kLanguageCodes.begin(), quorvel::kLanguageCodes.end()},
      .environment = processEnvironment(),
      .folder = programFolder()};
  return cli::run(
      std::span<const char* const>(argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)),
      program);
}
