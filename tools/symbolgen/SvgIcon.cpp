// A reader for the path grammar as far as icons use it: A C H L M S V Z in both cases.
#include "SvgIcon.hpp"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <numbers>
#include <sstream>
#include <stdexcept>

namespace symbolgen {

namespace {

class PathReader {
 public:
  explicit PathReader(std::string_view data) : text_(data) {}

  IconPath read() {
    while (skip(), at_ < text_.size()) {
      if (std::isalpha(static_cast<unsigned char>(text_[at_]))) command_ = text_[at_++];
      step();
    }
    return std::move(path_);
  }

 private:
  void skip() {
    while (at_ < text_.size() &&
           (std::isspace(static_cast<unsigned char>(text_[at_])) || text_[at_] == ','))
      ++at_;
  }
  double number() {
    skip();
    const std::string rest(text_.substr(at_, 40));
    char* end = nullptr;
    const double value = std::strtod(rest.c_str(), &end);
    if (end == rest.c_str()) throw std::runtime_error("number expected in path data");
    at_ += static_cast<std::size_t>(end - rest.c_str());
    return value;
  }
  /// Flags may be run together with what follows them.
  bool flag() {
    skip();
    if (at_ >= text_.size() || (text_[at_] != '0' && text_[at_] != '1')) {
      throw std::runtime_error("flag expected in path data");
    }
    return text_[at_++] == '1';
  }
  Point point() {
    const double x = number();
    const double y = number();
    return relative() ? Point{current_.x + x, current_.y + y} : Point{x, y};
  }
  [[nodiscard]] bool relative() const { return command_ >= 'a'; }

  void add(char verb, Point a, Point b = {}, Point c = {}) {
    path_.steps.push_back({verb, {a, b, c}});
    current_ = verb == 'C' ? c : a;
    handle_ = verb == 'C' ? b : current_;
  }

  void step() {
    switch (command_) {
      case 'M':
      case 'm':
        add('M', point());
        start_ = current_;
        command_ = relative() ? 'l' : 'L';  // further pairs are lines
        break;
      case 'L':
      case 'l':
        add('L', point());
        break;
      case 'H':
        add('L', {number(), current_.y});
        break;
      case 'h':
        add('L', {current_.x + number(), current_.y});
        break;
      case 'V':
        add('L', {current_.x, number()});
        break;
      case 'v':
        add('L', {current_.x, current_.y + number()});
        break;
      case 'C':
      case 'c': {
        const Point a = point();
        const Point b = point();
        add('C', a, b, point());
        break;
      }
      case 'S':
      case 's': {
        const Point a{2 * current_.x - handle_.x, 2 * current_.y - handle_.y};
        const Point b = point();
        add('C', a, b, point());
        break;
      }
      case 'A':
      case 'a':
        arc();
        break;
      case 'Z':
      case 'z':
        path_.steps.push_back({'Z', {}});
        current_ = handle_ = start_;
        break;
      default:
        throw std::runtime_error(std::string("unknown path command ") + command_);
    }
  }

  // The end-point form of an elliptical arc is turned into its centre and angles, then into cubic
  // pieces of at most a quarter turn.
  void arc() {
    double rx = std::abs(number());
    double ry = std::abs(number());
    const double turn = number() * std::numbers::pi / 180;
    const bool large = flag();
    const bool sweep = flag();
    const Point from = current_;
    const Point to = point();
    if (rx == 0 || ry == 0) return add('L', to);
    const double c = std::cos(turn);
    const double s = std::sin(turn);
    const double dx = (from.x - to.x) / 2;
    const double dy = (from.y - to.y) / 2;
    const double x = c * dx + s * dy;
    const double y = -s * dx + c * dy;
    const double reach = x * x / (rx * rx) + y * y / (ry * ry);
    if (reach == 0) return;
    if (reach > 1) {
      rx *= std::sqrt(reach);
      ry *= std::sqrt(reach);
    }
    const double down = rx * rx * y * y + ry * ry * x * x;
    double k = std::sqrt(std::max(0.0, (rx * rx * ry * ry - down) / down));
    if (large == sweep) k = -k;
    const double ux = k * rx * y / ry;
    const double uy = -k * ry * x / rx;
    const Point center{c * ux - s * uy + (from.x + to.x) / 2,
                       s * ux + c * uy + (from.y + to.y) / 2};
    const double begin = std::atan2((y - uy) / ry, (x - ux) / rx);
    double angle = std::atan2((-y - uy) / ry, (-x - ux) / rx) - begin;
    if (sweep && angle < 0) angle += 2 * std::numbers::pi;
    if (!sweep && angle > 0) angle -= 2 * std::numbers::pi;
    const int pieces =
        std::max(1, static_cast<int>(std::ceil(std::abs(angle) / (std::numbers::pi / 2) - 1e-9)));
    const double part = angle / pieces;
    const double handle = 4.0 / 3 * std::tan(part / 4);
    const auto on = [&](double a, double t) -> Point {
      const double ex = rx * (std::cos(a) - t * std::sin(a));
      const double ey = ry * (std::sin(a) + t * std::cos(a));
      return {center.x + c * ex - s * ey, center.y + s * ex + c * ey};
    };
    for (int i = 0; i < pieces; ++i) {
      const double a = begin + part * i;
      const Point end = i + 1 == pieces ? to : on(a + part, 0);
      add('C', on(a, handle), on(a + part, -handle), end);
    }
    handle_ = current_;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  char command_ = 0;
  Point current_;
  Point start_;
  Point handle_;  ///< second control point of the curve before, for S
  IconPath path_;
};

std::string attribute(const std::string& element, const std::string& name) {
  const std::string mark = " " + name + "=\"";
  const std::size_t at = element.find(mark);
  if (at == std::string::npos) return {};
  const std::size_t begin = at + mark.size();
  return element.substr(begin, element.find('"', begin) - begin);
}

IconPath circle(const std::string& element) {
  const auto number = [&](const char* name) {
    return std::strtod(attribute(element, name).c_str(), nullptr);
  };
  const double r = number("r");
  std::ostringstream data;
  data << 'M' << number("cx") - r << ' ' << number("cy") << 'a' << r << ' ' << r << " 0 1 0 "
       << 2 * r << " 0a" << r << ' ' << r << " 0 1 0 " << -2 * r << " 0z";
  return parsePathData(data.str());
}

}  // namespace

IconPath parsePathData(std::string_view data) {
  return PathReader(data).read();
}

Icon readSvgIcon(const std::string& path) try {
  std::ifstream in(path);
  if (!in) throw std::runtime_error("cannot be read");
  const std::string text{std::istreambuf_iterator<char>(in), {}};
  if (text.find("viewBox=\"0 0 16 16\"") == std::string::npos) {
    throw std::runtime_error("is not in a box of 16 units");
  }
  Icon icon;
  for (std::size_t at = text.find('<'); at != std::string::npos; at = text.find('<', at + 1)) {
    std::string element = text.substr(at, text.find('>', at) - at);
    std::ranges::replace(element, '\n', ' ');
    if (element.starts_with("<path")) {
      icon.push_back(parsePathData(attribute(element, "d")));
      icon.back().evenOdd = attribute(element, "fill-rule") == "evenodd";
    } else if (element.starts_with("<circle")) {
      icon.push_back(circle(element));
    } else if (!element.starts_with("<svg") && !element.starts_with("</")) {
      throw std::runtime_error("has an element that is not understood: " + element);
    }
  }
  return icon;
} catch (const std::runtime_error& error) {
  throw std::runtime_error(path + ": " + error.what());
}

}  // namespace symbolgen
