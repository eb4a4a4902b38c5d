// Records out of a walk over the text, and back into it.
#include "Foundation/Json.hpp"

#include <bitset>
#include <cassert>
#include <utility>

#include "Foundation/JsonProblemCount.hpp"
#include "Foundation/JsonScanner.hpp"

namespace foundation {
namespace {

constexpr std::size_t kNoField = static_cast<std::size_t>(-1);

/// Documents mostly follow the record's own order, so the field after the last one is tried first.
std::size_t findField(std::span<const JsonField> fields, std::string_view key, std::size_t start) {
  if (start < fields.size() && fields[start].key.data() == key.data()) return start;
  for (std::size_t i = start; i < fields.size(); ++i) {
    if (fields[i].key == key) return i;
  }
  for (std::size_t i = 0; i < start; ++i) {
    if (fields[i].key == key) return i;
  }
  return kNoField;
}

}  // namespace

struct JsonReaderState {
  explicit JsonReaderState(std::string_view document) : scanner(document) {}

  static JsonReader reader(JsonReaderState& state) { return JsonReader(state); }

  JsonScanner scanner;
};

void JsonReader::read(bool& out) {
  JsonScanner& scanner = state_.scanner;
  const char first = scanner.peek();
  if (first != 't' && first != 'f') return scanner.mismatch("boolean");
  out = first == 't';
  scanner.literal(out ? "true" : "false");
}

void JsonReader::read(double& out) {
  JsonScanner& scanner = state_.scanner;
  const char first = scanner.peek();
  if (first != '-' && (first < '0' || first > '9')) return scanner.mismatch("number");
  scanner.number(out);
}

void JsonReader::read(std::string& out) {
  JsonScanner& scanner = state_.scanner;
  if (scanner.peek() != '"') return scanner.mismatch("string");
  scanner.string(out);
}

void JsonReader::read(Instant& out) {
  constexpr std::string_view kExpected = "date-time like 2025-03-14T09:30:00Z";
  JsonScanner& scanner = state_.scanner;
  if (scanner.peek() != '"') return scanner.mismatch(kExpected);
  const char* const start = scanner.position();
  std::string text;
  if (!scanner.string(text)) return;
  if (const auto instant = parseInternetDateTime(text)) {
    out = *instant;
  } else {
    scanner.note(start, kExpected, "string");
  }
}

void JsonReader::read(std::vector<double>& out) {
  JsonScanner& scanner = state_.scanner;
  if (scanner.peek() != '[') return scanner.mismatch("array");
  if (!scanner.open()) return;
  out.reserve(32);  // most series are a month's days
  JsonScanner::Descent array(scanner);
  scanner.plainNumbers(array, out);
  while (scanner.nextElement(array)) {
    read(out.emplace_back());
    scanner.plainNumbers(array, out);
  }
}

void JsonReader::readRecord(std::span<const JsonField> fields, void* record) {
  JsonScanner& scanner = state_.scanner;
  if (scanner.peek() != '{') return scanner.mismatch("object");
  const char* const start = scanner.position();
  if (!scanner.open()) return;

  assert(fields.size() <= kMaximumJsonFields);
  std::bitset<kMaximumJsonFields> seen;
  JsonScanner::Descent object(scanner);
  std::size_t expected = 0;
  const auto guess = [&] {
    return expected < fields.size() ? fields[expected].key : std::string_view{};
  };
  while (scanner.nextMember(object, guess())) {
    const std::size_t field = findField(fields, object.key(), expected);
    if (field == kNoField || seen[field]) {
      scanner.skipValue();
      continue;
    }
    seen.set(field);
    expected = field + 1;
    fields[field].read(*this, record);
  }
  if (scanner.stopped()) return;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (!fields[i].required || seen[i]) continue;
    object.setKey(fields[i].key);
    scanner.note(start, "required key", "missing");
  }
}

bool JsonReader::readNull() {
  return state_.scanner.peek() == 'n' && (state_.scanner.literal("null") || true);
}

void JsonReader::readArray(void (*element)(JsonReader&, void*), void* out) {
  JsonScanner& scanner = state_.scanner;
  if (scanner.peek() != '[') return scanner.mismatch("array");
  if (!scanner.open()) return;
  JsonScanner::Descent array(scanner);
  while (scanner.nextElement(array)) element(*this, out);
}

std::size_t JsonReader::expectedElements(std::size_t count) const {
  return state_.scanner.expectedElements(count);
}

std::optional<JsonFailure> decodeJsonRecord(std::string_view document,
                                            std::span<const JsonField> fields,
                                            void* record) {
  JsonReaderState state(document);
  JsonReaderState::reader(state).readRecord(fields, record);
  state.scanner.finish();
  std::vector<JsonProblem> problems = state.scanner.takeProblems();
  if (problems.empty()) return std::nullopt;
  return JsonFailure{std::move(problems)};
}

std::size_t countJsonProblems(std::string_view document,
                              std::span<const JsonField> fields,
                              void* record) {
  JsonReaderState state(document);
  JsonReaderState::reader(state).readRecord(fields, record);
  state.scanner.finish();
  return state.scanner.problemCount();
}

namespace detail {

void write(JsonWriter& writer, bool value) {
  writer.value(value);
}
void write(JsonWriter& writer, double value) {
  writer.value(value);
}
void write(JsonWriter& writer, const std::string& value) {
  writer.value(value);
}
void write(JsonWriter& writer, const Instant& value) {
  writer.value(formatInternetDateTime(value));
}

void writeRecord(JsonWriter& writer, std::span<const JsonField> fields, const void* record) {
  writer.beginObject();
  for (const JsonField& field : fields) field.write(writer, field.key, record);
  writer.endObject();
}

}  // namespace detail
}  // namespace foundation
