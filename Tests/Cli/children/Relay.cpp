// Stands between a host and the extension and flips the lowest bit of one byte of what the
// extension says. The name that it is started by says which: "flip-structure" the bracket that
// opens the trees, "flip-text" the first letter of the first text, "flip-nothing" none.
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

namespace {

struct Flip {
  std::string_view after;  ///< the flipped byte follows this text
  bool done = false;
};

Flip flipOf(std::string_view name) {
  if (name == "flip-structure") return {"\"trees\":", false};
  if (name == "flip-text") return {"\"type\":\"Text\",\"text\":\"", false};
  return {"", true};
}

void apply(Flip& flip, std::string& bytes) {
  if (flip.done) return;
  const auto found = bytes.find(flip.after);
  if (found == std::string::npos || found + flip.after.size() >= bytes.size()) return;
  bytes[found + flip.after.size()] ^= 1;
  flip.done = true;
}

bool writeAll(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(STDOUT_FILENO, bytes.data(), bytes.size());
    if (count <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

}  // namespace

int main(int, char** argv) {
  namespace fs = std::filesystem;
  const std::string extension =
      (fs::read_symlink("/proc/self/exe").parent_path() / "quorvel-widgets").string();
  std::array<int, 2> answers{};
  if (::pipe(answers.data()) != 0) return 1;
  if (::fork() == 0) {
    ::dup2(answers[1], STDOUT_FILENO);
    ::close(answers[0]);
    ::close(answers[1]);
    ::execl(extension.c_str(), extension.c_str(), nullptr);
    ::_exit(127);
  }
  ::close(answers[1]);
  Flip flip = flipOf(fs::path(argv[0]).filename().string());
  std::string buffer(1 << 16, '\0');
  for (ssize_t count = 0; (count = ::read(answers[0], buffer.data(), buffer.size())) > 0;) {
    std::string bytes = buffer.substr(0, static_cast<std::size_t>(count));
    apply(flip, bytes);
    if (!writeAll(bytes)) return 1;
  }
  ::wait(nullptr);
  return 0;
}
