// Walks a JSON text once, front to back, and checks its form on the way; what reads records and
// values stands on it.
//
// The scanner stops at the first malformed byte: from then on every step fails and changes nothing.
// Problems that leave the text readable (a wrong type, a number that no double holds) are noted,
// and the walk goes on.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "Foundation/Json.hpp"

namespace foundation {

/// Bytes of a problem's pointer; a longer one is cut between two characters and ends in "…".
inline constexpr std::size_t kMaximumPointer = 512;

class JsonScanner {
 public:
  /// One open array or object that the walk is in, for as long as it lives: what is told of a
  /// problem's place.
  class Descent {
   public:
    explicit Descent(JsonScanner& scanner)
        : scanner_(scanner), parent_(scanner.innermost_), begin_(scanner.at_) {
      scanner.innermost_ = this;
    }
    ~Descent() { scanner_.innermost_ = parent_; }
    Descent(const Descent&) = delete;
    Descent& operator=(const Descent&) = delete;

    /// The member that the walk is at. The view lives until the next one, or as long as what it was
    /// set to.
    [[nodiscard]] std::string_view key() const { return key_; }
    void setKey(std::string_view key) {
      key_ = key;
      place_ = Place::member;
    }

   private:
    friend class JsonScanner;
    enum class Place : std::uint8_t { between, member, element };

    JsonScanner& scanner_;
    const Descent* parent_;
    const char* begin_;
    Place place_ = Place::between;
    std::size_t count_ = 0;  // members or elements begun
    std::string_view key_;
    std::string unescaped_;
  };

  static constexpr std::size_t kMaximumDepth = 512;

  explicit JsonScanner(std::string_view text,
                       std::size_t maximumDepth = kMaximumDepth,
                       std::size_t maximumString = std::string::npos);

  [[nodiscard]] bool stopped() const { return stopped_; }
  [[nodiscard]] const char* position() const { return at_; }

  /// The next byte that is not white space, left in place; NUL at the end.
  char peek() {
    at_ = afterSpace(at_);
    return at_ == end_ ? '\0' : *at_;
  }

  /// Opens the array or object that the walk stands on. After it, `nextMember` or `nextElement` are
  /// called until they return false, which closes it.
  bool open();
  /// Reads the next member's key and colon. A key that is the guess is found sooner, and is
  /// the guess's own text.
  bool nextMember(Descent& object, std::string_view guess = {});
  /// Stands before the next element.
  bool nextElement(Descent& array);
  /// Takes elements for as long as they are numbers in plain notation; `nextElement` takes what
  /// follows.
  void plainNumbers(Descent& array, std::vector<double>& out);
  /// How many elements the innermost array will have, going by the first `count` of them; more than
  /// these, and no more than a small multiple.
  [[nodiscard]] std::size_t expectedElements(std::size_t count) const;

  bool literal(std::string_view name);
  /// A text that cannot be held is noted, and reads as empty.
  bool string(std::string& out);
  /// The same without a copy: a view of the document or, of a text with escapes, of `unescaped`.
  bool string(std::string_view& out, std::string& unescaped);
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
  /// All of them, also those beyond the hundred.
  [[nodiscard]] std::size_t problemCount() const { return noted_.size() + leftOut_; }

 private:
  struct Noted {
    const char* at;
    JsonProblem problem;
  };
  [[nodiscard]] const char* afterSpace(const char* at) const {
    while (at != end_ && (*at == ' ' || *at == '\n' || *at == '\r' || *at == '\t')) ++at;
    return at;
  }
  bool isKey(std::string_view guess) const;
  bool next(bool isFirst, char closing);
  bool atKey() { return peek() == '"' || fail("string"); }
  bool colon();
  bool isWithinString(std::size_t size, const char* quote);
  bool skipContainer();
  bool skipString();
  bool skipNumber();
  bool escape(std::string* out, bool& isText);
  bool hexUnit(char32_t& unit);
  bool unescape(std::string& out, bool& isText);
  [[nodiscard]] std::string pointer() const;
  [[nodiscard]] std::string foundAt(const char* at) const;

  const char* begin_;
  const char* at_;
  const char* end_;
  const Descent* innermost_ = nullptr;
  std::size_t depth_ = 0;
  std::size_t maximumDepth_;
  std::size_t maximumString_;
  std::vector<Noted> noted_;
  std::size_t leftOut_ = 0;
  bool stopped_ = false;
  bool cutAtBadUtf8_ = false;  // end_ stands on a byte that is no UTF-8
};

}  // namespace foundation
