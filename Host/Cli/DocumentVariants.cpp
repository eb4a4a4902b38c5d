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

/// Walks the document and counts its amounts: neighbours change differently, and all of them by
/// whole units, so that no text of the picture stays as it was.
class OtherAmounts {
 public:
  explicit OtherAmounts(int step) : step_(step) {}

  JsonValue of(const JsonValue& value) {
    if (const double* number = value.number()) {
      if (*number == 0) return value;
      return *number + 1.01 * (step_ + (step_ * 37 + ++amounts_ * 11) % 101);
    }
    if (const auto* array = value.array()) {
      JsonValue::Array changed;
      changed.reserve(array->size());
      for (const JsonValue& element : *array) changed.push_back(of(element));
      return changed;
    }
    if (const auto* object = value.object()) {
      JsonValue::Object changed;
      changed.reserve(object->size());
      for (const auto& [key, member] : *object) {
        const bool stays = key == "money" || key == "changePercent";
        changed.emplace_back(key, stays ? member : of(member));
      }
      return changed;
    }
    return value;
  }

 private:
  int step_;
  int amounts_ = 0;
};

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
  return textOf(OtherAmounts(step % 9973).of(document));
}

}  // namespace cli
