#include "ViewKit/Length.hpp"

#include <algorithm>
#include <utility>

namespace viewkit {

namespace {

const std::vector<Length::Term> kNoTerms;

}  // namespace

Length::Length(double width, double height, double points, std::vector<Term> terms)
    : width_(width), height_(height), points_(points) {
  if (!terms.empty()) terms_ = std::make_shared<const std::vector<Term>>(std::move(terms));
}

const std::vector<Length::Term>& Length::terms() const { return terms_ ? *terms_ : kNoTerms; }

double Length::resolve(double width, double height) const {
  double result = width_ * width + height_ * height + points_;
  for (const Term& term : terms()) {
    const double a = term.first.resolve(width, height);
    const double b = term.second.resolve(width, height);
    result += term.factor * (term.choice == Choice::min ? std::min(a, b) : std::max(a, b));
  }
  return result;
}

Length operator+(const Length& a, const Length& b) {
  std::vector<Length::Term> terms = a.terms();
  terms.insert(terms.end(), b.terms().begin(), b.terms().end());
  return {a.width_ + b.width_, a.height_ + b.height_, a.points_ + b.points_, std::move(terms)};
}

Length operator*(const Length& a, double factor) {
  std::vector<Length::Term> terms = a.terms();
  for (Length::Term& term : terms) term.factor *= factor;
  return {a.width_ * factor, a.height_ * factor, a.points_ * factor, std::move(terms)};
}

Length operator*(double factor, const Length& a) { return a * factor; }
Length operator/(const Length& a, double divisor) { return a * (1 / divisor); }
Length operator-(const Length& a) { return a * -1; }
Length operator-(const Length& a, const Length& b) { return a + -b; }

Length min(const Length& a, const Length& b) {
  if (a.isConstant() && b.isConstant()) return std::min(a.points_, b.points_);
  return {0, 0, 0, {Length::Term{Length::Choice::min, 1, a, b}}};
}

Length max(const Length& a, const Length& b) {
  if (a.isConstant() && b.isConstant()) return std::max(a.points_, b.points_);
  return {0, 0, 0, {Length::Term{Length::Choice::max, 1, a, b}}};
}

bool operator==(const Length& a, const Length& b) {
  return a.width_ == b.width_ && a.height_ == b.height_ && a.points_ == b.points_ &&
         a.terms() == b.terms();
}

}  // namespace viewkit
