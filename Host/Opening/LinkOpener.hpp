// Hands a link to the desktop, or to a program of the person's choice, without waiting.
//
//     LinkOpener opener{"quorvel-widget://open/bills", {}};
//     std::optional<Opened> opened = opener.proceed();
//     while (!opened) { wait until opener.descriptor() is readable; opened = opener.proceed(); }
#pragma once

#include <expected>
#include <optional>
#include <string>
#include <vector>

#include "Foundation/FileDescriptor.hpp"

namespace opening {

/// Nothing, or one line with the link and what to do.
using Opened = std::expected<void, std::string>;

/// "quorvel-widget://"; or why that is no URL scheme: control characters, spaces and the like.
[[nodiscard]] std::expected<std::string, std::string> applicationLink(const std::string& scheme);

class LinkOpener {
 public:
  /// With xdg-open when `program` is empty, after asking whether anything is registered for the
  /// scheme; `program` may carry arguments, separated by spaces, before the link.
  LinkOpener(std::string link, std::string program);
  LinkOpener(const LinkOpener&) = delete;
  LinkOpener& operator=(const LinkOpener&) = delete;
  /// A question that is still open is dropped; the opening program goes on.
  ~LinkOpener();

  /// Does what can be done now; the end, when it has come.
  [[nodiscard]] std::optional<Opened> proceed();
  /// Readable when proceed() has something to do.
  [[nodiscard]] int descriptor() const { return awaited_.get(); }
  /// The program that opens the link runs; some run as long as what they have opened.
  [[nodiscard]] bool isHandedOver() const { return stage_ == Stage::opening; }

 private:
  enum class Stage { asking, asked, opening, over };

  Opened begin();
  /// Of the question's output; false when more is to come.
  bool readRegistration();
  [[nodiscard]] bool isUnregistered(int status) const;
  [[nodiscard]] Opened unregistered() const;
  Opened startOpening();
  [[nodiscard]] Opened judge(int status) const;
  Opened finish(Opened opened);
  Opened spawn(const std::vector<std::string>& command, int output);

  std::string link_;
  std::string program_;
  std::vector<std::string> command_;
  Stage stage_ = Stage::asking;
  std::optional<Opened> end_;
  foundation::FileDescriptor awaited_{-1};  // the question's output, or the opening process
  foundation::FileDescriptor process_{-1};
  std::string registered_;
};

}  // namespace opening
