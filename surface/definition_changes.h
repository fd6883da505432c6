#pragma once

#include "repository/catalog.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace korvex {

/// One difference between two states of a definition.
struct DefinitionChange {
    /// What becomes of stored values: "safe" (nothing is lost), "lossy" (those that do not fit are rounded,
    /// or hinder it), "destructive" (they go) or "blocked" (no statement of the engine carries them over).
    std::string Class;
    std::string Text;  ///< for people: "tOrder.Total: real in place of decimal(19,4) (digits may be rounded)"
};

/// What differs between two states of a definition on one engine, and the script from one to the other. What
/// keeps its identity and changes its name was renamed; docs/change.md says what that is. For C++ hosts only.
class DefinitionChanges {
  public:
    /// Table or column, before and now: "tOrder" and "tPurchase", or "tOrder.Total" and "tOrder.Sum".
    using Rename = std::pair<std::string, std::string>;

    /// Compares. Errors of clsCreateDb::CreateRelationship reach the caller; InvalidProcedureCall (5) for a
    /// default that is no value of its column.
    /// @param sDialect "sqlite", "mariadb", "postgresql", "mssql" or "oracle"; InvalidProcedureCall (5) for
    /// any
    ///     other
    /// @param before the repository of the old state
    /// @param now the repository of the new state; neither is kept
    /// @param storageName the definition; "" for all definitions, as one run
    /// @param sFKPrefix the prefix of foreign-key columns
    /// @param renames what keeps its values under another name without its identity telling so;
    ///     InvalidProcedureCall (5) for one that cannot be
    DefinitionChanges(const std::string& sDialect, const repository::Catalog& before,
                      const repository::Catalog& now, const std::string& storageName = {},
                      const std::string& sFKPrefix = "FK_", const std::vector<Rename>& renames = {});
    ~DefinitionChanges();
    DefinitionChanges(const DefinitionChanges&) = delete;
    DefinitionChanges& operator=(const DefinitionChanges&) = delete;

    /// The differences.
    /// @return table by table in their new order; none when the states make the same tables
    const std::vector<DefinitionChange>& Changes() const noexcept;

    /// The script that brings a database from the old state to the new one, with CR LF line ends.
    /// @param allowsLoss whether statements of lossy and destructive changes are run; else they stand in it
    /// as
    ///     comments, with the reason
    /// @return "" where nothing changes
    std::string Script(bool allowsLoss = false) const;

  private:
    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

}  // namespace korvex
