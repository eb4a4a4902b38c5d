#include "Cli/Sheet/DocumentVariants.hpp"

#include "Cli/Sheet/DocumentStates.hpp"
#include "Foundation/JsonWriter.hpp"

namespace cli {
namespace {

using foundation::JsonValue;

std::string textOf(const JsonValue& value) {
  foundation::JsonWriter writer;
  value.write(writer);
  return writer.take();
}

}  // namespace

std::string documentText(const JsonValue& document,
                         DocumentState state,
                         std::string_view language) {
  if (state == DocumentState::noDocument) return {};
  const JsonValue inItsLanguage = language.empty() ? document : with(document, "lang", language);
  return textOf(inState(inItsLanguage, state));
}

/// Neighbours change differently, and all of them by whole units, so that no text of the picture
/// stays as it was.
std::string documentWithOtherAmounts(const JsonValue& document, int step) {
  const int own = step % 9973;
  int amounts = 0;
  return textOf(withAmounts(document, [&](double amount) {
    return amount + 1.01 * (own + (own * 37 + ++amounts * 11) % 101);
  }));
}

}  // namespace cli
