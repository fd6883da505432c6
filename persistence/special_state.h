#pragma once

#include "persistence/qor_object.h"
#include "platform/ado.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

/// State that data objects carry beside their values, in four fixed columns of their records: selected item
/// and counter holder on collection-kind objects, select state and counter on all others. Errors (a missing
/// column, a value that does not fit) reach the caller.
namespace korvex::persistence {

/// The two columns of an object's state.
std::array<std::string_view, 2> StateColumns(bool isCollection);

/// Record to data object; a Null or Empty column leaves the object's state as it is. `indexes` are those of
/// StateColumns among the fields; without them the columns are looked for by name.
void LoadState(QORObject& coData, ado::Recordset& records, bool isCollection,
               std::span<const std::int32_t> indexes = {});
/// Data object to the record being added.
void SaveState(QORObject& coData, ado::Recordset& records, bool isCollection);

/// Sets those columns of an existing record whose stored value differs; True when one did.
bool UpdateState(QORObject& coData, ado::Recordset& records, bool isCollection);

}  // namespace korvex::persistence
