// Arithmetic on lengths, and their normal form.
#include "ViewKit/Length.hpp"

#include <algorithm>
#include <compare>
#include <utility>

namespace viewkit {

namespace {

constinit const std::vector<Length::Term> kNoTerms;

// What depends on the size comes first, so that dumps read `min(W/62, 1.5)` and `max(..., 0)`.
std::weak_ordering order(const Length& a, const Length& b);

std::weak_ordering order(const Length::Term& a, const Length::Term& b) {
  if (const auto by = a.choice <=> b.choice; by != 0) return by;
  if (const auto by = order(a.first, b.first); by != 0) return by;
  return order(a.second, b.second);
}

std::weak_ordering order(const Length& a, const Length& b) {
  const std::vector<Length::Term>& left = a.terms();
  const std::vector<Length::Term>& right = b.terms();
  if (const auto by = right.size() <=> left.size(); by != 0) return by;
  if (const auto by = std::weak_order(b.widthFactor(), a.widthFactor()); by != 0) return by;
  if (const auto by = std::weak_order(b.heightFactor(), a.heightFactor()); by != 0) return by;
  if (const auto by = std::weak_order(b.points(), a.points()); by != 0) return by;
  for (std::size_t i = 0; i < left.size(); ++i) {
    if (const auto by = order(left[i], right[i]); by != 0) return by;
    if (const auto by = std::weak_order(right[i].factor, left[i].factor); by != 0) return by;
  }
  return std::weak_ordering::equivalent;
}

bool chooses(const Length::Term& a, const Length::Term& b) {
  return a.choice == b.choice && a.first == b.first && a.second == b.second;
}

// Equal choices become one, those that cancel out vanish.
void merge(std::vector<Length::Term>& terms) {
  std::ranges::sort(terms, [](const auto& a, const auto& b) { return order(a, b) < 0; });
  std::vector<Length::Term> merged;
  for (Length::Term& term : terms) {
    if (!merged.empty() && chooses(merged.back(), term)) {
      merged.back().factor += term.factor;
    } else {
      merged.push_back(std::move(term));
    }
  }
  std::erase_if(merged, [](const Length::Term& term) { return term.factor == 0; });
  terms = std::move(merged);
}

}  // namespace

Length::Length(double width, double height, double points, std::vector<Term> terms)
    : Length(width, height, points) {
  std::vector<Term> kept;
  for (Term& term : terms) add(std::move(term), kept);
  if (kept.size() > 1) merge(kept);
  if (!kept.empty()) terms_ = std::make_shared<const std::vector<Term>>(std::move(kept));
}

void Length::add(Term term, std::vector<Term>& kept) {
  if (term.factor == 0) return;
  if (term.first.isConstant() && term.second.isConstant()) {
    const double a = term.first.points_;
    const double b = term.second.points_;
    points_ += term.factor * (term.choice == Choice::min ? std::min(a, b) : std::max(a, b));
  } else if (term.first == term.second) {
    width_ += term.factor * term.first.width_;
    height_ += term.factor * term.first.height_;
    points_ += term.factor * term.first.points_;
    for (Term inner : term.first.terms()) {
      inner.factor *= term.factor;
      add(std::move(inner), kept);
    }
  } else {
    if (order(term.second, term.first) < 0) std::swap(term.first, term.second);
    kept.push_back(std::move(term));
  }
}

const std::vector<Length::Term>& Length::terms() const {
  return terms_ ? *terms_ : kNoTerms;
}

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
  const double width = a.width_ + b.width_;
  const double height = a.height_ + b.height_;
  const double points = a.points_ + b.points_;
  if (!a.terms_ && !b.terms_) return {width, height, points};
  std::vector<Length::Term> terms = a.terms();
  terms.insert(terms.end(), b.terms().begin(), b.terms().end());
  return {width, height, points, std::move(terms)};
}

Length operator*(const Length& a, double factor) {
  if (!a.terms_) return {a.width_ * factor, a.height_ * factor, a.points_ * factor};
  std::vector<Length::Term> terms = a.terms();
  for (Length::Term& term : terms) term.factor *= factor;
  return {a.width_ * factor, a.height_ * factor, a.points_ * factor, std::move(terms)};
}

// Divides each part rather than multiplying by a reciprocal: 7W / 10 is 0.7W to the last bit.
Length operator/(const Length& a, double divisor) {
  if (!a.terms_) return {a.width_ / divisor, a.height_ / divisor, a.points_ / divisor};
  std::vector<Length::Term> terms = a.terms();
  for (Length::Term& term : terms) term.factor /= divisor;
  return {a.width_ / divisor, a.height_ / divisor, a.points_ / divisor, std::move(terms)};
}

Length operator*(double factor, const Length& a) {
  return a * factor;
}
Length operator-(const Length& a) {
  return a * -1;
}
Length operator-(const Length& a, const Length& b) {
  return a + -b;
}

Length min(const Length& a, const Length& b) {
  return {0, 0, 0, {Length::Term{Length::Choice::min, 1, a, b}}};
}

Length max(const Length& a, const Length& b) {
  return {0, 0, 0, {Length::Term{Length::Choice::max, 1, a, b}}};
}

bool operator==(const Length& a, const Length& b) {
  return a.width_ == b.width_ && a.height_ == b.height_ && a.points_ == b.points_ &&
         (a.terms_ == b.terms_ || a.terms() == b.terms());
}

}  // namespace viewkit
