#include "Opening/LinkOpener.hpp"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <utility>

// This version of the header does not say that its functions are C's.
extern "C" {
#include <sys/pidfd.h>
}

#include "Foundation/Ascii.hpp"
#include "Foundation/Spawn.hpp"

namespace opening {
namespace {

using foundation::FileDescriptor;

std::vector<std::string> words(const std::string& text) {
  std::vector<std::string> result;
  std::size_t at = 0;
  while ((at = text.find_first_not_of(' ', at)) != std::string::npos) {
    const auto end = std::min(text.find(' ', at), text.size());
    result.push_back(text.substr(at, end - at));
    at = end;
  }
  return result;
}

bool isSchemeCharacter(char c) {
  return foundation::isAsciiLetterOrDigit(c) || c == '+' || c == '-' || c == '.';
}

/// The exit status when it has ended, 128 and more for a signal.
std::optional<int> statusOf(const FileDescriptor& process) {
  siginfo_t info{};
  const auto id = static_cast<id_t>(process.get());
  if (::waitid(P_PIDFD, id, &info, WEXITED | WNOHANG) != 0) return 0;
  if (info.si_pid == 0) return std::nullopt;
  return info.si_code == CLD_EXITED ? info.si_status : 128 + info.si_status;
}

FileDescriptor duplicate(const FileDescriptor& file) {
  return FileDescriptor{::fcntl(file.get(), F_DUPFD_CLOEXEC, 0)};
}

}  // namespace

std::expected<std::string, std::string> applicationLink(const std::string& scheme) {
  if (!std::ranges::all_of(scheme, isSchemeCharacter)) {
    return std::unexpected(
        std::string{"the URL scheme in Info.plist holds characters that no scheme may have"});
  }
  if (scheme.empty() || !((scheme[0] | 0x20) >= 'a' && (scheme[0] | 0x20) <= 'z')) {
    return std::unexpected(std::string{"the URL scheme in Info.plist must begin with a letter"});
  }
  return scheme + "://";
}

LinkOpener::LinkOpener(std::string link, std::string program)
    : link_(std::move(link)), program_(std::move(program)), command_(words(program_)) {
  if (auto begun = begin(); !begun) end_ = std::move(begun);
}

LinkOpener::~LinkOpener() {
  const bool isQuestion = stage_ == Stage::asking || stage_ == Stage::asked;
  if (!isQuestion || !process_) return;
  ::pidfd_send_signal(process_.get(), SIGKILL, nullptr, 0);
  siginfo_t info{};
  ::waitid(P_PIDFD, static_cast<id_t>(process_.get()), &info, WEXITED);
}

Opened LinkOpener::begin() {
  if (!command_.empty()) return startOpening();
  command_ = {"xdg-open"};
  std::array<int, 2> pipe{-1, -1};
  if (::pipe2(pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
    return std::unexpected(std::strerror(errno));
  FileDescriptor output{pipe[1]};
  awaited_ = FileDescriptor{pipe[0]};
  const std::string scheme = link_.substr(0, link_.find(':'));
  // Where nobody can tell what is registered, opening is tried.
  if (!spawn({"xdg-mime", "query", "default", "x-scheme-handler/" + scheme}, output.get())) {
    return startOpening();
  }
  return {};
}

Opened LinkOpener::spawn(const std::vector<std::string>& command, int output) {
  const auto child = foundation::spawn(command, {.output = output});
  if (!child) {
    return std::unexpected(
        fmt::format("cannot run {}: {}", command.front(), child.error().message()));
  }
  process_ = FileDescriptor{::pidfd_open(*child, 0)};
  if (!process_) return std::unexpected(std::string{std::strerror(errno)});
  return {};
}

Opened LinkOpener::startOpening() {
  std::vector<std::string> command = command_;
  command.push_back(link_);
  if (auto started = spawn(command, -1); !started) {
    const std::string advice = program_.empty() ? " (Debian package xdg-utils)" : "";
    return std::unexpected(
        fmt::format("{}{}, so {} was not opened", started.error(), advice, link_));
  }
  stage_ = Stage::opening;
  awaited_ = duplicate(process_);
  return {};
}

bool LinkOpener::readRegistration() {
  std::array<char, 512> buffer{};
  ssize_t count = 0;
  while ((count = ::read(awaited_.get(), buffer.data(), buffer.size())) > 0) {
    if (registered_.size() < buffer.size()) {
      registered_.append(buffer.data(), static_cast<std::size_t>(count));
    }
  }
  if (count < 0) return false;  // not yet
  awaited_ = duplicate(process_);
  return true;
}

bool LinkOpener::isUnregistered(int status) const {
  return status == 0 && registered_.find_first_not_of(" \n") == std::string::npos;
}

Opened LinkOpener::unregistered() const {
  return std::unexpected(
      fmt::format("no application is registered for {} links, so {} was not opened; install the "
                  "application, or name a program with --open-with",
                  link_.substr(0, link_.find(':')),
                  link_));
}

Opened LinkOpener::judge(int status) const {
  if (status == 0) return {};
  return std::unexpected(
      fmt::format("{} could not open {} (status {})", command_.front(), link_, status));
}

std::optional<Opened> LinkOpener::proceed() {
  if (end_) return end_;
  if (stage_ == Stage::asking && readRegistration()) stage_ = Stage::asked;
  if (stage_ == Stage::asking) return std::nullopt;
  const auto status = statusOf(process_);
  if (!status) return std::nullopt;
  if (stage_ == Stage::opening) return finish(judge(*status));
  if (isUnregistered(*status)) return finish(unregistered());
  if (auto started = startOpening(); !started) return finish(std::move(started));
  return std::nullopt;
}

Opened LinkOpener::finish(Opened opened) {
  stage_ = Stage::over;
  end_ = opened;
  return opened;
}

}  // namespace opening
