#pragma once

#include "platform/native/sql/kept_row.h"
#include "platform/native/sql/session.h"

#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvex::native::sql {

/// The rows that a statement gives, forward only.
///
/// They stand on the first one when they were made, so that what fails there fails where it is opened, unless
/// they wait: then they are prepared and described, and executed at the first look at a row. Rows are
/// streamed from the statement; before anything is written on the session, those not read yet are taken into
/// memory. The statement goes back as soon as the last row was read, at once where there is no second one, so
/// that it holds no lock. A later row that cannot be read fails when it is come to.
class StatementRows final : private SessionCursor {
  public:
    /// `waits`: a whole table waits for the first look at a row. `values` are for the placeholders.
    StatementRows(Session& session, std::string_view composed, bool waits,
                  std::span<const automation::Variant> values = {});
    ~StatementRows() { Close(); }

    bool IsOpen() const noexcept { return m_session != nullptr; }
    /// Lets everything go. Rows whose session ended are closed.
    void Close() noexcept;

    const std::string& Text() const noexcept { return m_text; }
    /// The columns; none for a statement that gives no rows. Once asked for, the rows keep to them.
    const std::shared_ptr<const RowShape>& Shape() {
        if (!m_shape) m_shape = m_statement->Shape();
        return m_shape;
    }
    bool HasColumns() const noexcept { return m_hasColumns; }
    /// What a statement without rows has touched.
    std::int64_t AffectedRows() const noexcept { return m_affectedRows; }

    /// Goes to the first row, if none was looked at yet. `isLeftOut` tells the rows to be passed over.
    void Start(std::function<bool(const Row&)> isLeftOut = nullptr);
    bool IsStarted() const noexcept { return m_stand != Stand::Before; }
    bool HasRow() const noexcept { return m_stand == Stand::Live || m_stand == Stand::Kept; }
    /// To the next row; false behind the last one.
    bool Next();
    void MoveLast();
    /// Raises what ended the rows, if it was a failure.
    void RaiseFailure() const {
        if (m_failure) std::rethrow_exception(m_failure);
    }

    automation::Variant Value(std::size_t column) const {
        return m_stand == Stand::Live ? m_statement->Value(column) : m_row.Value(column, *m_shape);
    }
    /// All values of the current row, in memory. A caller may put others in their place.
    Row& Values();

  private:
    enum class Stand : std::uint8_t {
        Before,
        Live,  ///< on the statement's current row
        Kept,  ///< on m_row
        End,
    };

    void TakeRows() noexcept override;
    void SessionClosing() noexcept override { Close(); }

    void StandOnFirst();
    void AdoptShape();
    bool Fetch();
    void Keep();
    void Release() noexcept;

    Session* m_session;
    std::string m_text;
    StatementLease m_statement;
    std::shared_ptr<const RowShape> m_shape;  ///< as it was shown; null before
    std::int64_t m_affectedRows = 0;
    Stand m_stand = Stand::Before;
    bool m_hasColumns = false;
    bool m_isExecuted = false;
    bool m_isAhead = false;  ///< the statement stands on the row behind the current one
    KeptRow m_row;
    /// Rows taken from the statement: those from m_nextRest on stand behind the current one.
    std::vector<KeptRow> m_rest;
    std::size_t m_nextRest = 0;
    std::function<bool(const Row&)> m_isLeftOut;
    std::exception_ptr m_failure;  ///< raised when the rows before it were read
};

}  // namespace korvex::native::sql
