// Walks a JSON text once, front to back, and checks its form on the way; what reads records and
// values stands on it.
//
// The scanner stops at the first malformed byte: from then on every step fails and changes nothing.
// Problems that leave the text readable (a wrong type, a number that no double holds) are noted,
// and the walk goes on.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Json.hpp"

namespace foundation {

class JsonScanner {
 public:
  /// Where in the document the walk is: one step per open array or object, the innermost last.
  struct Step {
    const Step* parent = nullptr;
    std::string_view key;
    std::size_t index = 0;
    bool isElement = false;
  };
  /// Makes a step the innermost one for as long as it lives.
  class Descent {
   public:
    Descent(JsonScanner& scanner, bool isElement)
        : scanner_(scanner), step_{.parent = scanner.path_, .isElement = isElement} {
      scanner.path_ = &step_;
    }
    ~Descent() { scanner_.path_ = step_.parent; }
    Descent(const Descent&) = delete;
    Descent& operator=(const Descent&) = delete;
    Step* operator->() { return &step_; }

   private:
    JsonScanner& scanner_;
    Step step_;
  };

  static constexpr std::size_t kMaximumDepth = 512;

  explicit JsonScanner(std::string_view text,
                       std::size_t maximumDepth = kMaximumDepth,
                       std::size_t maximumString = std::string::npos);

  [[nodiscard]] bool stopped() const { return stopped_; }
  [[nodiscard]] const char* position() const { return at_; }

  /// The next byte that is not white space, left in place; NUL at the end.
  char peek() {
    while (at_ != end_ && (*at_ == ' ' || *at_ == '\n' || *at_ == '\r' || *at_ == '\t')) ++at_;
    return at_ == end_ ? '\0' : *at_;
  }

  /// Opens the array or object that the walk stands on. After it, `nextMember` or `nextElement` are
  /// called until they answer false, which closes it.
  bool open();
  /// Stands before the next member's key.
  bool nextMember(bool& first) { return next(first, '}') && (peek() == '"' || fail("string")); }
  /// Stands before the next element.
  bool nextElement(bool& first) { return next(first, ']'); }
  /// Reads a key and its colon. The view lives as long as the text and `scratch`.
  bool key(std::string_view& out, std::string& scratch);

  bool literal(std::string_view name);
  /// A text that cannot be held is noted, and reads as empty.
  bool string(std::string& out);
  /// A number that cannot be held is noted, and reads as 0.
  bool number(double& out);
  bool skipValue();
  /// Only white space may follow the root.
  bool finish();

  /// Notes that the value ahead should have been another one, and walks over it.
  void mismatch(std::string_view expected);
  void note(const char* at, std::string_view expected, std::string_view found);
  /// Notes a malformed text at the present position and stops; always false.
  bool fail(std::string_view expected);

  /// In document order, at most a hundred.
  [[nodiscard]] std::vector<JsonProblem> takeProblems();

 private:
  struct Noted {
    const char* at;
    JsonProblem problem;
  };
  struct NumberParts;

  bool next(bool& first, char closing);
  bool skipContainer();
  bool skipString();
  bool scanNumber(NumberParts& parts);
  bool escape(std::string* out, bool& isText);
  bool hexUnit(char32_t& unit);
  bool unescape(std::string& out, bool& isText);
  [[nodiscard]] std::string pointer() const;
  [[nodiscard]] std::string foundAt(const char* at) const;

  const char* begin_;
  const char* at_;
  const char* end_;
  const Step* path_ = nullptr;
  std::size_t depth_ = 0;
  std::size_t maximumDepth_;
  std::size_t maximumString_;
  std::vector<Noted> noted_;
  bool stopped_ = false;
  bool cutAtBadUtf8_ = false;  // end_ stands on a byte that is no UTF-8
};

}  // namespace foundation
