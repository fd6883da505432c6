#include "platform/native/sql/statement_rows.h"

#include <algorithm>
#include <utility>

namespace korvex::native::sql {

StatementRows::StatementRows(Session& session, std::string_view composed, bool waits,
                             std::span<const automation::Variant> values)
    : m_session(&session), m_text(composed), m_statement(session.Prepare(composed, values)) {
    m_isExecuted = !waits || !m_statement.IsWholeTable();
    if (m_isExecuted) m_statement.Execute(m_text);
    m_hasColumns = !m_statement->Shape()->columns.empty();
    m_affectedRows = m_statement->AffectedRows();
    session.Attach(*this);
    if (!m_hasColumns) {
        m_stand = Stand::End;
        Release();
    } else if (m_isExecuted) {
        session.SetStreaming(*this, true);
        StandOnFirst();
    }
}

void StatementRows::StandOnFirst() {
    try {
        Start();
    } catch (...) {
        Close();
        throw;
    }
    if (m_stand != Stand::Live) return;
    try {
        Keep();
        m_isAhead = Fetch();
    } catch (...) {
        m_failure = std::current_exception();
    }
    if (!m_isAhead) Release();
}

void StatementRows::Close() noexcept {
    if (m_session == nullptr) return;
    Release();
    m_session->Detach(*this);
    m_session->GiveRow(m_row);
    m_session = nullptr;
    m_rest.clear();
    m_stand = Stand::End;
}

void StatementRows::Start(std::function<bool(const Row&)> isLeftOut) {
    if (IsStarted()) return;
    m_isLeftOut = std::move(isLeftOut);
    m_stand = Stand::End;
    try {
        if (!m_isExecuted) {
            m_statement.Execute(m_text);
            m_session->SetStreaming(*this, true);
        }
        if (Next()) AdoptShape();
    } catch (...) {
        m_stand = Stand::End;
        m_failure = std::current_exception();
        Release();
        throw;
    }
}

/// The tables may have changed since the statement was prepared.
void StatementRows::AdoptShape() {
    const std::shared_ptr<const RowShape>& given = m_statement->Shape();
    if (m_shape && m_shape != given &&
        !std::ranges::equal(m_shape->columns, given->columns, {}, &ColumnInfo::name, &ColumnInfo::name)) {
        throw EngineError(ErrorKind::Other, "The columns of the tables changed while the recordset was open");
    }
    m_shape = given;
}

bool StatementRows::Next() {
    if (m_nextRest < m_rest.size()) {
        m_row = std::move(m_rest[m_nextRest++]);
        m_stand = Stand::Kept;
        return true;
    }
    m_rest.clear();
    m_nextRest = 0;
    m_stand = Stand::End;
    RaiseFailure();
    if (!m_statement) return false;
    try {
        if (std::exchange(m_isAhead, false) || Fetch()) {
            m_stand = Stand::Live;
            return true;
        }
    } catch (...) {
        m_failure = std::current_exception();
        Release();
        throw;
    }
    Release();
    return false;
}

void StatementRows::MoveLast() {
    KeptRow last;
    do {
        Keep();
        std::swap(last, m_row);
    } while (Next());
    m_row = std::move(last);
    m_stand = Stand::Kept;
}

bool StatementRows::Fetch() {
    while (m_statement.Fetch(m_text)) {
        if (!m_isLeftOut || !m_isLeftOut(m_statement->CurrentRow())) return true;
    }
    return false;
}

Row& StatementRows::Values() {
    if (!HasRow()) throw EngineError(ErrorKind::NoCurrentRecord, "No current record");
    Keep();
    return m_row.Values(*m_shape);
}

/// Takes the current row into memory, if the statement still holds it.
void StatementRows::Keep() {
    if (m_stand != Stand::Live) return;
    m_session->LendRow(m_row);
    m_statement->Keep(m_row);
    m_stand = Stand::Kept;
}

void StatementRows::TakeRows() noexcept {
    try {
        Keep();
        while (std::exchange(m_isAhead, false) || Fetch())
            m_statement->Keep(m_rest.emplace_back());
    } catch (...) {
        m_failure = std::current_exception();
        if (m_stand == Stand::Live) m_stand = Stand::End;
    }
    Release();
}

/// The statement goes back; what it said of its columns stays.
void StatementRows::Release() noexcept {
    if (m_statement && !m_shape) m_shape = m_statement->Shape();
    m_statement.Return();
    m_session->SetStreaming(*this, false);
}

}  // namespace korvex::native::sql
