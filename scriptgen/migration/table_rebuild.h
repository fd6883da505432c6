#pragma once

#include "platform/ado.h"
#include "scriptgen/table_model.h"

#include <string>
#include <string_view>
#include <vector>

/// Tables of the embedded engine, which cannot add references to a table that is there nor take them away.
namespace korvex::scriptgen {

/// While this lives references are not kept, so that a table can go that others refer to, and at its end
/// others' triggers are looked at again. Made before a transaction: inside one the engine does not switch.
class ReferencesOff {
  public:
    explicit ReferencesOff(ado::Connection& connection);
    ReferencesOff(const ReferencesOff&) = delete;
    ReferencesOff& operator=(const ReferencesOff&) = delete;
    ~ReferencesOff();

    /// Makes sure that no record refers to one that is not there (DbEConstraint).
    void CheckReferences();

  private:
    ado::Connection& m_connection;
    bool m_wereOn;
};

/// The statements that make a table anew as it is described: `columns` get `values` of its records, and the
/// counter goes on where it was, which may be past them. It is made under another name first, so that
/// nobody's references follow. Its indexes and triggers go.
std::vector<std::string> RebuildStatements(const DescribedTable& table, std::string_view columns,
                                           std::string_view values);

/// Makes a table anew as it is described, with its records, counter and what else depends on it. Its columns
/// stay as they are; 0 in a column that refers to another table becomes Null. References must be off and a
/// transaction open. Engine errors reach the caller.
void RebuildTable(ado::Connection& connection, const DescribedTable& table);

}  // namespace korvex::scriptgen
