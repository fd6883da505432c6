#pragma once

#include "objects/definition.h"
#include "platform/ado.h"

#include <set>
#include <string>
#include <vector>

namespace korvex::tests {

/// The tables of a definition and of everything beneath it, in the words of engine_words.h. Texts are
/// varchar(20), those whose name ends in "Text" are long.
class TargetTables {
  public:
    explicit TargetTables(objects::Definition& root) { Add(root); }

    const std::vector<std::string>& Names() const noexcept { return m_names; }
    const std::vector<std::string>& Statements() const noexcept { return m_statements; }

  private:
    static std::string TypeOf(const objects::ValueInfo& info) {
        using automation::VarType;
        switch (static_cast<VarType>(info.dataType)) {
            case VarType::Integer:
                return "smallint";
            case VarType::Long:
                return "int";
            case VarType::Single:
                return "real";
            case VarType::Double:
            case VarType::Currency:
                return "float";
            case VarType::Date:
                return "datetime";
            case VarType::Boolean:
                return "bit";
            case VarType::Object:
            case VarType::Variant:
                return "image";
            default:
                return info.name.ends_with("Text") ? "text" : "varchar(20)";
        }
    }

    /// Statements compose the names of keys as they stand.
    static std::string QuotedColumn(const objects::ValueInfo& info) {
        return info.column.starts_with("FK_") ? info.column : "[" + info.column + "]";
    }

    void Add(objects::Definition& definition) {
        const std::string table = definition.StringAttribute(attTableName);
        if (m_known.insert(table).second) {
            std::string columns;
            for (const auto& value : definition.Values()) {
                const auto& info = value->Info();
                if (value->Child() != nullptr || info.column.empty()) continue;
                columns += info.isAutoNumber ? info.column + " integer primary key, "
                                             : QuotedColumn(info) + " " + TypeOf(info) + ", ";
            }
            const bool isCollection = definition.ElementDefinition() != nullptr;
            columns += isCollection ? "QORSelectedItem int, QORCounterHolder int"
                                    : "QORSelectState int, QORCounter int";
            m_statements.push_back("create table " + table + " (" + columns + ")");
            m_names.push_back(table);
        }
        for (const auto& value : definition.Values())
            if (value->Child() != nullptr) Add(*value->Child());
        if (definition.ElementDefinition() != nullptr) Add(*definition.ElementDefinition());
    }

    std::set<std::string> m_known;
    std::vector<std::string> m_names;
    std::vector<std::string> m_statements;
};

}  // namespace korvex::tests
