// JSON into messages, driven by their lists of members.
#include <utility>

#include "Foundation/JsonValueReader.hpp"
#include "ViewKit/TreeReader.hpp"
#include "WidgetRuntime/MessageMembers.hpp"

namespace widgetruntime {
namespace {

using foundation::JsonValue;

class MessageReader : public foundation::JsonRecordReader<MessageReader, MembersOf> {
 public:
  static constexpr bool kLenient = true;

  MessageReader() : JsonRecordReader(kMaximumString) {}

  bool read(const JsonValue& json, EntriesParameters& out);
  bool read(const JsonValue& json, DiagnoseParameters& out);
  bool read(const JsonValue& json, viewkit::View& out);
  bool read(const JsonValue& json, foundation::TimeZone& out) { return read(json, out.identifier); }
  bool read(const JsonValue& json, foundation::Locale& out) { return read(json, out.identifier); }
  using JsonRecordReader::read;

 private:
  friend JsonRecordReader;
};

bool MessageReader::read(const JsonValue& json, EntriesParameters& out) {
  if (!JsonRecordReader::read(json, out)) return false;
  for (Environment& environment : out.environments) {
    environment.widgetFamily = out.family;
    environment.previewFamily = out.previewFamily;
  }
  return true;
}

bool MessageReader::read(const JsonValue& json, DiagnoseParameters& out) {
  if (!JsonRecordReader::read(json, out)) return false;
  if (!out.path || !out.text) return true;
  fail("not beside a path");
  return at("text");
}

bool MessageReader::read(const JsonValue& json, viewkit::View& out) {
  const viewkit::TreeLimits limits;
  viewkit::TreeReader tree(limits);
  return tree.read(json, out) || fail(tree);
}

}  // namespace

template <class Message>
Read<Message> read(const JsonValue& json) {
  MessageReader reader;
  Message message;
  if (!reader.read(json, message)) return std::unexpected(reader.failure());
  return message;
}

template Read<InitializeParameters> read(const JsonValue& json);
template Read<InitializeAnswer> read(const JsonValue& json);
template Read<EntriesParameters> read(const JsonValue& json);
template Read<EntriesAnswer> read(const JsonValue& json);
template Read<OptionsParameters> read(const JsonValue& json);
template Read<OptionsAnswer> read(const JsonValue& json);
template Read<PerformParameters> read(const JsonValue& json);
template Read<PerformAnswer> read(const JsonValue& json);
template Read<DiagnoseParameters> read(const JsonValue& json);
template Read<DiagnoseAnswer> read(const JsonValue& json);

}  // namespace widgetruntime
