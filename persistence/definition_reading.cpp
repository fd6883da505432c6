#include "persistence/definition_reading.h"

#include "automation/error.h"
#include "persistence/definition_walk.h"

#include <algorithm>
#include <utility>

namespace korvex::persistence {

namespace {

/// Hosts may hand out a new definition object at each look.
constexpr std::size_t ReadingLimit = 64;
constexpr std::size_t UsualValues = 16;

PlainValue ReadPlainValue(QORObject& valueDef) {
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

std::size_t DefinitionReading::PositionOf(std::string_view column) const {
    if (column == keyColumn) return keyPosition;
    std::size_t position = column.empty() ? 0 : values.size();
    while (position > 0 && values[position - 1].column != column)
        --position;
    return position - 1;
}

DefinitionReading ReadDefinition(QORObject& definition) {
    DefinitionReading reading;
    reading.values.reserve(UsualValues);
    const auto values = definition.ObjectAttribute(attValues);
    ForEach(values.get(), [&](const QORObject::Ref& valueDef) {
        if (IsChild(*valueDef))
            reading.childNames.push_back(valueDef->StringAttribute(attName));
        else
            reading.values.push_back(ReadPlainValue(*valueDef));
    });
    std::string keyColumn = ReadKeyColumn(definition, reading.values);
    reading.keyPosition = reading.PositionOf(keyColumn);
    reading.keyColumn = std::move(keyColumn);
    return reading;
}

const std::vector<std::int32_t>& ColumnIndexes::In(ado::Recordset& records,
                                                   const std::vector<PlainValue>& values,
                                                   std::span<const std::string_view> columns) {
    auto layout = records.Layout();
    if (layout != nullptr && layout == m_layout) return m_indexes;
    m_indexes.clear();
    m_layout = std::move(layout);
    if (m_layout == nullptr) return m_indexes;
    try {
        for (const PlainValue& value : values)
            m_indexes.push_back(value.IsStored() ? records.FieldIndex(value.column) : None);
        for (const std::string_view column : columns)
            m_indexes.push_back(records.FieldIndex(column));
    } catch (const automation::Error&) {
        m_indexes.clear();  // what has no column is met in its turn
    }
    return m_indexes;
}

DefinitionReadings::Reading DefinitionReadings::Of(const QORObject::Ref& definition) {
    if (m_latest == nullptr || m_latest->definition != definition) m_latest = &EntryOf(definition);
    return m_latest->reading;
}

DefinitionReadings::Entry& DefinitionReadings::EntryOf(const QORObject::Ref& definition) {
    const auto known = m_readings.find(definition.get());
    if (known != m_readings.end()) {
        Entry& entry = known->second;
        if (entry.definition != nullptr) return entry;
        if (entry.between.lock() == definition && entry.revision == definition->Revision()) {
            entry.definition = definition;
            return entry;
        }
        m_readings.erase(known);
    }
    auto reading = std::make_shared<const DefinitionReading>(ReadDefinition(*definition));
    if (m_readings.size() >= ReadingLimit) {
        m_latest = nullptr;
        m_readings.clear();
    }
    const Entry entry{definition, definition, definition->Revision(), std::move(reading)};
    return m_readings.emplace(definition.get(), entry).first->second;
}

void DefinitionReadings::Forget() {
    m_latest = nullptr;
    std::erase_if(m_readings, [](const auto& item) { return item.second.revision == 0; });
    for (auto& item : m_readings)
        item.second.definition.reset();
}

}  // namespace korvex::persistence
