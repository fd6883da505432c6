#include "persistence/definition_reading.h"

#include "persistence/definition_walk.h"

#include <algorithm>
#include <utility>

namespace korvex::persistence {

namespace {

/// Hosts may hand out a new definition object at each look.
constexpr std::size_t ReadingLimit = 64;

PlainValue ReadValue(QORObject& valueDef) {
    return {.column = valueDef.StringAttribute(attFieldName),
            .index = valueDef.LongAttribute(attValueIndex),
            .isIncluded = valueDef.BooleanAttribute(attIsIncluded),
            .isAutoNumber = valueDef.BooleanAttribute(attIsAutoNumber),
            .isOptionalLink = valueDef.IsOptionalLink()};
}

/// The last key entry that names the column of a plain value decides.
std::string ReadKeyColumn(QORObject& definition, const std::vector<PlainValue>& values) {
    std::string result;
    const auto keys = definition.ObjectAttribute(attPrimaryKeys);
    ForEach(keys.get(), [&](const QORObject::Ref& key) {
        std::string column = key->StringAttribute(attName);
        if (std::ranges::find(values, column, &PlainValue::column) != values.end())
            result = std::move(column);
    });
    return result;
}

}  // namespace

DefinitionReading ReadDefinition(QORObject& definition) {
    DefinitionReading reading;
    const auto values = definition.ObjectAttribute(attValues);
    ForEach(values.get(), [&](const QORObject::Ref& valueDef) {
        if (IsChild(*valueDef))
            reading.childNames.push_back(valueDef->StringAttribute(attName));
        else
            reading.values.push_back(ReadValue(*valueDef));
    });
    reading.keyColumn = ReadKeyColumn(definition, reading.values);
    return reading;
}

DefinitionReadings::Reading DefinitionReadings::Of(const QORObject::Ref& definition) {
    if (const auto known = m_readings.find(definition.get()); known != m_readings.end())
        return known->second.reading;
    auto reading = std::make_shared<const DefinitionReading>(ReadDefinition(*definition));
    if (m_readings.size() >= ReadingLimit) m_readings.clear();
    m_readings.emplace(definition.get(), Entry{definition, reading});
    return reading;
}

}  // namespace korvex::persistence
