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

void JsonReader::read(bool& out) {
  const char first = scanner_.peek();
  if (first != 't' && first != 'f') return scanner_.mismatch("boolean");
  out = first == 't';
  scanner_.literal(out ? "true" : "false");
}

void JsonReader::read(double& out) {
  const char first = scanner_.peek();
  if (first != '-' && (first < '0' || first > '9')) return scanner_.mismatch("number");
  scanner_.number(out);
}

void JsonReader::read(std::string& out) {
  if (scanner_.peek() != '"') return scanner_.mismatch("string");
  scanner_.string(out);
}

void JsonReader::read(Instant& out) {
  constexpr std::string_view kExpected = "date-time like 2025-03-14T09:30:00Z";
  if (scanner_.peek() != '"') return scanner_.mismatch(kExpected);
  const char* const start = scanner_.position();
  std::string text;
  if (!scanner_.string(text)) return;
  if (const auto instant = parseInternetDateTime(text)) {
    out = *instant;
  } else {
    scanner_.note(start, kExpected, "string");
  }
}

void JsonReader::read(std::vector<double>& out) {
  if (scanner_.peek() != '[') return scanner_.mismatch("array");
  if (!scanner_.open()) return;
  out.reserve(32);  // most series are a month's days
  JsonScanner::Descent array(scanner_);
  scanner_.plainNumbers(array, out);
  while (scanner_.nextElement(array)) {
    read(out.emplace_back());
    scanner_.plainNumbers(array, out);
  }
}

void JsonReader::readRecord(std::span<const JsonField> fields, void* record) {
  if (scanner_.peek() != '{') return scanner_.mismatch("object");
  const char* const start = scanner_.position();
  if (!scanner_.open()) return;

  assert(fields.size() <= kMaximumJsonFields);
  std::bitset<kMaximumJsonFields> seen;
  JsonScanner::Descent object(scanner_);
  std::size_t expected = 0;
  const auto guess = [&] {
    return expected < fields.size() ? fields[expected].key : std::string_view{};
  };
  while (scanner_.nextMember(object, guess())) {
    const std::size_t field = findField(fields, object.key(), expected);
    if (field == kNoField || seen[field]) {
      scanner_.skipValue();
      continue;
    }
    seen.set(field);
    expected = field + 1;
    fields[field].read(*this, record);
  }
  if (scanner_.stopped()) return;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (!fields[i].required || seen[i]) continue;
    object.setKey(fields[i].key);
    scanner_.note(start, "required key", "missing");
  }
}

bool JsonReader::readNull() {
  if (scanner_.peek() != 'n') return false;
  scanner_.literal("null");
  return true;
}

void JsonReader::readArray(void (*element)(JsonReader&, void*), void* out) {
  if (scanner_.peek() != '[') return scanner_.mismatch("array");
  if (!scanner_.open()) return;
  JsonScanner::Descent array(scanner_);
  while (scanner_.nextElement(array)) element(*this, out);
}

std::size_t JsonReader::expectedElements(std::size_t count) const {
  return scanner_.expectedElements(count);
}

std::optional<JsonFailure> decodeJsonRecord(std::string_view document,
                                            std::span<const JsonField> fields,
                                            void* record) {
  JsonScanner scanner(document);
  JsonReader(scanner).readRecord(fields, record);
  scanner.finish();
  std::vector<JsonProblem> problems = scanner.takeProblems();
  if (problems.empty()) return std::nullopt;
  return JsonFailure{std::move(problems)};
}

std::size_t countJsonProblems(std::string_view document,
                              std::span<const JsonField> fields,
                              void* record) {
  JsonScanner scanner(document);
  JsonReader(scanner).readRecord(fields, record);
  scanner.finish();
  return scanner.problemCount();
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
