#include "hosts/cli/model/model_pull.h"

#include "automation/text.h"
#include "hosts/cli/model/data_types.h"
#include "repository/names.h"

#include <algorithm>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <utility>

namespace korvex::cli {

namespace {

using automation::ContainsIgnoreCase;
using automation::EqualsIgnoreCase;
using scriptgen::Column;
using scriptgen::DescribedTable;

constexpr std::string_view KeyEnd = "ID";
const std::string LongTextLength = std::to_string(scriptgen::LongestVarchar + 1);

/// The data types for column types that no value gets, by parts of their names; the first that fits.
struct NearType {
    std::int32_t code;
    std::vector<std::string_view> parts;
};
const NearType NearTypes[] = {{TypeString, {"char", "text", "clob"}},   {TypeLong, {"int", "serial"}},
                              {TypeBoolean, {"bool", "bit"}},           {6, {"dec", "num", "money"}},
                              {5, {"real", "float", "double"}},         {TypeDate, {"date", "time"}},
                              {TypeObject, {"blob", "bytea", "binary"}}};

/// The length in "varchar(30)", or nothing.
std::string LengthIn(std::string_view type) {
    const std::size_t begin = type.find('(');
    if (begin == std::string_view::npos) return {};
    const std::size_t end = std::min(type.find_first_not_of("0123456789", begin + 1), type.size());
    return std::string(type.substr(begin + 1, end - begin - 1));
}

/// The text of a literal between quotes, with whatever type stands behind it.
std::optional<std::string> QuotedText(std::string_view literal) {
    std::string text;
    for (std::size_t i = 1; i < literal.size(); ++i) {
        if (literal[i] != '\'') {
            text += literal[i];
        } else if (literal.substr(i + 1).starts_with('\'')) {
            text += literal[i++];
        } else {
            const bool isWhole = i + 1 == literal.size() || literal.substr(i + 1).starts_with("::");
            return isWhole ? std::optional(text) : std::nullopt;
        }
    }
    return std::nullopt;
}

/// The value of a default as a catalogue writes it; "" for Null, nothing for what is no literal.
std::optional<std::string> DefaultValue(std::string_view text) {
    if (text.starts_with('(') && text.ends_with(')')) text = text.substr(1, text.size() - 2);
    if (text.empty() || EqualsIgnoreCase(text.substr(0, text.find("::")), "NULL")) return "";
    if (text.starts_with('\'')) return QuotedText(text);
    if (text.starts_with("b'")) return text == "b'1'" ? "1" : "0";
    if (EqualsIgnoreCase(text, "true")) return "1";
    if (EqualsIgnoreCase(text, "false")) return "0";
    text = text.substr(0, text.find("::"));
    return NumberIn(text) ? std::optional(std::string(text)) : std::nullopt;
}

bool IsStateColumn(std::string_view name) {
    return std::ranges::any_of(
        std::initializer_list<std::string_view>{repository::SelectStateColumn, repository::CounterColumn,
                                                repository::SelectedItemColumn,
                                                repository::CounterHolderColumn},
        [&](std::string_view state) { return EqualsIgnoreCase(name, state); });
}

bool HasColumn(const DescribedTable& table, std::string_view name) {
    return std::ranges::any_of(
        table.Columns, [&](const Column& column) { return EqualsIgnoreCase(column.FieldName, name); });
}

/// The column that a run numbers its records with, or "".
std::string NumberedKey(const DescribedTable& table) {
    if (table.PrimaryKey.size() != 1) return {};
    const auto key = std::ranges::find(table.Columns, table.PrimaryKey.front(), &Column::FieldName);
    return key != table.Columns.end() && key->IsAutoNumber ? key->FieldName : "";
}

/// The name with which an object gets this table and its key; else the table's.
std::string ObjectName(const DescribedTable& table) {
    const std::string key = NumberedKey(table);
    const auto limit = static_cast<std::int16_t>(repository::DefaultFKPrefix.size());
    std::string name = table.Name.substr(std::min<std::size_t>(1, table.Name.size()));
    if (EqualsIgnoreCase(repository::TableName(name), table.Name) &&
        EqualsIgnoreCase(repository::KeyColumnName(name, limit), key)) {
        return name;
    }
    const std::string ofKey = key.size() > KeyEnd.size() ? key.substr(0, key.size() - KeyEnd.size()) : "";
    return !ofKey.empty() && repository::IsTableNameOf(table.Name, ofKey) ? ofKey : table.Name;
}

class Puller {
  public:
    Puller(std::span<const DescribedTable> tables, const scriptgen::EngineDialect& dialect)
        : m_tables(tables), m_types(TypesOf(dialect)) {}

