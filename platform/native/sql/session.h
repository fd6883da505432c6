#pragma once

#include "platform/native/sql/engine_error.h"
#include "platform/native/sql/seam.h"
#include "platform/native/sql/statement.h"
#include "platform/native/sql/statement_cache.h"
#include "platform/native/sql/statement_text.h"
#include "platform/native/sql/traits.h"
#include "platform/native/sql/write_plan.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace korvex::native::sql {

class Session;

/// A prepared statement on loan from its session. Goes back reset, whatever happened. Not to be used behind
/// the session's end.
class StatementLease {
  public:
    StatementLease() = default;
    StatementLease(StatementLease&& other) noexcept { Swap(other); }
    StatementLease& operator=(StatementLease&& other) noexcept {
        StatementLease(std::move(other)).Swap(*this);
        return *this;
    }
    ~StatementLease() { Return(); }

    explicit operator bool() const noexcept { return m_statement != nullptr; }
    Statement& operator*() const noexcept { return *m_statement; }
    Statement* operator->() const noexcept { return m_statement.get(); }
    bool IsWholeTable() const noexcept { return m_wholeTable; }

    /// Executes. What writes, or gives no rows, makes the session's cursors take their rows first. `text` is
    /// the statement as the caller composed it.
    void Execute(std::string_view text);
    bool Fetch(std::string_view text);
    void Return() noexcept;

  private:
    friend class Session;
    void Swap(StatementLease& other) noexcept;

    Session* m_session = nullptr;
    StatementCache::Bucket* m_bucket = nullptr;
    std::unique_ptr<Statement> m_statement;
    std::vector<automation::Variant> m_literals;  ///< bound to the statement, which does not copy them
    StatementVerb m_kind = StatementVerb::Other;
    bool m_wholeTable = false;
    std::uint64_t m_generation = 0;
    bool m_failed = false;
};

/// A cursor as its session sees it.
class SessionCursor {
  public:
    SessionCursor() = default;
    SessionCursor(const SessionCursor&) = delete;
    SessionCursor& operator=(const SessionCursor&) = delete;

  protected:
    ~SessionCursor() = default;

  private:
    friend class Session;
    /// Takes the rows not read yet into memory and lets the statement go. Never raises: a cursor that fails
    /// here raises when it is read.
    virtual void TakeRows() noexcept = 0;
    /// The session ends: lets everything go.
    virtual void SessionClosing() noexcept = 0;

    SessionCursor* m_previous = nullptr;
    SessionCursor* m_next = nullptr;
    bool m_streaming = false;
};

/// An open connection to a database engine, with its statement cache. Used by one thread at a time. Every
/// call to the engine passes the seam; failures are EngineErrors. Cursors that are open when it ends are
/// closed.
class Session {
  public:
    /// `traits` are those of the driver, which outlive the session and may be filled in later.
    Session(std::shared_ptr<Seam> seam, EngineTraits& traits) : m_traits(traits), m_seam(std::move(seam)) {}
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    virtual ~Session();

    const EngineTraits& Traits() const noexcept { return m_traits; }
    /// From now on a backslash in a statement's texts is a letter, as in every engine but some.
    void TakeBackslashesPlainly() noexcept { m_traits.lexical.plainBackslashes = true; }

    /// A statement as hosts compose it: repaired, its literals lifted out and bound, from the cache when it
    /// was there before. `values` are for placeholders of its own. SecondStatement and TooFewParameters are
    /// refused.
    StatementLease Prepare(std::string_view composed, std::span<const automation::Variant> values = {});
    /// A text of our own, with "?" for the values that the caller binds.
    StatementLease PrepareExact(std::string_view text, StatementVerb kind) {
        return Obtain(text, text, kind);
    }
    /// Runs one statement and gives the rows it touched; rows that it gives are dropped.
    std::int64_t Execute(std::string_view composed);

    void Begin();
    void Commit();
    void Rollback();
    virtual bool InTransaction() const noexcept = 0;
    /// The number the engine gave to the row inserted last (NewKeySource::LastRowId).
    virtual std::int64_t LastRowId() const noexcept { return 0; }

    /// How rows of that shape are written; kept as long as the definitions. NotUpdatable when they cannot be.
    std::shared_ptr<const WritePlan> PlanFor(const std::shared_ptr<const RowShape>& shape);
    /// A base table's columns and key, looked up once and kept until a definition statement runs; `shown` are
    /// columns of it.
    std::shared_ptr<const TableInfo> Table(const TableName& name, const RowShape& shown);

    /// Makes every half-read cursor take its remaining rows; called before anything that writes or ends a
    /// transaction.
    void BeforeWrite() noexcept;
    /// Forgets prepared statements and tables, after a definition changed.
    void DefinitionsChanged() noexcept;

    /// The check point: what every call to the engine passes before it is made.
    void Check(CallKind kind, std::string_view text, bool writes = false) {
        if (m_seam) m_seam->BeforeCall({kind, text, writes});
    }

    /// Room for a row, from cursor to cursor.
    void LendRow(KeptRow& row) noexcept {
        if (!row.IsReusable()) row.Swap(m_spareRow);
    }
    void GiveRow(KeptRow& row) noexcept {
        row.Clear();
        if (row.IsReusable()) row.Swap(m_spareRow);
    }

    /// A cursor makes itself known, says when it begins and ends to hold a half-read statement, and goes.
    void Attach(SessionCursor& cursor) noexcept;
    void SetStreaming(SessionCursor& cursor, bool streaming) noexcept;
    void Detach(SessionCursor& cursor) noexcept;

  protected:
    virtual std::unique_ptr<Statement> DoPrepare(std::string_view text, StatementVerb kind) = 0;
    virtual void DoBegin() = 0;
    virtual void DoCommit() = 0;
    virtual void DoRollback() = 0;
    /// `shown` may hold the table's columns, which then need not be asked for.
    virtual TableInfo DoDescribeTable(const TableName& name, const RowShape& shown) = 0;
    /// The tables and views that a statement can name.
    virtual std::vector<std::string> DoListTables() = 0;
    /// Drops what the driver itself keeps of tables and columns.
    virtual void DoForgetDefinitions() noexcept {}
    /// Ends cursors and idle statements; the driver calls it before it closes its connection.
    void CloseAll() noexcept;

    EngineTraits& m_traits;

  private:
    friend class StatementLease;
    /// Raises a failure anew; where a table is missing, it says which one is near.
    [[noreturn]] void RaiseNamingNear(const EngineError& error);
    StatementText& Scan(std::string_view composed);
    StatementLease Obtain(std::string_view text, std::string_view composed, StatementVerb kind);

    std::shared_ptr<Seam> m_seam;
    StatementCache m_cache;
    std::uint64_t m_generation = 0;        ///< rises when definitions change
    bool m_isLost = false;                 ///< a statement found the connection gone
    std::array<StatementText, 4> m_scans;  ///< of statements that come again and again in turn
    std::size_t m_nextScan = 0;
    std::vector<automation::Variant> m_spareLiterals;  ///< room for those of the next lease
    KeptRow m_spareRow;
    std::map<std::string, std::shared_ptr<const TableInfo>, std::less<>> m_tables;
    std::unordered_map<std::shared_ptr<const RowShape>, std::shared_ptr<const WritePlan>> m_plans;
    SessionCursor* m_cursors = nullptr;  ///< made last in front
    std::size_t m_streaming = 0;         ///< how many of them hold a half-read statement
};

}  // namespace korvex::native::sql
