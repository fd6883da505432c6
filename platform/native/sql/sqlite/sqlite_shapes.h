#pragma once

#include "platform/native/sql/column.h"

#include <sqlite3.h>

#include <cstddef>
#include <memory>
#include <unordered_map>

namespace korvex::native::sql {

/// The shapes of a connection's results. Statements that give the same columns share one shape, and with it
/// all that is kept per shape; a text with a literal of its own is not described anew. Kept until a
/// definition changes.
class SqliteShapes {
  public:
    /// The columns that a prepared statement gives.
    std::shared_ptr<const RowShape> Describe(sqlite3_stmt* statement);
    void Forget() noexcept { m_shapes.clear(); }

  private:
    std::unordered_map<std::size_t, std::shared_ptr<const RowShape>> m_shapes;  ///< by fingerprint
};

}  // namespace korvex::native::sql
