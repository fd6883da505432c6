#pragma once

#include "persistence/qor_object.h"
#include "platform/ado.h"

/// State that data objects carry beside their values, in four fixed columns of their records: selected item
/// and counter holder on collection-kind objects, select state and counter on all others. Errors (a missing
/// column, a value that does not fit) reach the caller.
namespace korvex::persistence {

/// Record to data object; a Null or Empty column leaves the object's state as it is.
void LoadCollectionItemState(QORObject& coData, ado::Recordset& records);
void LoadObjectState(QORObject& coData, ado::Recordset& records);
/// Data object to the record being added.
void SaveCollectionItemState(QORObject& coData, ado::Recordset& records);
void SaveObjectState(QORObject& coData, ado::Recordset& records);

/// Sets those columns of an existing record whose stored value differs; True when one did.
bool UpdateState(QORObject& coData, ado::Recordset& records, bool isCollection);

}  // namespace korvex::persistence
