// Any bytes: both readers agree on what is well-formed, and what is read is written so that it
// reads back equal.
#include <array>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "Foundation/JsonValue.hpp"

namespace {

struct Record {
  std::optional<bool> flag;
  std::optional<double> number;
  std::optional<std::string> text;
  std::optional<foundation::Instant> at;
  std::optional<std::vector<double>> series;
  std::vector<Record> records;

  static std::span<const foundation::JsonField> jsonFields();
  friend bool operator==(const Record&, const Record&) = default;
};

std::span<const foundation::JsonField> Record::jsonFields() {
  using foundation::jsonField;
  static constexpr std::array kFields{jsonField<&Record::flag>("flag"),
                                      jsonField<&Record::number>("number"),
                                      jsonField<&Record::text>("text"),
                                      jsonField<&Record::at>("at"),
                                      jsonField<&Record::series>("series"),
                                      jsonField<&Record::records>("records")};
  return kFields;
}

struct Nothing {
  static std::span<const foundation::JsonField> jsonFields() { return {}; }
};

void require(bool holds) {
  if (!holds) std::abort();
}

void checkProblems(std::string_view text, const std::vector<foundation::JsonProblem>& problems) {
  require(!problems.empty() && problems.size() <= 100);
  for (const foundation::JsonProblem& problem : problems) {
    require(problem.line >= 1 && problem.column >= 1 && problem.column <= text.size() + 1);
    require(!problem.expected.empty() && !problem.found.empty());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);

  const auto value = foundation::parseJson(text);
  if (value) {
    foundation::JsonWriter writer;
    value->write(writer);
    require(foundation::parseJson(writer.text()) == *value);
    const bool isObject = value->object() != nullptr;
    require(foundation::decodeJson<Nothing>(text).has_value() == isObject);
  } else {
    checkProblems(text, {value.error()});
  }

  const auto record = foundation::decodeJson<Record>(text);
  if (record) {
    const auto again = foundation::decodeJson<Record>(foundation::encodeJson(*record));
    require(again && *again == *record);
  } else {
    checkProblems(text, record.error().problems);
  }
  return 0;
}
