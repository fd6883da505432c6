#pragma once

#include "persistence/qor_object.h"
#include "platform/ado.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
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

/// Where the columns of values, and others of their records, stand among the fields of recordsets of one
/// layout.
class ColumnIndexes {
  public:
    static constexpr std::int32_t None = -1;  ///< the value has no place in the records

    /// The indexes for these values, and behind them those of these columns, always the same ones; empty
    /// where a recordset does not tell, or lacks a column.
    const std::vector<std::int32_t>& In(ado::Recordset& records, const std::vector<PlainValue>& values,
                                        std::span<const std::string_view> columns);

  private:
    std::shared_ptr<const void> m_layout;
    std::vector<std::int32_t> m_indexes;
};

/// What a definition says of its values, in one walk over them.
struct DefinitionReading {
    static constexpr std::size_t NoPosition = static_cast<std::size_t>(-1);

    /// The last of `values` that stands in a column; NoPosition for "" and where there is none.
    std::size_t PositionOf(std::string_view column) const;

    std::vector<PlainValue> values;        ///< in the order of the definition
    std::vector<std::string> childNames;   ///< of the child objects among the values, in the same order
    std::string keyColumn;                 ///< the own key; "" when no key entry names a plain value
    std::size_t keyPosition = NoPosition;  ///< of its value among `values`
    mutable ColumnIndexes indexes;         ///< of `values`, and of the state of their object
};

DefinitionReading ReadDefinition(QORObject& definition);

/// The readings of one call of a host: a tree's objects share few definitions, which are read once each
/// instead of once for each object. Those that count their revisions are not even read for each call.
class DefinitionReadings {
  public:
    using Reading = std::shared_ptr<const DefinitionReading>;

    /// The reading of a definition, made at the first look.
    Reading Of(const QORObject::Ref& definition);
    /// The call ends.
    void Forget();

  private:
    struct Entry {
        QORObject::Ref definition;         ///< in a call, so that no other one takes its place in memory
        std::weak_ptr<QORObject> between;  ///< the same
        std::uint64_t revision = 0;
        Reading reading;
    };
    Entry& EntryOf(const QORObject::Ref& definition);

    std::unordered_map<const QORObject*, Entry> m_readings;
    const Entry* m_latest = nullptr;  ///< many objects in a row share a definition
};

}  // namespace korvex::persistence
