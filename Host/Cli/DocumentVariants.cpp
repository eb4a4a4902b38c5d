#include "Cli/DocumentVariants.hpp"

#include <algorithm>
#include <utility>

#include "Foundation/JsonWriter.hpp"

namespace cli {
namespace {

using foundation::JsonValue;

void set(JsonValue::Object& object, std::string_view key, JsonValue value) {
  const auto found = std::ranges::find(
      object, key, [](const auto& member) { return std::string_view(member.first); });
  if (found != object.end()) {
    found->second = std::move(value);
  } else {
    object.emplace_back(key, std::move(value));
  }
}

void removeData(JsonValue::Object& object) {
  std::erase_if(object, [](const auto& member) {
    return member.first == "budget" || member.first == "spending" || member.first == "netWorth";
  });
  set(object, "dues", JsonValue::Array{});
  set(object, "cards", JsonValue::Array{});
}

std::string textOf(const JsonValue& value) {
  foundation::JsonWriter writer;
  value.write(writer);
  return writer.take();
}

JsonValue withOtherAmounts(const JsonValue& value, int step) {
  if (const double* number = value.number())
    return *number == 0 ? value : JsonValue(*number + 0.01 * (step % 9973));
  if (const auto* array = value.array()) {
    JsonValue::Array changed;
    changed.reserve(array->size());
    for (const JsonValue& element : *array) {
      changed.push_back(withOtherAmounts(element, step * 7 + static_cast<int>(changed.size())));
    }
    return changed;
  }
  if (const auto* object = value.object()) {
    JsonValue::Object changed;
    changed.reserve(object->size());
    for (const auto& [key, member] : *object) {
      changed.emplace_back(key, key == "money" ? member : withOtherAmounts(member, step));
    }
    return changed;
  }
  return value;
}

}  // namespace

std::string_view name(DocumentState state) {
  switch (state) {
    case DocumentState::hidden:
      return "amounts hidden";
    case DocumentState::noData:
      return "no data";
    case DocumentState::noDocument:
      return "no document";
    case DocumentState::asWritten:
      break;
  }
  return {};
}

std::string documentText(const JsonValue& document,
                         DocumentState state,
                         std::string_view language) {
  if (state == DocumentState::noDocument) return {};
  JsonValue::Object object = document.object() ? *document.object() : JsonValue::Object{};
  if (!language.empty()) set(object, "lang", language);
  if (state == DocumentState::hidden) set(object, "isHidden", true);
  if (state == DocumentState::noData) removeData(object);
  return textOf(object);
}

std::string documentWithOtherAmounts(const JsonValue& document, int step) {
  return textOf(withOtherAmounts(document, step));
}

}  // namespace cli
