#include "scriptgen/engine_dialect.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "repository/names.h"
#include "scriptgen/column_text.h"
#include "scriptgen/script_names.h"
#include "scriptgen/script_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <functional>
#include <unordered_map>

namespace korvex::scriptgen {

std::span<const EngineDialect* const> AllEngineDialects() noexcept {
    static const EngineDialect* const all[] = {&SqliteDialect(), &MariaDbDialect(), &PostgreSqlDialect()};
    return all;
}

const EngineDialect& EngineDialectOf(std::string_view name) {
    const auto all = AllEngineDialects();
    const auto found = std::ranges::find(all, name, &EngineDialect::Name);
    if (found != all.end()) return **found;
    throw automation::Error(automation::InvalidProcedureCall,
                            "There is no dialect for the engine " + automation::Quoted(name) + ".");
}

using automation::Error;
using automation::VarType;

namespace {

/// The shortest limit of the engines is 63 bytes.
constexpr std::size_t LongestThingName = 60;

std::string Place(const DescribedTable& table, std::string_view column) {
    return table.Name + "." + std::string(column);
}

/// Eight digits; the same on every platform and in every version.
std::string Hash(std::string_view text) {
    std::uint32_t hash = 2166136261U;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    std::string digits;
    for (int shift = 28; shift >= 0; shift -= 4)
        digits += "0123456789abcdef"[(hash >> shift) & 0xFU];
    return digits;
}

/// The shortest text that gives the number again.
template <class Real>
std::string RealText(Real value) {
    std::array<char, 32> buffer{};
    const auto [end, failure] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), end};
}

/// A number that must be the one that the text says.
template <class Whole>
std::string WholeText(const std::string& text, Whole value) {
    if (automation::ParseNumber(text) != static_cast<double>(value)) throw Error(automation::TypeMismatch);
    return std::to_string(value);
}

bool HoldsBytes(const Column& column) {
    return column.DataType == TypeCode(VarType::Object) || column.DataType == TypeCode(VarType::Variant);
}

/// Whether the engine can be asked to keep the reference: its table is made with the others, and the column
/// referred to is that table's whole key.
bool CanBeKept(const ForeignKey& key, std::span<const DescribedTable> tables) {
    const auto target = std::ranges::find(tables, key.FKObjectID, &DescribedTable::ObjectID);
    return target != tables.end() && !key.KeyField.empty() && target->PrimaryKey.size() == 1 &&
           target->PrimaryKey.front() == key.KeyField;
}

/// The tables with those that refer to others before these.
std::vector<const DescribedTable*> ReferringFirst(std::span<const DescribedTable> tables) {
    std::unordered_map<repository::ObjectId, std::size_t> positions;
    for (std::size_t i = 0; i < tables.size(); ++i)
        positions.emplace(tables[i].ObjectID, i);
    std::vector<std::size_t> references(tables.size());  // to the table, from those that are not placed yet
    for (const DescribedTable& table : tables)
        for (const ForeignKey& key : table.ForeignKeys)
            if (key.IsInRun && key.FKObjectID != table.ObjectID) ++references[positions.at(key.FKObjectID)];

    std::vector<const DescribedTable*> ordered;
    std::vector<bool> isPlaced(tables.size());
    const auto place = [&](std::size_t i) {
        isPlaced[i] = true;
        ordered.push_back(&tables[i]);
    };
    for (std::size_t i = tables.size(); i-- > 0;)
        if (references[i] == 0) place(i);
    for (std::size_t next = 0; next < tables.size(); ++next) {
        if (next == ordered.size()) {  // only tables in a circle are left
            place(static_cast<std::size_t>(std::ranges::find(isPlaced, false) - isPlaced.begin()));
        }
        for (const ForeignKey& key : ordered[next]->ForeignKeys) {
            if (!key.IsInRun || key.FKObjectID == ordered[next]->ObjectID) continue;
            const std::size_t target = positions.at(key.FKObjectID);
            if (--references[target] == 0 && !isPlaced[target]) place(target);
        }
    }
    return ordered;
}

