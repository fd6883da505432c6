#include "repository/private_copy.h"

#include "repository/relationship_builder.h"
#include "repository/schema.h"
#include "repository/transaction.h"

#include <string>
#include <utility>
#include <vector>

namespace korvex::repository {

namespace {

/// A field of the source beside that of the copy.
using FieldPair = std::pair<dao::Field*, dao::Field*>;

void CopyRows(dao::Database& source, dao::Database& copy, const SchemaTable& table) {
    const std::string sql = "select * from " + std::string(table.name);
    const auto from = source.OpenRecordset(sql, dao::dbOpenSnapshot);
    const auto to = copy.OpenRecordset(sql, dao::dbOpenDynaset);
    std::vector<FieldPair> fields;
    for (const SchemaColumn& column : table.columns)
        fields.emplace_back(&from->Fields(column.name), &to->Fields(column.name));
    for (; !from->Eof(); from->MoveNext()) {
        to->AddNew();
        for (const auto& [value, field] : fields)
            field->Value(value->Value());
        to->Update();
    }
    from->Close();
    to->Close();
}

}  // namespace

Repository PrivateRelatedCopy(Repository& source, std::string_view storageName, std::string_view sFKPrefix) {
    Repository copy = source.NewPrivate();
    CreateSchema(copy.Open(), SchemaEngine::Private);
    {
        Transaction transaction(copy);
        for (const SchemaTable& table : SchemaTables())
            CopyRows(source.Open(), copy.Open(), table);
        transaction.Commit();
    }
    CreateRelationship(copy, storageName, sFKPrefix);
    return copy;
}

}  // namespace korvex::repository
