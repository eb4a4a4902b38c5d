// Strict JSON (RFC 8259, UTF-8, one byte-order mark dropped, 512 levels): keyed decoding into
// records, with problems that say where and what, and encoding of the same records.
//
// A record lists its keys once:
//
//     struct Budget {
//       double total = 0;
//       std::optional<std::string> periodStart;
//       static std::span<const JsonField> jsonFields();
//     };
//     std::span<const JsonField> Budget::jsonFields() {
//       static constexpr JsonField kFields[] = {
//           jsonField<&Budget::total>("total"),
//           jsonField<&Budget::periodStart>("periodStart"),
//       };
//       return kFields;
//     }
//
//     const std::expected<Budget, JsonFailure> budget = decodeJson<Budget>(text);
//
// std::optional members may be missing or null, all others are required. Unknown keys are walked
// and ignored; of equal keys the first counts; keys compare after unescaping.
#pragma once

#include <cstddef>
#include <expected>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Instant.hpp"
#include "Foundation/JsonWriter.hpp"

namespace foundation {

/// One thing that is wrong with a document. `pointer` is RFC 6901; line and column count from 1,
/// columns in bytes.
struct JsonProblem {
  std::string pointer;
  std::size_t line = 0;
  std::size_t column = 0;
  std::string expected;
  std::string found;

  friend bool operator==(const JsonProblem&, const JsonProblem&) = default;
};

class JsonReader;
class JsonScanner;

/// One key of a record: how it is read into and written from the record that holds it.
struct JsonField {
  std::string_view key;
  bool required = true;
  void (*read)(JsonReader&, void* record) = nullptr;
  /// Key and value; nothing for an absent optional.
  void (*write)(JsonWriter&, std::string_view key, const void* record) = nullptr;
};

/// A record has no more keys than this.
inline constexpr std::size_t kMaximumJsonFields = 64;

template <class T>
concept JsonRecord = requires {
  { T::jsonFields() } -> std::convertible_to<std::span<const JsonField>>;
};

/// The cursor that field readers are handed; it stands on one value. Every read either succeeds or
/// notes a problem; decoding goes on after a problem of type, so that one pass reports all of them,
/// and stops at a malformed document.
class JsonReader {
 public:
  explicit JsonReader(JsonScanner& scanner) : scanner_(scanner) {}

  void read(bool& out);
  void read(double& out);
  void read(std::string& out);
  void read(Instant& out);  ///< an internet date-time string
  void read(std::vector<double>& out);
  void readRecord(std::span<const JsonField> fields, void* record);

  template <JsonRecord T>
  void read(T& out) {
    readRecord(T::jsonFields(), &out);
  }
  template <class T>
  void read(std::optional<T>& out) {
    if (readNull()) {
      out.reset();
    } else {
      read(out.emplace());
    }
  }
  template <class T>
  void read(std::vector<T>& out) {
    readArray(
        [](JsonReader& reader, void* vector) {
          auto& list = *static_cast<std::vector<T>*>(vector);
          if (list.size() == list.capacity()) list.reserve(reader.expectedElements(list.size()));
          reader.read(list.emplace_back());
        },
        &out);
  }

 private:
  bool readNull();  ///< consumes a null; false leaves the value to be read
  void readArray(void (*element)(JsonReader&, void*), void* out);
  [[nodiscard]] std::size_t expectedElements(std::size_t count) const;

  JsonScanner& scanner_;
};

namespace detail {
template <class T>
inline constexpr bool isOptional = false;
template <class T>
inline constexpr bool isOptional<std::optional<T>> = true;
template <class Owner, class Value>
Owner ownerOf(Value Owner::*);
template <class Owner, class Value>
Value valueOf(Value Owner::*);

void write(JsonWriter& writer, bool value);
void write(JsonWriter& writer, double value);
void write(JsonWriter& writer, const std::string& value);
void write(JsonWriter& writer, const Instant& value);
void writeRecord(JsonWriter& writer, std::span<const JsonField> fields, const void* record);
template <JsonRecord T>
void write(JsonWriter& writer, const T& value) {
  writeRecord(writer, T::jsonFields(), &value);
}
template <class T>
void write(JsonWriter& writer, const std::vector<T>& values) {
  writer.beginArray();
  for (const T& value : values) write(writer, value);
  writer.endArray();
}
template <class T>
void writeMember(JsonWriter& writer, std::string_view key, const T& value) {
  writer.key(key);
  write(writer, value);
}
template <class T>
void writeMember(JsonWriter& writer, std::string_view key, const std::optional<T>& value) {
  if (value) writeMember(writer, key, *value);
}
}  // namespace detail

template <auto Member>
constexpr JsonField jsonField(std::string_view key) {
  using Owner = decltype(detail::ownerOf(Member));
  using Value = decltype(detail::valueOf(Member));
  return {
      key,
      !detail::isOptional<Value>,
      [](JsonReader& reader, void* record) { reader.read(static_cast<Owner*>(record)->*Member); },
      [](JsonWriter& writer, std::string_view name, const void* record) {
        detail::writeMember(writer, name, static_cast<const Owner*>(record)->*Member);
      }};
}

/// `problems` is never empty, in document order, and ends after a hundred or at the first malformed
/// byte. Problems name types and punctuation, never a value.
struct JsonFailure {
  std::vector<JsonProblem> problems;

  friend bool operator==(const JsonFailure&, const JsonFailure&) = default;
};
/// Decodes one document into a record; nothing is success.
[[nodiscard]] std::optional<JsonFailure> decodeJsonRecord(std::string_view document,
                                                          std::span<const JsonField> fields,
                                                          void* record);

template <JsonRecord T>
[[nodiscard]] std::expected<T, JsonFailure> decodeJson(std::string_view document) {
  T record;
  if (auto failure = decodeJsonRecord(document, T::jsonFields(), &record)) {
    return std::unexpected(std::move(*failure));
  }
  return record;
}

template <JsonRecord T>
[[nodiscard]] std::string encodeJson(const T& record) {
  JsonWriter writer;
  detail::write(writer, record);
  return writer.take();
}

}  // namespace foundation
