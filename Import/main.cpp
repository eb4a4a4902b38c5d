// quorvel-import: widgets for a person who keeps a plain-text ledger.
#include <filesystem>
#include <string_view>

#include "Foundation/ProcessPrivacy.hpp"
#include "Import/Program.hpp"

extern char** environ;  // POSIX leaves it to the user

int main(int argc, char** argv) {
  foundation::keepMemoryPrivate();
  importer::Program program;
  for (char** entry = environ; *entry != nullptr; ++entry) {
    const std::string_view text = *entry;
    const auto equals = text.find('=');
    if (equals != std::string_view::npos)
      program.environment.emplace(text.substr(0, equals), text.substr(equals + 1));
  }
  std::error_code ignored;
  program.folder = std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
  return importer::run(
      std::span<const char* const>(argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)),
      program);
}
