// quorvel-import: widgets for a person who keeps a plain-text ledger.
#include "Foundation/ProcessPrivacy.hpp"
#include "Foundation/ThisProcess.hpp"
#include "Import/Program.hpp"

int main(int argc, char** argv) {
  foundation::keepMemoryPrivate();
  const importer::Program program{.environment = foundation::processEnvironment(),
                                  .folder = foundation::programFolder()};
  return importer::run(
      std::span<const char* const>(argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)),
      program);
}
