#include "repository/private_copy.h"

#include "repository/relationship_builder.h"
#include "repository/whole_tables.h"

namespace korvex::repository {

Repository PrivateRelatedCopy(Repository& source, std::string_view storageName, std::string_view sFKPrefix) {
    Repository copy = source.NewPrivate();
    CreateSchema(copy.Open(), SchemaEngine::Private);
    AddRows(copy.Open(), ReadAll(source.Open()));
    CreateRelationship(copy, storageName, sFKPrefix);
    return copy;
}

}  // namespace korvex::repository
