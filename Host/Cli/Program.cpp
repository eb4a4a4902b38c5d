#include "Cli/Program.hpp"

#include "Cli/Options/Arguments.hpp"
#include "Cli/Output.hpp"

namespace cli {
namespace {

Result<void> interpret(std::span<const char* const> words, const Program& program) {
  const std::string_view name = words.empty() ? std::string_view{} : words.front();
  if (name.empty()) {
    complain(overview());
    return misused("");
  }
  if (name == "--help" || name == "-h" || name == "help") return print(overview());
  auto arguments = readArguments(name, words.subspan(1));
  if (!arguments) return std::unexpected(std::move(arguments.error()));
  if (!arguments->help.empty()) return print(arguments->help);
  auto done = arguments->run(arguments->options, program);
  if (!done) done.error().line = "quorvel-host " + std::string(name) + ": " + done.error().line;
  return done;
}

}  // namespace

int run(std::span<const char* const> words, const Program& program) {
  return concluded("quorvel-host", [&] { return interpret(words, program); });
}

}  // namespace cli
