#pragma once

#include <cstdint>
#include <string_view>

namespace korvex::native::sql {

/// The kinds of call that reach a database engine.
enum class CallKind : std::uint8_t {
    Connect,
    Prepare,  ///< a statement text that the cache did not hold
    Execute,  ///< starts a statement: an action runs, a query becomes ready to give rows
    Fetch,    ///< one further row
    Begin,
    Commit,
    Rollback,
};

/// One call, as it is about to be made.
struct EngineCall {
    CallKind kind;
    /// The statement as the layer above composed it, or the connection string.
    std::string_view text;
    /// For Execute: the statement writes.
    bool writes = false;
};

/// The one point that every engine call passes. Tests record the calls here, or raise an EngineError in place
/// of the engine.
class Seam {
  public:
    virtual ~Seam() = default;
    virtual void BeforeCall(const EngineCall& call) = 0;
    /// A prepared statement went into use, or was reset and given back. The two balance when nothing is left
    /// open.
    virtual void StatementOpened() {}
    virtual void StatementClosed() noexcept {}
};

}  // namespace korvex::native::sql
