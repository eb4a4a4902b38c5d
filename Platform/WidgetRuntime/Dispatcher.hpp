// Answers a host's requests: JSON-RPC text in, JSON-RPC text out.
#pragma once

#include <expected>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "WidgetRuntime/JsonRpc.hpp"
#include "WidgetRuntime/Messages.hpp"
#include "WidgetRuntime/Widget.hpp"

namespace widgetruntime {

/// What an extension hands to the runtime. Both may read files; neither may read clock, zone or
/// locale of the process.
struct ExtensionDefinition {
  std::function<WidgetBundle(const InitializeParameters&)> makeBundle;
  /// Has a path or a text. Names at most as many problems as fit into a message.
  std::function<DiagnoseAnswer(const DiagnoseParameters&)> diagnose;
  /// The document that widgets are made from, there or not; empty without a container. Absent:
  /// always empty.
  std::function<std::string(const InitializeParameters&)> documentPath{};
};

/// Keeps nothing between requests but what initialize told it and the bundle made of that. Never
/// throws.
class Dispatcher {
 public:
  explicit Dispatcher(ExtensionDefinition definition);

  /// The answer to one request; empty for a notification. Whatever stands behind a widget may fail:
  /// that is an entry without a snapshot. Errors are for requests that are malformed, unknown or
  /// out of turn.
  [[nodiscard]] std::string handle(std::string_view request);
  [[nodiscard]] std::string handle(const RpcRequest& request);

  /// After `shutdown`; every request but `exit` is then refused.
  [[nodiscard]] bool isShutDown() const { return isShutDown_; }
  /// After `exit`.
  [[nodiscard]] bool hasExited() const { return hasExited_; }

 private:
  using Answer = std::expected<std::string, RpcError>;

  using Json = foundation::JsonValue;
  struct Method {
    std::string_view name;
    Answer (Dispatcher::*answer)(const Json& parameters);
    bool needsBundle = true;
  };
  static const Method* methodNamed(std::string_view name);

  [[nodiscard]] Answer answer(const RpcRequest& request);
  template <class Ask>
  [[nodiscard]] Answer answerFromDocument(const Ask& ask) const;
  Answer initialize(const Json& parameters);
  Answer shutdown(const Json& parameters);
  Answer placeholder(const Json& parameters);
  Answer snapshot(const Json& parameters);
  Answer timeline(const Json& parameters);
  Answer options(const Json& parameters);
  Answer perform(const Json& parameters);
  Answer diagnose(const Json& parameters);

  ExtensionDefinition definition_;
  InitializeParameters parameters_;
  std::unique_ptr<const WidgetBundle> bundle_;  ///< null before `initialize`
  std::string document_;
  bool isShutDown_ = false;
  bool hasExited_ = false;
};

}  // namespace widgetruntime
