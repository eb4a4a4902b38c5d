// Messages into JSON, driven by their lists of members. Absent values are left out, so that a
// message can be read by eye.
#include "Foundation/JsonRecordWriter.hpp"
#include "ViewKit/TreeJson.hpp"
#include "WidgetRuntime/MessageMembers.hpp"

namespace widgetruntime {
namespace {

using foundation::JsonWriter;

class MessageWriter : public foundation::JsonRecordWriter<MessageWriter, MembersOf> {
 public:
  using JsonRecordWriter::JsonRecordWriter;
  using JsonRecordWriter::put;

  void put(const viewkit::View& view) { viewkit::writeView(json_, view); }
  void put(const foundation::TimeZone& zone) { put(zone.identifier); }
  void put(const foundation::Locale& locale) { put(locale.identifier); }

 private:
  friend JsonRecordWriter;
};

}  // namespace

template <class Record>
void write(JsonWriter& writer, const Record& record) {
  MessageWriter(writer).put(record);
}

template void write(JsonWriter& writer, const InitializeParameters& parameters);
template void write(JsonWriter& writer, const BundleDescription& bundle);
template void write(JsonWriter& writer, const InitializeAnswer& answer);
template void write(JsonWriter& writer, const EntriesParameters& parameters);
template void write(JsonWriter& writer, const RenderedEntry& entry);
template void write(JsonWriter& writer, const WidgetSummary& summary);
template void write(JsonWriter& writer, const ReloadPolicy& policy);
template void write(JsonWriter& writer, const EntriesAnswer& answer);
template void write(JsonWriter& writer, const OptionsParameters& parameters);
template void write(JsonWriter& writer, const OptionsAnswer& answer);
template void write(JsonWriter& writer, const PerformParameters& parameters);
template void write(JsonWriter& writer, const PerformAnswer& answer);
template void write(JsonWriter& writer, const DiagnoseParameters& parameters);
template void write(JsonWriter& writer, const DiagnoseAnswer& answer);

}  // namespace widgetruntime
