// JSON into what is drawn and where: lengths, points, colours, gradients and paths.
#include "ViewKit/ColorText.hpp"
#include "ViewKit/TreeReader.hpp"

namespace viewkit {

using Json = foundation::JsonValue;

// ---- lengths

namespace {

bool isModerate(double number) {
  return number >= -kLargestNumber && number <= kLargestNumber;
}

// Folding and joining terms may add up what was within bounds one by one.
bool isModerate(const Length& length) {
  if (!isModerate(length.widthFactor()) || !isModerate(length.heightFactor())) return false;
  if (!isModerate(length.points())) return false;
  for (const Length::Term& term : length.terms()) {
    if (!isModerate(term.factor)) return false;
  }
  return true;
}

}  // namespace

bool TreeReader::read(const Json& json, Length& out, const Bounds& bounds) {
  std::size_t terms = 0;
  if (!readExpression(json, out, 0, terms)) return false;
  if (!out.isConstant()) return true;
  double points = 0;
  return read(Json{out.points()}, points, bounds);
}

bool TreeReader::readExpression(const Json& json,
                                Length& out,
                                std::size_t depth,
                                std::size_t& terms) {
  constexpr std::size_t kAffine = 3;
  if (json.number() != nullptr) {
    out = *json.number();
    return isModerate(out) || fail("the length is too large");
  }
  const Json::Array* parts = json.array();
  if (parts == nullptr || parts->size() < kAffine) {
    return fail("expected a number or [w, h, points, term...]");
  }
  double affine[kAffine] = {};
  for (std::size_t i = 0; i < kAffine; ++i) {
    if (!read((*parts)[i], affine[i], kAnyNumber)) return at(i);
  }
  std::vector<Length::Term> choices(parts->size() - kAffine);
  for (std::size_t i = 0; i < choices.size(); ++i) {
    if (!readTerm((*parts)[kAffine + i], choices[i], depth, terms)) return at(kAffine + i);
  }
  out = Length(affine[0], affine[1], affine[2], std::move(choices));
  return isModerate(out) || fail("the length is too large");
}

bool TreeReader::readTerm(const Json& json,
                          Length::Term& out,
                          std::size_t depth,
                          std::size_t& terms) {
  const Json::Array* parts = json.array();
  if (parts == nullptr || parts->size() != 4)
    return fail("expected [choice, factor, length, length]");
  if (depth >= limits_.lengthDepth) return fail("the length is too deep");
  if (++terms > limits_.lengthTerms) return fail("the length has too many terms");
  return (read((*parts)[0], out.choice) || at(std::size_t{0})) &&
         (read((*parts)[1], out.factor, kAnyNumber) || at(1)) &&
         (readExpression((*parts)[2], out.first, depth + 1, terms) || at(2)) &&
         (readExpression((*parts)[3], out.second, depth + 1, terms) || at(3));
}

bool TreeReader::read(const Json& json, LengthPoint& out) {
  const Json::Array* parts = json.array();
  if (parts == nullptr || parts->size() != 2) return fail("expected two lengths");
  return (read((*parts)[0], out.x) || at(std::size_t{0})) && (read((*parts)[1], out.y) || at(1));
}

// ---- plain geometry

bool TreeReader::readNumbers(const Json& json, std::initializer_list<double*> out) {
  const Json::Array* parts = json.array();
  if (parts == nullptr || parts->size() != out.size()) {
    return fail("expected " + std::to_string(out.size()) + " numbers");
  }
  for (std::size_t i = 0; i < out.size(); ++i) {
    if (!read((*parts)[i], *out.begin()[i], kAnyNumber)) return at(i);
  }
  return true;
}

bool TreeReader::read(const Json& json, UnitPoint& out) {
  return readNumbers(json, {&out.x, &out.y});
}

bool TreeReader::read(const Json& json, Insets& out) {
  return readNumbers(json, {&out.top, &out.leading, &out.bottom, &out.trailing});
}

// ---- paints

bool TreeReader::read(const Json& json, Color& out) {
  const std::string_view* text = json.string();
  const auto color = text == nullptr ? std::nullopt : parseColor(*text);
  if (!color) return fail("expected a colour: #RRGGBB/#RRGGBB or a role, then opacities in 0...1");
  out = *color;
  return true;
}

bool TreeReader::read(const Json& json, GradientStop& out) {
  const Json::Array* parts = json.array();
  if (parts == nullptr || parts->size() != 2) return fail("expected a colour and its location");
  return (read((*parts)[0], out.color) || at(std::size_t{0})) &&
         (read((*parts)[1], out.location, kUnit) || at(1));
}

bool TreeReader::read(const Json& json, std::vector<GradientStop>& out) {
  return read(json, out, foundation::AtMost{limits_.gradientStops});
}

bool TreeReader::read(const Json& json, Paint& out) {
  if (json.isNull()) {
    out = std::monostate{};
    return true;
  }
  if (json.object() != nullptr) return read(json, out.emplace<Gradient>());
  return read(json, out.emplace<Color>());
}

// ---- paths

bool TreeReader::read(const Json& json, PathStep& out) {
  const Json::Array* parts = json.array();
  if (parts == nullptr || parts->empty()) return fail("expected a step: [letter, x, y...]");
  if (!read(parts->front(), out.verb)) return at(std::size_t{0});
  std::vector<Length*> coordinates;
  if (out.verb == PathStep::Verb::cubic) {
    coordinates = {&out.control1.x, &out.control1.y, &out.control2.x, &out.control2.y};
  }
  if (out.verb != PathStep::Verb::close)
    coordinates.insert(coordinates.end(), {&out.to.x, &out.to.y});
  if (parts->size() != coordinates.size() + 1) return fail("wrong number of coordinates");
  for (std::size_t i = 0; i < coordinates.size(); ++i) {
    if (!read((*parts)[i + 1], *coordinates[i])) return at(i + 1);
  }
  return true;
}

bool TreeReader::read(const Json& json, std::vector<PathStep>& out) {
  return read(json, out, foundation::AtMost{limits_.pathSteps});
}

}  // namespace viewkit
