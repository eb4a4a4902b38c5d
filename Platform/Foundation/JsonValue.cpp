// Values out of a walk over the text, and back into it.
#include "Foundation/JsonValue.hpp"

#include <algorithm>

#include "Foundation/JsonScanner.hpp"

namespace foundation {
namespace {

JsonValue readValue(JsonScanner& scanner);

JsonValue readArray(JsonScanner& scanner) {
  JsonValue::Array elements;
  if (!scanner.open()) return {};
  JsonScanner::Descent array(scanner);
  while (scanner.nextElement(array)) elements.push_back(readValue(scanner));
  return elements;
}

JsonValue readObject(JsonScanner& scanner) {
  JsonValue::Object members;
  if (!scanner.open()) return {};
  JsonScanner::Descent object(scanner);
  while (scanner.nextMember(object)) {
    std::string key(object.key());
    members.emplace_back(std::move(key), readValue(scanner));
  }
  return members;
}

JsonValue readValue(JsonScanner& scanner) {
  switch (scanner.peek()) {
    case '{':
      return readObject(scanner);
    case '[':
      return readArray(scanner);
    case 't':
      return scanner.literal("true");
    case 'f':
      return !scanner.literal("false");
    case '"': {
      std::string text;
      scanner.string(text);
      return text;
    }
    case '-':
    case '0':
    case '1':
    case '2':
    case '3':
    case '4':
    case '5':
    case '6':
    case '7':
    case '8':
    case '9': {
      double number = 0;
      scanner.number(number);
      return number;
    }
    default:
      scanner.skipValue();
      return nullptr;
  }
}

}  // namespace

const JsonValue* JsonValue::member(std::string_view key) const {
  const Object* members = object();
  if (members == nullptr) return nullptr;
  const auto found = std::ranges::find(*members, key, &Object::value_type::first);
  return found == members->end() ? nullptr : &found->second;
}

void JsonValue::write(JsonWriter& writer) const {
  if (const bool* flag = boolean()) {
    writer.value(*flag);
  } else if (const double* figure = number()) {
    writer.value(*figure);
  } else if (const std::string* text = string()) {
    writer.value(*text);
  } else if (const Array* elements = array()) {
    writer.beginArray();
    for (const JsonValue& element : *elements) element.write(writer);
    writer.endArray();
  } else if (const Object* members = object()) {
    writer.beginObject();
    for (const auto& [key, value] : *members) {
      writer.key(key);
      value.write(writer);
    }
    writer.endObject();
  } else {
    writer.null();
  }
}

std::expected<JsonValue, JsonProblem> parseJson(std::string_view text,
                                                std::size_t maximumDepth,
                                                std::size_t maximumString) {
  JsonScanner scanner(text, maximumDepth, maximumString);
  JsonValue value = readValue(scanner);
  scanner.finish();
  std::vector<JsonProblem> problems = scanner.takeProblems();
  if (!problems.empty()) return std::unexpected(std::move(problems.front()));
  return value;
}

}  // namespace foundation
