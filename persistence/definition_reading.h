#pragma once

#include "persistence/qor_object.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace korvex::persistence {

/// A plain value of a definition.
struct PlainValue {
    std::string column;  ///< "" for one without a column
    std::int32_t index = 0;
    bool isIncluded = false;
    bool isAutoNumber = false;
    bool isOptionalLink = false;

    /// It has a place in the records of its object.
    bool IsStored() const noexcept { return isIncluded && !column.empty(); }
};

/// What a definition says of its values, in one walk over them.
struct DefinitionReading {
    std::vector<PlainValue> values;       ///< in the order of the definition
    std::vector<std::string> childNames;  ///< of the child objects among the values, in the same order
    std::string keyColumn;                ///< the own key; "" when no key entry names a plain value
};

DefinitionReading ReadDefinition(QORObject& definition);

/// The readings of one call of a host: a tree's objects share few definitions, which are read once each
/// instead of once for each object.
class DefinitionReadings {
  public:
    using Reading = std::shared_ptr<const DefinitionReading>;

    /// The reading of a definition, made at the first look.
    Reading Of(const QORObject::Ref& definition);
    void Forget() noexcept { m_readings.clear(); }

  private:
    struct Entry {
        QORObject::Ref definition;  ///< kept, so that no other one takes its place in memory
        Reading reading;
    };
    std::unordered_map<const QORObject*, Entry> m_readings;
};

}  // namespace korvex::persistence