/// Whether a name can stand unquoted on every engine.
bool IsPlainName(std::string_view name) {
    return repository::IsIdentifier(name) && name.find_first_of("#$") == std::string_view::npos;
}

}  // namespace

std::string ColumnThingName(std::string_view kind, std::string_view table, std::string_view column) {
    std::string name(kind);
    Append(name, table, "_", column);
    // Where the table's name ends is plain only when it holds no underscore.
    const bool isPlain = table.find('_') == std::string_view::npos;
    if (isPlain && name.size() <= LongestThingName) return name;
    std::string both(table);
    Append(both, "/", column);
    const std::string hash = "_" + Hash(both);
    if (name.size() + hash.size() > LongestThingName) {
        name.resize(LongestThingName - hash.size());
        while ((name.back() & 0x80) != 0)
            name.pop_back();  // no part of a character stays
    }
    return name + hash;
}

std::string ScriptText(std::span<const EngineStatement> statements) {
    std::string text;
    for (const EngineStatement& statement : statements)
        Append(text, statement.text, ";\r\n");
    return text;
}

bool EngineDialect::IsNumbered(const DescribedTable& table, const Column& column) const {
    const bool isKey = table.PrimaryKey.size() == 1 && table.PrimaryKey.front() == column.FieldName;
    return column.IsAutoNumber && (isKey || !m_facts.numbersTheKeyOnly);
}

std::string EngineDialect::TypeText(const DescribedTable& table, const Column& column) const {
    const TypeNames& types = m_facts.types;
    const std::string_view name = TypeName(types, column.DataType);
    if (name != types.text) return std::string(name);
    const double length = DeclaredLength(table.Name, column);
    if (length > LongestVarchar) return std::string(types.longText);
    return std::string(name) + "(" + std::to_string(length < 1 ? 50 : static_cast<int>(length)) + ")";
}

std::vector<std::string> EngineDialect::ColumnTypes(const DescribedTable& table,
                                                    std::vector<std::string>& /*notes*/) const {
    std::vector<std::string> types;
    for (const Column& column : table.Columns)
        types.push_back(TypeText(table, column));
    return types;
}

/// The value of a column in records that give none, "" for Null.
std::string EngineDialect::Literal(const DescribedTable& table, const Column& column) const {
    const std::string& value = column.DefaultVal;
    const std::string number = value.empty() ? "0" : value;
    switch (column.DataType) {
        case TypeCode(VarType::Integer):
            return WholeText(number, automation::ToInteger(number));
        case TypeCode(VarType::Long):
            return WholeText(number, automation::ToLong(number));
        case TypeCode(VarType::Byte):
            return WholeText(number, automation::ToByte(number));
        case TypeCode(VarType::Single):
            return RealText(automation::ToSingle(number));
        case TypeCode(VarType::Double):
            return RealText(automation::ToDouble(number));
        case TypeCode(VarType::Currency):
            return automation::ToString(automation::ToCurrency(number));
        case TypeCode(VarType::Boolean):
            return std::string(automation::ToBoolean(number) ? m_facts.trueLiteral : m_facts.falseLiteral);
        case TypeCode(VarType::Date): {
            if (value.empty()) return {};
            std::string text = automation::FormatIsoDate(automation::ToDate(value));
            std::ranges::replace(text, 'T', ' ');
            return TextLiteral(text);
        }
        default:
            break;
    }
    const double length = HoldsBytes(column) ? 0 : DeclaredLength(table.Name, column);
    if (value.empty() && (HoldsBytes(column) || length > LongestVarchar)) return {};
    const double room = length < 1 ? 50 : length;
    if (HoldsBytes(column) || value.find('\0') != std::string::npos ||
        static_cast<double>(automation::Length(value)) > room) {
        throw Error(automation::TypeMismatch);
    }
    return TextLiteral(value);
}

