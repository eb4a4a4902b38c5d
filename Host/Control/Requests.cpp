#include "Control/Requests.hpp"

#include <utility>

#include "Control/GridCells.hpp"
#include "Foundation/JsonRecordWriter.hpp"
#include "Foundation/JsonValueReader.hpp"
#include "WidgetRuntime/Messages.hpp"

namespace control {
namespace {

using foundation::JsonValue;
using foundation::kRequired;

constexpr foundation::Bounds kRegion{.least = 0, .most = 1e6};

template <class T>
struct MembersOf;
template <>
struct MembersOf<ReloadRequest> {
  static void list(auto&& member) { member("target", &ReloadRequest::target); }
};
template <>
struct MembersOf<WatchRequest> {
  static void list(auto&& member) { member("target", &WatchRequest::target); }
};
template <>
struct MembersOf<OpenRequest> {
  static void list(auto&& member) {
    member("target", &OpenRequest::target);
    member("region", &OpenRequest::region, kRegion);
  }
};
template <>
struct MembersOf<HideRequest> {
  static void list(auto&& member) { member("hide", &HideRequest::hide, kRequired); }
};
template <>
struct MembersOf<AddRequest> {
  static void list(auto&& member) {
    member("kind", &AddRequest::kind);
    member("family", &AddRequest::family);
    member("configuration", &AddRequest::configuration);
  }
};
template <>
struct MembersOf<RemoveRequest> {
  static void list(auto&& member) { member("id", &RemoveRequest::id); }
};
template <>
struct MembersOf<ConfigureRequest> {
  static void list(auto&& member) {
    member("id", &ConfigureRequest::id);
    member("family", &ConfigureRequest::family);
    member("configuration", &ConfigureRequest::configuration);
  }
};
template <>
struct MembersOf<MoveRequest> {
  static void list(auto&& member) {
    member("id", &MoveRequest::id);
    member("surface", &MoveRequest::surface, kRequired);
    member("output", &MoveRequest::output);
    member("column", &MoveRequest::column, kRequired, kCell);
    member("row", &MoveRequest::row, kRequired, kCell);
  }
};
template <>
struct MembersOf<PerformRequest> {
  static void list(auto&& member) { member("intent", &PerformRequest::intent); }
};

class RequestReader : public foundation::JsonRecordReader<RequestReader, MembersOf> {
 public:
  static constexpr bool kLenient = true;

  RequestReader() : JsonRecordReader(widgetruntime::kMaximumString) {}

  using JsonRecordReader::read;

 private:
  friend JsonRecordReader;
};

class RequestWriter : public foundation::JsonRecordWriter<RequestWriter, MembersOf> {
 public:
  using JsonRecordWriter::JsonRecordWriter;
  using JsonRecordWriter::put;
};

}  // namespace

template <class Request>
std::string encode(const Request& request) {
  foundation::JsonWriter json;
  RequestWriter(json).put(request);
  return json.take();
}

template <class Request>
std::expected<Request, std::string> read(const JsonValue& parameters) {
  if (parameters.isNull()) return read<Request>(JsonValue{JsonValue::Object{}});
  RequestReader reader;
  Request request;
  if (!reader.read(parameters, request)) return std::unexpected(reader.failure());
  return request;
}

template std::string encode(const ReloadRequest&);
template std::string encode(const WatchRequest&);
template std::string encode(const OpenRequest&);
template std::string encode(const HideRequest&);
template std::string encode(const AddRequest&);
template std::string encode(const RemoveRequest&);
template std::string encode(const ConfigureRequest&);
template std::string encode(const MoveRequest&);
template std::string encode(const PerformRequest&);
template std::expected<ReloadRequest, std::string> read(const JsonValue&);
template std::expected<WatchRequest, std::string> read(const JsonValue&);
template std::expected<OpenRequest, std::string> read(const JsonValue&);
template std::expected<HideRequest, std::string> read(const JsonValue&);
template std::expected<AddRequest, std::string> read(const JsonValue&);
template std::expected<RemoveRequest, std::string> read(const JsonValue&);
template std::expected<ConfigureRequest, std::string> read(const JsonValue&);
template std::expected<MoveRequest, std::string> read(const JsonValue&);
template std::expected<PerformRequest, std::string> read(const JsonValue&);

}  // namespace control
