#pragma once

#include "persistence/crud_state.h"

/// Names that a definition gives to its table and key columns. Each resets LastResult.
namespace korvex::persistence {

/// Table of a definition; "" with dbTableNotIncluded for one that is not stored.
std::string GetTableName(CrudState& session, const QORObject::Ref& coDataDef);

/// Column of the last primary-key entry that names the column of a plain value; "" when none does. Names
/// compare exactly.
std::string GetPrimaryKeyFieldName(CrudState& session, const QORObject::Ref& coDataDef);

/// Column of the first foreign-key entry; "" when there is none.
std::string GetForeignKeyFieldName(CrudState& session, const QORObject::Ref& coDataDef);

}  // namespace korvex::persistence