std::string EngineDialect::DefaultLiteral(const DescribedTable& table, const Column& column) const {
    if (column.IsPrimaryKey || column.IsForeignKey || IsNumbered(table, column)) return {};
    try {
        return Literal(table, column);
    } catch (const Error& error) {
        if (error.Description().starts_with("The MaxLength")) throw;
        throw Error(automation::InvalidProcedureCall,
                    Place(table, column.FieldName) + ": the default " +
                        automation::Quoted(column.DefaultVal) +
                        " is no value that the column can hold. Change the default of the value.");
    }
}

std::string EngineDialect::ColumnType(const DescribedTable& table, const Column& column) const {
    return IsNumbered(table, column) ? NumberedColumn(table) : column.TypeSize;
}

std::string EngineDialect::ColumnText(const DescribedTable& table, const Column& column) const {
    std::string text = column.FieldName + " " + ColumnType(table, column);
    if (IsNumbered(table, column)) return text;
    if (column.IsPrimaryKey) return text + " NOT NULL";
    return text + (column.DefaultText.empty() ? " NULL" : " DEFAULT " + column.DefaultText);
}

std::string EngineDialect::TableText(const DescribedTable& table) const {
    std::string text;
    Append(text, "CREATE TABLE ", table.Name, " (");
    for (std::size_t i = 0; i < table.Columns.size(); ++i)
        Append(text, i == 0 ? "\r\n\t" : ",\r\n\t", ColumnText(table, table.Columns[i]));
    AppendConstraints(text, table);
    Append(text, "\r\n)", m_facts.tableOptions);
    return text;
}

void EngineDialect::AppendConstraints(std::string& text, const DescribedTable& table) const {
    if (table.PrimaryKey.empty()) return;
    Append(text, ",\r\n\tCONSTRAINT ", PrimaryKeyName(table.Name), " PRIMARY KEY (", Joined(table.PrimaryKey),
           ")");
}

std::string EngineDialect::ForeignKeyText(const DescribedTable& table, const ForeignKey& key) {
    std::string text;
    Append(text, "CONSTRAINT ", ColumnThingName("FK_", table.Name, key.FieldName), " FOREIGN KEY (",
           key.FieldName, ") REFERENCES ", key.Table, " (", key.KeyField, ")");
    return text;
}

/// Where none can be added they stand in their tables.
void EngineDialect::AddForeignKey(EngineScripts& scripts, const DescribedTable& table,
                                  const ForeignKey& key) const {
    if (!AltersForeignKeys()) return;
    scripts.addKeys.push_back({"ALTER TABLE " + table.Name + " ADD " + ForeignKeyText(table, key),
                               EngineThing::ForeignKey, table.Name, key.FieldName});
    std::string drop;
    Append(drop, "ALTER TABLE IF EXISTS ", table.Name, " DROP ", m_facts.droppedKey, " IF EXISTS ",
           ColumnThingName("FK_", table.Name, key.FieldName));
    scripts.dropKeys.push_back({std::move(drop), EngineThing::ForeignKey, table.Name, key.FieldName});
}

std::vector<std::string> EngineDialect::TriggerNames(const DescribedTable& table) const {
    std::vector<std::string> names;
    for (const std::string_view suffix : m_facts.triggers)
        names.push_back(table.Name + std::string(suffix));
    return names;
}

void EngineDialect::AddDropTable(EngineScripts& scripts, const DescribedTable& table) const {
    scripts.drop.push_back({"DROP TABLE IF EXISTS " + table.Name, EngineThing::Table, table.Name, ""});
}

void EngineDialect::AddTable(EngineScripts& scripts, const DescribedTable& table) const {
    scripts.create.push_back({TableText(table), EngineThing::Table, table.Name, ""});
    std::vector<std::string> columns;
    for (const TableIndex& index : table.Indexes) {
        const std::string& column = index.Columns.front();
        scripts.create.push_back({"CREATE INDEX " + index.Name + " ON " + table.Name + " (" + column + ")",
                                  EngineThing::Index, table.Name, index.Name});
        columns.push_back(column);
    }
    if (!columns.empty()) AddNoParent(scripts, table, columns);
}

