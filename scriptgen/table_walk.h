#pragma once

#include "repository/definition_rows.h"
#include "repository/object_walk.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korvex::scriptgen {

/// Meets the tables of a definition: an object's own before those of everything beneath it.
class TableVisitor : public repository::ObjectVisitor {
  public:
    explicit TableVisitor(repository::DefinitionRows& rows) : m_rows(rows) {}

    /// Walks every data definition of that storage name (all of them when it is empty). An object that is its
    /// own ancestor raises OutOfStackSpace (28).
    void WalkStorage(std::string_view storageName);

  protected:
    /// The table of an object that takes part in the scripts. False to leave out everything beneath it.
    virtual bool EnterTable(repository::ObjectId lObjectID, const std::string& table) = 0;

    repository::DefinitionRows& m_rows;

  private:
    std::optional<repository::ObjectId> Enter(repository::ObjectId lObjectID) final;
};

}  // namespace korvex::scriptgen
