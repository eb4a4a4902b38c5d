// JSON into trees: nodes, their elements and modifiers.
#include "ViewKit/TreeReader.hpp"

#include <algorithm>
#include <array>

namespace viewkit {

using Json = foundation::JsonValue;

template <class T, class Out>
bool TreeReader::readPlain(JsonObjectCursor& cursor, Out& out) {
  return readMembers(cursor, out.template emplace<T>());
}

template <class M>
bool TreeReader::readNested(JsonObjectCursor& cursor, Modifier& out) {
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
    bool (TreeReader::*read)(JsonObjectCursor&, Out&);
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

bool TreeReader::readNode(JsonObjectCursor& cursor, Node& out) {
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

bool TreeReader::readInner(JsonObjectCursor& cursor, const Json* modifiers, Node& out) {
  const Json* children = cursor.take("children");
  if (children != nullptr && !read(*children, out.children)) return at("children");
  return modifiers == nullptr || readModifiers(*modifiers, out.modifiers) || at("modifiers");
}

bool TreeReader::readType(JsonObjectCursor& cursor, std::string_view& out) {
  const Json* type = cursor.take("type");
  if (type == nullptr || type->string() == nullptr) {
    fail("expected a type's name");
    return at("type");
  }
  out = *type->string();
  return true;
}

bool TreeReader::readElement(std::string_view type, JsonObjectCursor& cursor, Element& out) {
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

bool TreeReader::readGeometry(std::string_view type, JsonObjectCursor& cursor, ShapeGeometry& out) {
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
  return read(json, out, foundation::AtMost{limits_.nodes});
}

bool TreeReader::readModifiers(const Json& json, std::vector<Modifier>& out) {
  const Json::Array* list = array(json, {limits_.modifiers});
  if (list == nullptr) return false;
  out.resize(list->size());
  for (std::size_t i = 0; i < list->size(); ++i) {
    if (!readModifier((*list)[i], out[i])) return at(i);
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

bool TreeReader::read(const Json& json, std::string& out, ContainerPath) {
  if (!read(json, out)) return false;
  return staysBelow(out) || fail("expected a path below the container");
}

bool TreeReader::read(const Json& json, Alignment& out) {
  const std::string_view* name = json.string();
  const auto alignment = name == nullptr ? std::nullopt : namedAlignment(*name);
  if (!alignment) return fail("expected an alignment");
  out = *alignment;
  return true;
}

std::expected<View, std::string> readView(const foundation::JsonValue& json,
                                          const TreeLimits& limits) {
  TreeReader reader(limits);
  View view;
  if (!reader.read(json, view)) return std::unexpected(reader.failure());
  return view;
}

}  // namespace viewkit