    Model Pull() {
        m_model.objects.resize(m_tables.size());
        m_model.interfaces.resize(m_tables.size());
        m_parents.resize(m_tables.size());
        for (std::size_t i = 0; i < m_tables.size(); ++i) {
            ModelObject& object = m_model.objects[i];
            object.Name = m_model.interfaces[i].Name = ObjectName(m_tables[i]);
            object.interfaces = {i};
        }
        // A parent's columns stand before its children.
        std::vector<std::pair<std::size_t, std::size_t>> children;
        for (std::size_t i = 0; i < m_tables.size(); ++i) {
            const std::vector<std::string> references = References(i, children);
            AddColumns(i, references);
            TellRest(m_tables[i], references);
        }
        for (const auto& [parent, child] : children)
            AddChild(parent, child);
        for (std::size_t i = 0; i < m_tables.size(); ++i)
            if (m_parents[i].empty()) m_model.definitions.push_back({StorageName(i), i, {}});
        return std::move(m_model);
    }

  private:
    using Types = std::vector<std::pair<std::string, std::int32_t>>;  ///< what values get on the engine

    static Types TypesOf(const scriptgen::EngineDialect& dialect) {
        DescribedTable every;
        for (const DataTypeName& type : DataTypeNames()) {
            if (!BecomesColumn(type.code) || type.code == TypeVariant) continue;
            Column& column = every.Columns.emplace_back();
            column.DataType = type.code;
            column.MaxLength = LongTextLength;
        }
        Types types;
        const std::vector<DescribedTable> tables = dialect.Tables(std::span(&every, 1));
        for (const Column& column : tables.front().Columns)
            types.emplace_back(column.TypeSize, column.DataType);
        return types;
    }

    void Tell(const DescribedTable& table, const std::string& column, const std::string& what) {
        m_model.leftOut.push_back(table.Name + (column.empty() ? "" : "." + column) + what);
    }

    /// The columns by which an object knows its parents; adds these and it to `children`.
    std::vector<std::string> References(std::size_t child,
                                        std::vector<std::pair<std::size_t, std::size_t>>& children) {
        std::vector<std::string> columns;
        for (const scriptgen::ForeignKey& key : m_tables[child].ForeignKeys) {
            const auto target = std::ranges::find_if(m_tables, [&](const DescribedTable& table) {
                return EqualsIgnoreCase(table.Name, key.Table);
            });
            const auto parent = static_cast<std::size_t>(target - m_tables.begin());
            if (target == m_tables.end() || IsAncestor(child, parent)) {
                Tell(m_tables[child], key.FieldName,
                     " refers to " + key.Table +
                         (target == m_tables.end() ? ", which is not there"
                                                   : ", and would make it its own ancestor") +
                         ": it becomes a plain value");
                continue;
            }
            columns.push_back(key.FieldName);
            m_parents[child].push_back(parent);
            children.emplace_back(parent, child);
        }
        return columns;
    }

    bool IsAncestor(std::size_t object, std::size_t of) const {
        std::vector<bool> isSeen(m_tables.size());
        std::vector<std::size_t> waiting = {of};
        while (!waiting.empty()) {
            const std::size_t next = waiting.back();
            waiting.pop_back();
            if (next == object) return true;
            if (isSeen[next]) continue;
            isSeen[next] = true;
            waiting.insert(waiting.end(), m_parents[next].begin(), m_parents[next].end());
        }
        return false;
    }

    void AddColumns(std::size_t object, const std::vector<std::string>& references) {
        const DescribedTable& table = m_tables[object];
        const std::string key = NumberedKey(table);
        for (const Column& column : table.Columns) {
            const bool isReference = std::ranges::find(references, column.FieldName) != references.end();
            if (isReference || IsStateColumn(column.FieldName) || column.FieldName == key) continue;
            ModelValue& value = m_model.interfaces[object].values.emplace_back();
            value.Name = column.FieldName;
            value.IsAutoNumber = column.IsAutoNumber;
            SetType(value, table, column);
            SetDefault(value, table, column);
        }
    }

