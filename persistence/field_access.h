#pragma once

#include "persistence/crud_state.h"

#include <string>

/// Reading and writing one column of one record, without any data object.
namespace korvex::persistence {

/// True when the value was read; an unknown column gives False and no code.
bool DbGetField(CrudState& session, const automation::Variant& lKey, const std::string& sKeyFieldName,
                const std::string& sTableName, const std::string& sFieldName,
                automation::Variant& vntFieldValue);

/// True when the column took the value; a failure of the update that follows is passed over.
bool DbSaveField(CrudState& session, const automation::Variant& lKey, const std::string& sKeyFieldName,
                 const std::string& sTableName, const std::string& sFieldName,
                 const automation::Variant& vntFieldValue);

}  // namespace korvex::persistence
