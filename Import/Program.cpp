#include "Import/Program.hpp"

#include <string_view>

#include "Import/Arguments.hpp"
#include "Import/Commands.hpp"
#include "Import/Result.hpp"

namespace importer {
namespace {

Result<void> runCommand(std::string_view name, const Options& options, const Program& program) {
  if (name == "hledger") return importJournal(options, program);
  if (name == "check") return check(options, program);
  if (name == "explain") return explain(options, program);
  if (name == "init") return init(options, program);
  return open(options, program);
}

Result<void> interpret(std::span<const char* const> words, const Program& program) {
  const std::string_view name = words.empty() ? std::string_view{} : words.front();
  if (name.empty()) {
    complain(overview());
    return misused("");
  }
  if (name == "--help" || name == "-h" || name == "help") return print(overview());
  if (name == "--version") return print("quorvel-import " QUORVEL_VERSION "\n");
  const auto arguments = readArguments(words);
  if (!arguments) return std::unexpected(arguments.error());
  if (!arguments->help.empty()) return print(arguments->help);
  auto done = runCommand(name, arguments->options, program);
  if (!done) done.error().line = "quorvel-import " + std::string(name) + ": " + done.error().line;
  return done;
}

}  // namespace

int run(std::span<const char* const> words, const Program& program) {
  return concluded("quorvel-import", [&] { return interpret(words, program); });
}

}  // namespace importer
