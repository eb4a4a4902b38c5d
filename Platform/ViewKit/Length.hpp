// A length in points that may depend on the size its carrier is offered: a small expression made of
// data.
#pragma once

#include <memory>
#include <vector>

namespace viewkit {

/// `width * W + height * H + points`, plus weighted minima and maxima of other lengths, where W x H
/// is the size proposed to the node that carries the length (for children of a canvas: the canvas).
/// Kept in one normal form: choices between constants or equal lengths are folded, equal terms
/// joined and sorted, so that `min(a, b) + c == c + min(b, a)`.
class Length {
 public:
  enum class Choice { min, max };

  /// `factor * min(a, b)` or `factor * max(a, b)`.
  struct Term;

  // Implicit: 4 is a length.
  Length(double points = 0) : points_(points + kNoSign) {}
  Length(double width, double height, double points)
      : width_(width + kNoSign), height_(height + kNoSign), points_(points + kNoSign) {}
  Length(double width, double height, double points, std::vector<Term> terms);

  [[nodiscard]] double resolve(double width, double height) const;
  [[nodiscard]] bool isConstant() const { return width_ == 0 && height_ == 0 && !terms_; }

  [[nodiscard]] double widthFactor() const { return width_; }
  [[nodiscard]] double heightFactor() const { return height_; }
  [[nodiscard]] double points() const { return points_; }
  [[nodiscard]] const std::vector<Term>& terms() const;

  friend Length operator+(const Length& a, const Length& b);
  friend Length operator-(const Length& a, const Length& b);
  friend Length operator*(const Length& a, double factor);
  friend Length operator*(double factor, const Length& a);
  friend Length operator/(const Length& a, double divisor);
  friend Length operator-(const Length& a);
  friend Length min(const Length& a, const Length& b);
  friend Length max(const Length& a, const Length& b);
  friend bool operator==(const Length& a, const Length& b);

 private:
  static constexpr double kNoSign = 0;  ///< added to a negative zero makes it a positive one

  void add(Term term, std::vector<Term>& kept);

  double width_ = 0;
  double height_ = 0;
  double points_ = 0;
  std::shared_ptr<const std::vector<Term>> terms_;
};

struct Length::Term {
  Choice choice = Choice::min;
  double factor = 1;
  Length first;
  Length second;

  friend bool operator==(const Term&, const Term&) = default;
};

inline const Length kWidth{1, 0, 0};
inline const Length kHeight{0, 1, 0};

/// A point whose coordinates may be relative; x grows towards the trailing edge, y downwards.
struct LengthPoint {
  Length x;
  Length y;

  friend bool operator==(const LengthPoint&, const LengthPoint&) = default;
};

}  // namespace viewkit