    void SetType(ModelValue& value, const DescribedTable& table, const Column& column) {
        const std::string length = LengthIn(column.TypeSize);
        const auto known = std::ranges::find_if(
            m_types, [&](const auto& type) { return EqualsIgnoreCase(type.first, column.TypeSize); });
        value.DataType = TypeString;
        if (known != m_types.end()) {
            value.DataType = known->second;
            if (value.DataType != TypeString) return;
            value.MaxLength = LongTextLength;
            return Tell(table, column.FieldName,
                        " does not tell the length of its texts, " + LongTextLength + " stands for it");
        }
        value.MaxLength = length.empty() ? LongTextLength : length;
        if (EqualsIgnoreCase(column.TypeSize, "varchar(" + length + ")")) return;
        const auto* near = std::ranges::find_if(NearTypes, [&](const NearType& type) {
            return std::ranges::any_of(
                type.parts, [&](std::string_view part) { return ContainsIgnoreCase(column.TypeSize, part); });
        });
        if (near != std::end(NearTypes)) value.DataType = near->code;
        if (value.DataType != TypeString) value.MaxLength = "0";
        Tell(table, column.FieldName,
             " is " + (column.TypeSize.empty() ? "of no type" : column.TypeSize) + ", taken for " +
                 std::string(DataTypeText(value.DataType)));
    }

    void SetDefault(ModelValue& value, const DescribedTable& table, const Column& column) {
        if (column.IsAutoNumber) return;
        const std::optional<std::string> text = DefaultValue(column.DefaultVal);
        if (!text)
            return Tell(table, column.FieldName,
                        " has the default " + column.DefaultVal + ", which is no value");
        const bool isNothing = value.DataType != TypeString && NumberIn(*text) == 0.0;
        if (!isNothing) value.DefaultVal = *text;
    }

    void TellRest(const DescribedTable& table, const std::vector<std::string>& references) {
        for (const scriptgen::TableIndex& index : table.Indexes) {
            const bool isOfReference =
                index.Columns.size() == 1 &&
                std::ranges::find(references, index.Columns.front()) != references.end();
            if (!isOfReference) Tell(table, "", " has the index " + index.Name + ", which no model can say");
        }
        for (const std::string& trigger : table.Triggers)
            if (!ContainsIgnoreCase(trigger, table.Name + "_"))
                Tell(table, "", " has the trigger " + trigger + ", which no model can say");
    }

    /// The first table that refers to a collection holds its elements.
    void AddChild(std::size_t parent, std::size_t child) {
        ModelObject& object = m_model.objects[parent];
        if (!object.element && HasColumn(m_tables[parent], repository::CounterHolderColumn)) {
            object.element = child;
            return;
        }
        std::vector<ModelValue>& values = m_model.interfaces[parent].values;
        const std::string& name = m_model.objects[child].Name;
        const auto isTaken = [&](const std::string& text) {
            return std::ranges::any_of(
                values, [&](const ModelValue& value) { return EqualsIgnoreCase(value.Name, text); });
        };
        ModelValue value;
        value.Name = name;
        for (int number = 2; isTaken(value.Name); ++number)
            value.Name = name + std::to_string(number);
        value.DataType = TypeObject;
        value.child = child;
        values.push_back(std::move(value));
    }

    /// Objects may have one name, definitions may not.
    std::string StorageName(std::size_t object) const {
        const std::string& name = m_model.objects[object].Name;
        const bool isTaken = std::ranges::any_of(m_model.definitions,
                                                 [&](const auto& other) { return other.storage == name; });
        return isTaken ? m_tables[object].Name : name;
    }

    std::span<const DescribedTable> m_tables;
    Types m_types;
    std::vector<std::vector<std::size_t>> m_parents;
    Model m_model;
};

}  // namespace

Model PullModel(std::span<const DescribedTable> tables, const scriptgen::EngineDialect& dialect) {
    return Puller(tables, dialect).Pull();
}

}  // namespace korvex::cli
