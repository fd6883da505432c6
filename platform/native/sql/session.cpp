#include "platform/native/sql/session.h"

#include "automation/nearest_name.h"
#include "automation/text.h"

#include <algorithm>
#include <utility>

namespace korvex::native::sql {
namespace {

constexpr std::size_t PlanLimit = 256;

/// Makes a call to the engine; `isLost` is set when it finds the connection gone.
template <class Call>
auto NotingLoss(bool& isLost, Call&& call) {
    try {
        return call();
    } catch (const EngineError& error) {
        if (error.Kind() == ErrorKind::ConnectionLost) isLost = true;
        throw;
    }
}

/// The table that an engine's message names: in quotes, or behind a colon; without its schema.
std::string_view MissingTable(std::string_view message) {
    const std::size_t open = message.find_first_of("'\"");
    if (open != std::string_view::npos) {
        message.remove_prefix(open + 1);
        message = message.substr(0, message.find_first_of("'\""));
    } else if (const std::size_t colon = message.find(": "); colon != std::string_view::npos) {
        message.remove_prefix(colon + 2);
        message = message.substr(0, message.find_first_of(" ("));
    }
    return message.substr(message.rfind('.') + 1);
}

}  // namespace

void StatementLease::Swap(StatementLease& other) noexcept {
    std::swap(m_session, other.m_session);
    std::swap(m_bucket, other.m_bucket);
    std::swap(m_statement, other.m_statement);
    std::swap(m_literals, other.m_literals);
    std::swap(m_kind, other.m_kind);
    std::swap(m_wholeTable, other.m_wholeTable);
    std::swap(m_generation, other.m_generation);
    std::swap(m_failed, other.m_failed);
}

void StatementLease::Execute(std::string_view text) {
    const bool writes = m_statement->Writes();
    // The columns of a query are not asked for before it runs: that may cost an answer of a server.
    const bool isQuery = m_kind == StatementVerb::Select;
    if (writes || (!isQuery && m_statement->Shape()->columns.empty())) m_session->BeforeWrite();
    m_session->Check(CallKind::Execute, text, writes);
    m_failed = true;
    try {
        NotingLoss(m_session->m_isLost, [this] { m_statement->Execute(); });
    } catch (const EngineError& error) {
        m_session->RaiseNamingNear(error);
    }
    m_failed = false;
    if (m_kind == StatementVerb::Definition) m_session->DefinitionsChanged();
}

bool StatementLease::Fetch(std::string_view text) {
    m_session->Check(CallKind::Fetch, text);
    m_failed = true;
    const bool found = NotingLoss(m_session->m_isLost, [this] { return m_statement->Fetch(); });
    m_failed = false;
    return found;
}

void StatementLease::Return() noexcept {
    if (m_bucket == nullptr) return;
    if (m_statement) {
        m_statement->Reset();
        if (m_session->m_seam) m_session->m_seam->StatementClosed();
        // After a failure, or a change of the tables, it may not be what it was.
        if (m_failed || m_generation != m_session->m_generation) m_statement.reset();
    }
    m_session->m_cache.Give(*std::exchange(m_bucket, nullptr), std::move(m_statement));
    m_literals.clear();
    if (m_session->m_spareLiterals.capacity() == 0) m_session->m_spareLiterals.swap(m_literals);
}

Session::~Session() = default;

void Session::CloseAll() noexcept {
    while (m_cursors != nullptr)
        m_cursors->SessionClosing();
    m_cache.Clear();
}

void Session::RaiseNamingNear(const EngineError& error) {
    if (error.Kind() != ErrorKind::NoSuchTable) throw error;
    std::vector<std::string> tables;
    try {
        tables = DoListTables();
    } catch (const EngineError&) {
        throw error;
    }
    const std::vector<std::string_view> names(tables.begin(), tables.end());
    const std::string hint = automation::DidYouMean(MissingTable(error.what()), names);
    throw EngineError(error.Kind(), error.what() + hint, error.Database());
}

StatementLease Session::Obtain(std::string_view text, std::string_view composed, StatementVerb kind) {
    StatementLease lease;
    StatementCache::Bucket& bucket = m_cache.Find(text);
    std::unique_ptr<Statement> statement = m_cache.Take(bucket);
    lease.m_session = this;
    lease.m_bucket = &bucket;
    lease.m_kind = kind;
    lease.m_generation = m_generation;
    if (!statement) {
        m_cache.Lend(bucket);
        Check(CallKind::Prepare, composed);
        try {
            statement = NotingLoss(m_isLost, [&] { return DoPrepare(text, kind); });
        } catch (const EngineError& error) {
            RaiseNamingNear(error);
        }
    }
    if (m_seam) m_seam->StatementOpened();
    lease.m_statement = std::move(statement);
    return lease;
}

StatementText& Session::Scan(std::string_view composed) {
    const auto known =
        std::ranges::find_if(m_scans, [&](StatementText& scan) { return scan.Repeats(composed); });
    if (known != m_scans.end()) return *known;
    StatementText& scan = m_scans[m_nextScan++ % m_scans.size()];
    ScanStatement(composed, m_traits.lexical, scan);
    return scan;
}

StatementLease Session::Prepare(std::string_view composed, std::span<const automation::Variant> values) {
    if (automation::Trim(composed).empty()) throw EngineError(ErrorKind::Syntax, "The statement is empty");
    if (!m_traits.textsHoldNul && composed.find('\0') != std::string_view::npos) {
        throw EngineError(ErrorKind::Syntax,
                          "The statement holds the character NUL, where this engine would end it");
    }
    StatementText& scan = Scan(composed);
    if (scan.secondStatement) {
        throw EngineError(ErrorKind::SecondStatement, "Characters found after end of SQL statement");
    }
    scan.literals.insert(scan.literals.end(), values.begin(), values.end());
    StatementLease lease = Obtain(scan.text, composed, scan.kind);
    if (lease->ParameterCount() != scan.literals.size()) {
        const std::size_t missing = lease->ParameterCount() - scan.literals.size();
        throw EngineError(ErrorKind::TooFewParameters,
                          "Too few parameters: expected " + std::to_string(missing));
    }
    lease.m_wholeTable = scan.wholeTable;
    lease.m_literals = std::exchange(m_spareLiterals, {});
    lease.m_literals.swap(scan.literals);
    for (std::size_t i = 0; i < lease.m_literals.size(); ++i) {
        lease->Bind(i, lease.m_literals[i], nullptr);
    }
    return lease;
}

std::int64_t Session::Execute(std::string_view composed) {
    StatementLease statement = Prepare(composed);
    statement.Execute(composed);
    return statement->AffectedRows();
}

void Session::Begin() {
    BeforeWrite();
    Check(CallKind::Begin, "begin");
    DoBegin();
}

void Session::Commit() {
    BeforeWrite();
    Check(CallKind::Commit, "commit");
    // A driver may call it done when there is nothing left to commit on.
    if (m_isLost) throw EngineError(ErrorKind::ConnectionLost, "Nothing of the transaction was stored");
    DoCommit();
}

void Session::Rollback() {
    BeforeWrite();
    Check(CallKind::Rollback, "rollback");
    // Tables made since Begin are gone again.
    DefinitionsChanged();
    DoRollback();
}

std::shared_ptr<const WritePlan> Session::PlanFor(const std::shared_ptr<const RowShape>& shape) {
    if (const auto found = m_plans.find(shape); found != m_plans.end()) return found->second;
    auto plan =
        std::make_shared<const WritePlan>(m_traits, shape, Table(WritePlan::BaseTable(*shape), *shape));
    if (m_plans.size() >= PlanLimit) m_plans.clear();
    m_plans.emplace(shape, plan);
    return plan;
}

std::shared_ptr<const TableInfo> Session::Table(const TableName& name, const RowShape& shown) {
    std::string key = name.catalog + '\0' + name.schema + '\0' + name.table;
    if (const auto found = m_tables.find(key); found != m_tables.end()) return found->second;
    auto table = std::make_shared<const TableInfo>(DoDescribeTable(name, shown));
    m_tables.emplace(std::move(key), table);
    return table;
}

void Session::BeforeWrite() noexcept {
    for (SessionCursor* cursor = m_cursors; m_streaming > 0; cursor = cursor->m_next)
        if (cursor->m_streaming) cursor->TakeRows();
}

void Session::DefinitionsChanged() noexcept {
    ++m_generation;
    m_cache.Clear();
    m_tables.clear();
    m_plans.clear();
    DoForgetDefinitions();
}

void Session::Attach(SessionCursor& cursor) noexcept {
    cursor.m_next = m_cursors;
    if (m_cursors != nullptr) m_cursors->m_previous = &cursor;
    m_cursors = &cursor;
}

void Session::Detach(SessionCursor& cursor) noexcept {
    (cursor.m_previous != nullptr ? cursor.m_previous->m_next : m_cursors) = cursor.m_next;
    if (cursor.m_next != nullptr) cursor.m_next->m_previous = cursor.m_previous;
}

void Session::SetStreaming(SessionCursor& cursor, bool streaming) noexcept {
    if (cursor.m_streaming == streaming) return;
    cursor.m_streaming = streaming;
    if (streaming)
        ++m_streaming;
    else
        --m_streaming;
}

}  // namespace korvex::native::sql
