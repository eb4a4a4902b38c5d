// Application intents as far as widgets are configured by them: parameters, enumerations, entities
// and their queries.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Foundation/Names.hpp"

namespace widgetruntime {

/// A choice as a person sees it: a stable identifier (raw value or entity id) and a title.
struct IntentOption {
  std::string id;
  std::string title;

  friend bool operator==(const IntentOption&, const IntentOption&) = default;
};

/// The operations of an entity query; each reads its source anew.
struct EntityQuery {
  std::function<std::vector<IntentOption>(const std::vector<std::string>& ids)>
      entitiesForIdentifiers;
  std::function<std::vector<IntentOption>()> suggestedEntities;
  std::function<std::optional<IntentOption>()> defaultResult;
};

struct IntentParameter {
  enum class Type { enumeration, entity };
  friend constexpr auto namesOf(Type) { return foundation::names("enumeration", "entity"); }

  std::string name;      ///< "style"
  std::string title;     ///< "Style"
  std::string typeName;  ///< the type's display name
  Type type = Type::enumeration;
  std::vector<IntentOption> cases;          ///< enumerations, in the order shown
  std::optional<std::string> defaultValue;  ///< a case's raw value
  EntityQuery query;                        ///< entities
};

struct IntentDescription {
  std::string name;   ///< "SafeToSpendIntent"
  std::string title;  ///< "Choose Style"
  std::vector<IntentParameter> parameters;
};

/// Parameter name -> raw value or entity id, as a host keeps and sends them.
using IntentValues = std::map<std::string, std::string>;

}  // namespace widgetruntime
