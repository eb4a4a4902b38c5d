// Differences between neighbouring points, in 1/128 unit, as variable-length integers.
#include "OutlineEncoder.hpp"

#include <cmath>

namespace symbolgen {

namespace {

enum Op : char { end, nonZero, evenOdd, move, line, cubic, close };

class Writer {
 public:
  explicit Writer(std::string& out) : out_(out) {}

  void op(Op op) { out_.push_back(op); }
  void point(const Point& p) {
    const long x = std::lround(p.x * 128);
    const long y = std::lround(p.y * 128);
    number(x - x_);
    number(y - y_);
    x_ = x;
    y_ = y;
  }

 private:
  /// Sign in the lowest bit, seven bits per byte, the highest set while more follow.
  void number(long value) {
    auto rest = static_cast<unsigned long>(value < 0 ? ~value * 2 + 1 : value * 2);
    for (; rest >= 0x80; rest >>= 7) out_.push_back(static_cast<char>(rest | 0x80));
    out_.push_back(static_cast<char>(rest));
  }

  std::string& out_;
  long x_ = 0;
  long y_ = 0;
};

}  // namespace

void encode(const Icon& icon, std::string& out) {
  Writer writer(out);
  for (const IconPath& path : icon) {
    writer.op(path.evenOdd ? Op::evenOdd : Op::nonZero);
    for (const Step& step : path.steps) {
      const int points = step.verb == 'C' ? 3 : step.verb == 'Z' ? 0 : 1;
      writer.op(step.verb == 'M'   ? Op::move
                : step.verb == 'L' ? Op::line
                : step.verb == 'C' ? Op::cubic
                                   : Op::close);
      for (int i = 0; i < points; ++i) writer.point(step.p[i]);
    }
  }
  writer.op(Op::end);
}

}  // namespace symbolgen
