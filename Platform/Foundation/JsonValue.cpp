// Values out of a walk over the text, and back into it.
#include "Foundation/JsonValue.hpp"

#include <algorithm>
#include <vector>

#include "Foundation/JsonScanner.hpp"
#include "Foundation/Overloaded.hpp"

namespace foundation {
namespace {

/// Elements and members gather on one stack each, and leave it when their value is complete: an
/// array or object takes one piece of the document's memory, of its own size.
class ValueReader {
 public:
  ValueReader(JsonScanner& scanner, std::pmr::memory_resource& memory)
      : scanner_(scanner), memory_(memory) {}

  [[nodiscard]] JsonValue value();

 private:
  [[nodiscard]] JsonValue array();
  [[nodiscard]] JsonValue object();
  [[nodiscard]] std::string_view kept(std::string_view text);

  /// What was put on the stack since it was `size` long.
  template <class Item>
  JsonValue::List<Item> takenFrom(std::vector<Item>& stack, std::size_t size) {
    const std::size_t count = stack.size() - size;
    auto* items = static_cast<Item*>(memory_.allocate(count * sizeof(Item), alignof(Item)));
    std::uninitialized_copy_n(stack.data() + size, count, items);
    stack.resize(size);
    return {items, count};
  }

  JsonScanner& scanner_;
  std::pmr::memory_resource& memory_;
  std::vector<JsonValue> elements_;
  std::vector<JsonValue::Member> members_;
  std::string unescaped_;
};

std::string_view ValueReader::kept(std::string_view text) {
  auto* bytes = static_cast<char*>(memory_.allocate(text.size(), 1));
  std::ranges::copy(text, bytes);
  return {bytes, text.size()};
}

JsonValue ValueReader::array() {
  if (!scanner_.open()) return {};
  const std::size_t size = elements_.size();
  JsonScanner::Descent array(scanner_);
  while (scanner_.nextElement(array)) elements_.push_back(value());
  return JsonValue{takenFrom(elements_, size)};
}

JsonValue ValueReader::object() {
  if (!scanner_.open()) return {};
  const std::size_t size = members_.size();
  JsonScanner::Descent object(scanner_);
  while (scanner_.nextMember(object)) {
    const std::string_view key = kept(object.key());
    members_.emplace_back(key, value());
  }
  return JsonValue{takenFrom(members_, size)};
}

JsonValue ValueReader::value() {
  switch (scanner_.peek()) {
    case '{':
      return object();
    case '[':
      return array();
    case 't':
      scanner_.literal("true");
      return JsonValue{true};
    case 'f':
      scanner_.literal("false");
      return JsonValue{false};
    case '"': {
      std::string_view text;
      scanner_.string(text, unescaped_);
      return JsonValue{kept(text)};
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
      return JsonValue{number};
    }
    default:
      scanner_.skipValue();
      return {};
  }
}

}  // namespace

const JsonValue* JsonValue::member(std::string_view key) const {
  const Object* members = object();
  if (members == nullptr) return nullptr;
  const auto* found = std::ranges::find(*members, key, &Member::first);
  return found == members->end() ? nullptr : &found->second;
}

bool operator==(const JsonValue& a, const JsonValue& b) {
  if (const auto* elements = a.array()) {
    return b.array() != nullptr && std::ranges::equal(*elements, *b.array());
  }
  if (const auto* members = a.object()) {
    return b.object() != nullptr && std::ranges::equal(*members, *b.object());
  }
  if (const auto* number = a.number()) return b.number() != nullptr && *number == *b.number();
  if (const auto* text = a.string()) return b.string() != nullptr && *text == *b.string();
  if (const auto* flag = a.boolean()) return b.boolean() != nullptr && *flag == *b.boolean();
  return b.isNull();
}

std::string JsonValue::textOf(std::string_view key) const {
  const JsonValue* value = member(key);
  if (value == nullptr || value->string() == nullptr) return {};
  return std::string(*value->string());
}

void JsonValue::write(JsonWriter& writer) const {
  std::visit(Overloaded{[&](std::monostate) { writer.null(); },
                        [&](const OneOf<bool, double, std::string_view> auto& plain) {
                          writer.value(plain);
                        },
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

std::expected<JsonDocument, JsonProblem> parseJson(std::string_view text,
                                                   std::size_t maximumDepth,
                                                   std::size_t maximumString) {
  // About what the values of a message take; a text that needs more gets more.
  constexpr std::size_t kMemoryPerByte = 4;
  constexpr std::size_t kMostAtFirst = std::size_t{1} << 20;
  JsonScanner scanner(text, maximumDepth, maximumString);
  auto memory = std::make_unique<std::pmr::monotonic_buffer_resource>(
      std::clamp<std::size_t>(text.size() * kMemoryPerByte, 64, kMostAtFirst));
  const JsonValue value = ValueReader(scanner, *memory).value();
  scanner.finish();
  std::vector<JsonProblem> problems = scanner.takeProblems();
  if (!problems.empty()) return std::unexpected(std::move(problems.front()));
  return JsonDocument(value, std::move(memory));
}

}  // namespace foundation
