// Values out of a walk over the text, and back into it.
#include "Foundation/JsonValue.hpp"

#include <algorithm>
#include <iterator>

#include "Foundation/JsonScanner.hpp"
#include "Foundation/Overloaded.hpp"

namespace foundation {
namespace {

/// Elements and members gather on one stack each, and leave it when their value is complete: an
/// array or object takes one piece of memory of its own size.
class ValueReader {
 public:
  explicit ValueReader(JsonScanner& scanner) : scanner_(scanner) {}

  [[nodiscard]] JsonValue value();

 private:
  [[nodiscard]] JsonValue array();
  [[nodiscard]] JsonValue object();

  /// What was put on the stack since it was `size` long.
  template <class Item>
  static std::vector<Item> takenFrom(std::vector<Item>& stack, std::size_t size) {
    const auto first = stack.begin() + static_cast<std::ptrdiff_t>(size);
    std::vector<Item> items(std::make_move_iterator(first), std::make_move_iterator(stack.end()));
    stack.erase(first, stack.end());
    return items;
  }

  JsonScanner& scanner_;
  JsonValue::Array elements_;
  JsonValue::Object members_;
};

JsonValue ValueReader::array() {
  if (!scanner_.open()) return {};
  const std::size_t size = elements_.size();
  JsonScanner::Descent array(scanner_);
  while (scanner_.nextElement(array)) elements_.push_back(value());
  return takenFrom(elements_, size);
}

JsonValue ValueReader::object() {
  if (!scanner_.open()) return {};
  const std::size_t size = members_.size();
  JsonScanner::Descent object(scanner_);
  while (scanner_.nextMember(object)) {
    std::string key(object.key());
    members_.emplace_back(std::move(key), value());
  }
  return takenFrom(members_, size);
}

JsonValue ValueReader::value() {
  switch (scanner_.peek()) {
    case '{':
      return object();
    case '[':
      return array();
    case 't':
      scanner_.literal("true");
      return true;
    case 'f':
      scanner_.literal("false");
      return false;
    case '"': {
      std::string text;
      scanner_.string(text);
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
      scanner_.number(number);
      return number;
    }
    default:
      scanner_.skipValue();
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
  std::visit(
      Overloaded{[&](std::monostate) { writer.null(); },
                 [&](const OneOf<bool, double, std::string> auto& plain) { writer.value(plain); },
                 [&](const Array& elements) {
                   writer.beginArray();
                   for (const JsonValue& element : elements) element.write(writer);
                   writer.endArray();
                 },
                 [&](const Object& members) {
                   writer.beginObject();
                   for (const auto& [key, value] : members) value.write(writer.key(key));
                   writer.endObject();
                 }},
      value_);
}

std::expected<JsonValue, JsonProblem> parseJson(std::string_view text,
                                                std::size_t maximumDepth,
                                                std::size_t maximumString) {
  JsonScanner scanner(text, maximumDepth, maximumString);
  JsonValue value = ValueReader(scanner).value();
  scanner.finish();
  std::vector<JsonProblem> problems = scanner.takeProblems();
  if (!problems.empty()) return std::unexpected(std::move(problems.front()));
  return value;
}

}  // namespace foundation
