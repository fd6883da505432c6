#pragma once

#include "automation/convert.h"
#include "platform/platform.h"
#include "support/error_of.h"
#include "support/temp_folder.h"

#include <memory>
#include <string>
#include <vector>

namespace korvex::tests {

/// A target database file in a folder of its own, seen past the command.
class TargetDatabase {
  public:
    const TempFolder& Folder() const { return m_folder; }
    std::string Path() const { return m_folder.Path("target.db"); }
    std::string Connection() const { return "Provider=SQLite;Data Source=" + Path(); }

    /// An open connection, apart from all others.
    std::shared_ptr<ado::Connection> Open() const {
        auto connection = DefaultPlatform().targetProvider->CreateConnection();
        connection->Open(Connection() + ";Mode=Create");
        return connection;
    }

    /// The rows of a query, their columns divided by blanks; Null is "-".
    std::vector<std::string> Query(const std::string& query) const {
        const auto rows = Open()->Execute(query);
        std::vector<std::string> lines;
        for (; !rows->Eof(); rows->MoveNext()) {
            std::string& line = lines.emplace_back();
            for (std::int32_t i = 0; i < rows->FieldCount(); ++i) {
                const automation::Variant value = rows->Fields(i)->Value();
                line += (i == 0 ? "" : " ") + (value.IsNull() ? "-" : automation::ToString(value));
            }
        }
        return lines;
    }

    /// Runs a statement; the number of its error, 0 for none.
    std::int32_t Execute(const std::string& statement) const {
        return ErrorOf([&] { Open()->Execute(statement); }).number;
    }

    /// "table.column parent.column" of every foreign key.
    std::vector<std::string> ForeignKeys() const {
        return Query(
            "select t.name || '.' || f.\"from\", f.\"table\" || '.' || f.\"to\" from sqlite_master t, "
            "pragma_foreign_key_list(t.name) f where t.type = 'table' order by 1, 2");
    }
    /// "type name" of everything there is.
    std::vector<std::string> Objects() const {
        return Query(
            "select type, name from sqlite_master where name not like 'sqlite_%' order by type, name");
    }

  private:
    TempFolder m_folder;
};

}  // namespace korvex::tests
