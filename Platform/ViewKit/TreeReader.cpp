// JSON into trees: nodes, their elements and modifiers.
#include "ViewKit/TreeReader.hpp"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace viewkit {

using Json = foundation::JsonValue;

const Json* ObjectCursor::take(std::string_view key) {
  for (std::size_t i = 0; i < object_.size(); ++i) {
    if (object_[i].first != key) continue;
    taken_.set(i);
    return &object_[i].second;
  }
  return nullptr;
}

std::optional<std::string_view> ObjectCursor::leftOver() const {
  if (taken_.count() == object_.size()) return std::nullopt;
  for (std::size_t i = 0; i < object_.size(); ++i) {
    if (!taken_.test(i)) return object_[i].first;
  }
  return std::nullopt;
}

// ---- failures

bool TreeReader::fail(std::string message) {
  message_ = std::move(message);
  return false;
}

// Keys may come from the document: escaped as in a JSON pointer, and not too long to read.
bool TreeReader::at(std::string_view key) {
  constexpr std::size_t kMostShown = 40;
  std::string step = "/";
  for (const char c : key.substr(0, kMostShown)) {
    if (c == '~' || c == '/') {
      step += c == '~' ? "~0" : "~1";
    } else {
      step += c >= ' ' && c < '\x7F' ? c : '?';
    }
  }
  path_.insert(0, step);
  return false;
}

bool TreeReader::at(std::size_t index) {
  return at(std::to_string(index));
}

// ---- records

std::optional<ObjectCursor> TreeReader::open(const Json& json) {
  const Json::Object* object = json.object();
  if (object != nullptr && object->size() <= ObjectCursor::kMostMembers) {
    return ObjectCursor{*object};
  }
  fail(object == nullptr ? "expected an object" : "too many members");
  return std::nullopt;
}

bool TreeReader::close(const ObjectCursor& cursor) {
  const std::optional<std::string_view> name = cursor.leftOver();
  if (!name) return true;
  fail("unknown or repeated member");
  return at(*name);
}

template <class T, class Out>
bool TreeReader::readPlain(ObjectCursor& cursor, Out& out) {
  return readMembers(cursor, out.template emplace<T>());
}

template <class M>
bool TreeReader::readNested(ObjectCursor& cursor, Modifier& out) {
  const Json* json = cursor.take(MembersOf<M>::kName);
  auto members = open(*json);
  return (members && readMembers(*members, out.emplace<M>()) && close(*members)) ||
         at(MembersOf<M>::kName);
}

// ---- what each name stands for

struct TreeForms {
  template <class Out>
  struct Form {
    std::string_view name;
    bool (TreeReader::*read)(ObjectCursor&, Out&);
  };

  template <class Out, class... T>
  static constexpr std::array<Form<Out>, sizeof...(T)> plain() {
    return {{{MembersOf<T>::kName, &TreeReader::readPlain<T, Out>}...}};
  }
  template <class M>
  static constexpr Form<Modifier> modifier() {
    if constexpr (hasLead<M>) {
      return {MembersOf<M>::kName, &TreeReader::readPlain<M, Modifier>};
    } else {
      return {MembersOf<M>::kName, &TreeReader::readNested<M>};
    }
  }
  template <class... M>
  static constexpr std::array<Form<Modifier>, sizeof...(M)> modifiers(const std::variant<M...>*) {
    return {modifier<M>()...};
  }
  template <class... S>
  static constexpr auto geometries(const std::variant<S...>*) {
    return plain<ShapeGeometry, S...>();
  }

  static const Form<Modifier>* findModifier(const Json::Object& object) {
    static constexpr auto kForms = modifiers(static_cast<const Modifier*>(nullptr));
    for (const auto& [key, value] : object) {
      const auto found = std::ranges::find(kForms, key, &Form<Modifier>::name);
      if (found != kForms.end()) return &*found;
    }
    return nullptr;
  }
  static const Form<ShapeGeometry>* findGeometry(std::string_view name) {
    static constexpr auto kForms = geometries(static_cast<const ShapeGeometry*>(nullptr));
    const auto found = std::ranges::find(kForms, name, &Form<ShapeGeometry>::name);
    return found == kForms.end() ? nullptr : &*found;
  }
  static const Form<Element>* findElement(std::string_view name) {
    static constexpr auto kForms = plain<Element,
                                         TextElement,
                                         SpacerElement,
                                         SymbolElement,
                                         ImageElement,
                                         CanvasElement,
                                         GaugeElement,
                                         FittingElement,
                                         EmptyElement>();
    const auto found = std::ranges::find(kForms, name, &Form<Element>::name);
    return found == kForms.end() ? nullptr : &*found;
  }
};

// ---- nodes

bool TreeReader::read(const Json& json, View& out) {
  if (depth_ >= limits_.depth) return fail("the tree is too deep");
  if (nodes_ >= limits_.nodes) return fail("the tree has too many nodes");
  ++nodes_;
  auto cursor = open(json);
  if (!cursor) return false;
  Node node;
  ++depth_;
  const bool ok = readNode(*cursor, node) && close(*cursor);
  --depth_;
  out = View::of(std::move(node));
  return ok;
}

bool TreeReader::readNode(ObjectCursor& cursor, Node& out) {
  std::string_view type;
  if (!readType(cursor, type) || !readElement(type, cursor, out.element)) return false;
  const Json* name = cursor.take("name");
  if (name != nullptr && !read(*name, out.component)) return at("name");
  const Json* modifiers = cursor.take("modifiers");
  const Json::Array* list = modifiers == nullptr ? nullptr : modifiers->array();
  const std::size_t count = list == nullptr ? 0 : list->size();
  if (pathModifiers_ + count > limits_.pathModifiers && count <= limits_.modifiers) {
    fail("too many modifiers from the root to here");
    return at("modifiers");
  }
  pathModifiers_ += count;
  const bool ok = readInner(cursor, modifiers, out);
  pathModifiers_ -= count;
  return ok;
}

