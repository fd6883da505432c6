#pragma once

#include "persistence/crud_state.h"

#include <string>

/// Reading: does a record exist, one column of one record, a whole object tree.
namespace korvex::persistence {

bool DbDataExists(CrudState& session, const QORObject::Ref& coData, const automation::Variant& lKey);

/// Loads the record, then the child objects and the collection elements through the public DbGetData. What
/// was loaded reads Modified False. Answers the object's own key, 0 when nothing was loaded.
std::int32_t DbGetData(CrudState& session, const QORObject::Ref& coData, const automation::Variant& lKey,
                       const std::string& sKeyFieldName);

}  // namespace korvex::persistence
