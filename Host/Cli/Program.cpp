#include "Cli/Program.hpp"

#include <exception>
#include <new>

#include "Cli/Options/Arguments.hpp"
#include "Cli/Output.hpp"
#include "Foundation/Printable.hpp"

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

/// What libraries throw, for want of memory above all, ends in a line as everything else does.
Result<void> interpretSafely(std::span<const char* const> words, const Program& program) {
  try {
    return interpret(words, program);
  } catch (const std::bad_alloc&) {
    return refused("quorvel-host: there is not enough memory for this");
  } catch (const std::exception& error) {
    return refused(std::string("quorvel-host: ") + error.what());
  }
}

}  // namespace

int run(std::span<const char* const> words, const Program& program) {
  const auto done = interpretSafely(words, program);
  if (done) return static_cast<int>(ExitCode::done);
  if (!done.error().line.empty()) complain(foundation::printable(done.error().line) + "\n");
  return static_cast<int>(done.error().code);
}

}  // namespace cli