bool TreeReader::readInner(ObjectCursor& cursor, const Json* modifiers, Node& out) {
  const Json* children = cursor.take("children");
  if (children != nullptr && !read(*children, out.children)) return at("children");
  return modifiers == nullptr || readModifiers(*modifiers, out.modifiers) || at("modifiers");
}

bool TreeReader::readType(ObjectCursor& cursor, std::string_view& out) {
  const Json* type = cursor.take("type");
  if (type == nullptr || type->string() == nullptr) {
    fail("expected a type's name");
    return at("type");
  }
  out = *type->string();
  return true;
}

bool TreeReader::readElement(std::string_view type, ObjectCursor& cursor, Element& out) {
  if (const auto axis = named<StackElement::Axis>(type)) {
    return readMembers(cursor, out.emplace<StackElement>(StackElement{.axis = *axis}));
  }
  if (TreeForms::findGeometry(type) != nullptr) {
    ShapeElement& shape = out.emplace<ShapeElement>();
    return readGeometry(type, cursor, shape.geometry) && readMembers(cursor, shape);
  }
  if (const auto* form = TreeForms::findElement(type)) return (this->*form->read)(cursor, out);
  fail("unknown element");
  return at("type");
}

bool TreeReader::readGeometry(std::string_view type, ObjectCursor& cursor, ShapeGeometry& out) {
  if (const auto* form = TreeForms::findGeometry(type)) return (this->*form->read)(cursor, out);
  fail("unknown shape");
  return at("type");
}

bool TreeReader::read(const Json& json, ShapeGeometry& out) {
  auto cursor = open(json);
  std::string_view type;
  return cursor && readType(*cursor, type) && readGeometry(type, *cursor, out) && close(*cursor);
}

bool TreeReader::read(const Json& json, std::vector<View>& out) {
  return readList(json, out, limits_.nodes);
}

bool TreeReader::readModifiers(const Json& json, std::vector<Modifier>& out) {
  const Json::Array* array = json.array();
  if (array == nullptr) return fail("expected an array");
  if (array->size() > limits_.modifiers) return fail("too many modifiers");
  out.resize(array->size());
  for (std::size_t i = 0; i < array->size(); ++i) {
    if (!readModifier((*array)[i], out[i])) return at(i);
  }
  return true;
}

bool TreeReader::readModifier(const Json& json, Modifier& out) {
  auto cursor = open(json);
  if (!cursor) return false;
  const auto* form = TreeForms::findModifier(cursor->object());
  if (form == nullptr) return fail("unknown modifier");
  return (this->*form->read)(*cursor, out) && close(*cursor);
}

// ---- values

namespace {

std::string expectation(const Bounds& bounds) {
  return fmt::format("expected a number {}{}...{}{}",
                     bounds.aboveLeast ? "above " : "in ",
                     bounds.least,
                     bounds.most,
                     bounds.infinity ? " or \"infinity\"" : "");
}

// Written so that NaN is out of bounds.
bool isWithin(double number, const Bounds& bounds) {
  return number >= bounds.least && number <= bounds.most &&
         !(bounds.aboveLeast && number == bounds.least);
}

// A file below the container, whatever the container is.
bool staysBelow(std::string_view path) {
  if (path.starts_with('/') || path.find('\0') != std::string_view::npos) return false;
  while (true) {
    const std::size_t slash = path.find('/');
    if (path.substr(0, slash) == "..") return false;
    if (slash == std::string_view::npos) return true;
    path.remove_prefix(slash + 1);
  }
}

}  // namespace

bool TreeReader::read(const Json& json, bool& out) {
  const bool* flag = json.boolean();
  if (flag == nullptr) return fail("expected true or false");
  out = *flag;
  return true;
}

bool TreeReader::read(const Json& json, double& out, const Bounds& bounds) {
  const double* number = json.number();
  const std::string* text = json.string();
  if (bounds.infinity && text != nullptr && *text == "infinity") {
    out = kInfinity;
    return true;
  }
  if (number == nullptr || !isWithin(*number, bounds)) return fail(expectation(bounds));
  out = *number;
  return true;
}

bool TreeReader::read(const Json& json, int& out, const Bounds& bounds) {
  double number = 0;
  if (!read(json, number, bounds)) return false;
  out = static_cast<int>(number);
  return out == number || fail("expected a whole number");
}

bool TreeReader::read(const Json& json, std::string& out) {
  const std::string* text = json.string();
  if (text == nullptr) return fail("expected a string");
  if (text->size() > limits_.stringBytes) return fail("the string is too long");
  out = *text;
  return true;
}

bool TreeReader::read(const Json& json, std::string& out, ContainerPath) {
  if (!read(json, out)) return false;
  return staysBelow(out) || fail("expected a path below the container");
}

bool TreeReader::read(const Json& json, Alignment& out) {
  const std::string* name = json.string();
  const auto alignment = name == nullptr ? std::nullopt : namedAlignment(*name);
  if (!alignment) return fail("expected an alignment");
  out = *alignment;
  return true;
}

bool TreeReader::failNames(std::span<const std::string_view> names) {
  return fail(fmt::format("expected {}", fmt::join(names, ", ")));
}

std::expected<View, std::string> readView(const foundation::JsonValue& json,
                                          const TreeLimits& limits) {
  TreeReader reader(limits);
  View view;
  if (!reader.read(json, view)) return std::unexpected(reader.failure());
  return view;
}

}  // namespace viewkit
