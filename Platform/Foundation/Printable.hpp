// Foreign text that is safe to print: whatever a document, a child or a file's name brings, a
// terminal shows it and obeys none of it.
#pragma once

#include <string>
#include <string_view>

namespace foundation {

/// One line. Escaped as "\u001B": control characters (C0, DEL, C1), line and paragraph separators,
/// and whatever changes the direction of the text around it (embeddings, overrides, isolates).
/// Escaped as "\xFF": bytes that are no UTF-8. Everything else stays as it is.
[[nodiscard]] std::string printable(std::string_view text);

/// The same for a text of several lines: line feeds stay, and so do isolates, which end with their
/// line. The escapes of characters are also those of JSON, in whose texts such characters can only
/// stand within strings.
[[nodiscard]] std::string printableLines(std::string_view text);

}  // namespace foundation