std::vector<DescribedTable> EngineDialect::Resolve(std::span<const DescribedTable> tables,
                                                   std::vector<std::string>& notes) const {
    std::vector<DescribedTable> resolved(tables.begin(), tables.end());
    for (DescribedTable& table : resolved) {
        const std::vector<std::string> types = ColumnTypes(table, notes);
        for (std::size_t i = 0; i < types.size(); ++i)
            table.Columns[i].TypeSize = types[i];
        for (Column& column : table.Columns)
            column.DefaultText = DefaultLiteral(table, column);
        for (ForeignKey& key : table.ForeignKeys) {
            table.Indexes.push_back({ColumnThingName("IX_", table.Name, key.FieldName), {key.FieldName}});
            if (CanBeKept(key, tables)) continue;
            notes.push_back(Place(table, key.FieldName) + " refers to " +
                            (key.Table.empty()
                                 ? "the object with ObjectID " + std::to_string(Number(key.FKObjectID))
                                 : key.Table) +
                            (key.IsInRun ? ", but not to its key" : ", which is none of these tables") +
                            ": it gets an index, but no constraint.");
            key.IsInRun = false;
        }
        if (!table.ForeignKeys.empty()) table.Triggers = TriggerNames(table);
    }
    return resolved;
}

std::vector<DescribedTable> EngineDialect::Tables(std::span<const DescribedTable> tables) const {
    std::vector<std::string> notes;
    return Resolve(tables, notes);
}

EngineScripts EngineDialect::Write(std::span<const DescribedTable> tables) const {
    EngineScripts scripts;
    const std::vector<DescribedTable> kept = Resolve(tables, scripts.notes);
    for (const DescribedTable& table : kept) {
        AddTable(scripts, table);
        for (const ForeignKey& key : table.ForeignKeys)
            if (key.IsInRun) AddForeignKey(scripts, table, key);
    }
    for (const DescribedTable* table : ReferringFirst(kept))
        AddDropTable(scripts, *table);
    return scripts;
}

std::vector<std::string> EngineDialect::Problems(std::span<const DescribedTable> tables) const {
    std::vector<std::string> problems;
    const auto checkName = [&](const std::string& what, const std::string& name) {
        const std::string word = " " + automation::ToUpperAscii(name) + " ";
        if (!IsPlainName(name)) {
            problems.push_back(what + " is no name that can stand unquoted in " + std::string(Name()));
        } else if (m_facts.reservedWords.find(word) != std::string_view::npos) {
            problems.push_back(what + " is a reserved word of " + std::string(Name()));
        }
    };
    const auto checkCount = [&](const DescribedTable& table, std::size_t count, std::size_t limit,
                                const char* things) {
        if (count <= limit) return;
        problems.push_back("table " + table.Name + " has " + std::to_string(count) + " " + things + "; " +
                           std::string(Name()) + " takes " + std::to_string(limit) + " in a table");
    };
    for (const DescribedTable& table : tables) {
        checkName("table " + table.Name, table.Name);
        for (const Column& column : table.Columns) {
            checkName("column " + Place(table, column.FieldName), column.FieldName);
            if (column.IsAutoNumber && !IsNumbered(table, column)) {
                problems.push_back("column " + Place(table, column.FieldName) +
                                   " is numbered beside the key; " + std::string(Name()) +
                                   " numbers the key only");
            }
            try {
                static_cast<void>(DefaultLiteral(table, column));
                static_cast<void>(TypeText(table, column));
            } catch (const Error& error) {
                problems.push_back(error.Description());
            }
        }
        checkCount(table, table.Columns.size(), m_facts.limits.columns, "columns");
        checkCount(table, table.ForeignKeys.size() + 1, m_facts.limits.indexes, "keys");
    }
    return problems;
}

}  // namespace korvex::scriptgen
