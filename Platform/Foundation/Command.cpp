#include "Foundation/Command.hpp"

#include <unistd.h>

#include <exception>
#include <new>
#include <tuple>

#include "Foundation/FileWriting.hpp"
#include "Foundation/Printable.hpp"

namespace foundation::command {

namespace {

Result<void> safely(std::string_view program, const std::function<Result<void>()>& carryOut) {
  try {
    return carryOut();
  } catch (const std::bad_alloc&) {
    return refused(std::string(program) + ": there is not enough memory for this");
  } catch (const std::exception& error) {
    return refused(std::string(program) + ": " + error.what());
  }
}

}  // namespace

int concluded(std::string_view program, const std::function<Result<void>()>& carryOut) {
  const auto done = safely(program, carryOut);
  if (done) return static_cast<int>(ExitCode::done);
  if (!done.error().line.empty()) complain(printable(done.error().line) + "\n");
  return static_cast<int>(done.error().code);
}

Result<void> printBytes(std::string_view bytes) {
  if (const auto error = writeAll(STDOUT_FILENO, bytes))
    return refused("standard output: " + error.message());
  return {};
}

Result<void> print(std::string_view text) {
  return printBytes(printableLines(text));
}

void complain(std::string_view text) {
  std::ignore = writeAll(STDERR_FILENO, printableLines(text));
}

}  // namespace foundation::command
