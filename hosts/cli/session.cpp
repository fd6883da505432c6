#include "hosts/cli/session.h"

#include "automation/convert.h"
#include "automation/text.h"
#include "hosts/cli/check/check.h"
#include "hosts/cli/shell/progress.h"
#include "hosts/cli/source.h"
#include "hosts/cli/wording.h"
#include "repository/schema.h"

#include <algorithm>
#include <utility>

namespace korvex::cli {

namespace {

using automation::Error;

/// The repository as messages name it; connection strings may hold passwords.
std::string RepositoryName(const std::string& connection) {
    return automation::ContainsIgnoreCase(connection, "DSN=") ? "the ODBC source" : connection;
}

class CountedConnection final : public ado::Connection {
  public:
    explicit CountedConnection(Console& console)
        : m_connection(Session(console).platform.targetProvider->CreateConnection()),
          m_console(console),
          m_progress(console, "statements") {}

    void Open(std::string_view connectionString, std::string_view user, std::string_view password,
              std::int32_t options) override {
        m_connection->Open(connectionString, user, password, options);
    }
    void Close() override { m_connection->Close(); }
    std::shared_ptr<ado::Recordset> Execute(std::string_view text, std::int32_t options,
                                            std::int32_t* recordsAffected) override {
        auto records = m_connection->Execute(text, options, recordsAffected);
        m_console.Step();
        return records;
    }
    std::int32_t State() const override { return m_connection->State(); }
    std::int32_t BeginTrans() override { return m_connection->BeginTrans(); }
    void CommitTrans() override { m_connection->CommitTrans(); }
    void RollbackTrans() override { m_connection->RollbackTrans(); }

  private:
    std::shared_ptr<ado::Connection> m_connection;
    Console& m_console;
    Progress m_progress;
};

}  // namespace

void CliDesktop::ShowMessage(std::string_view text, std::int32_t style, std::string_view title) {
    if (style == platform::StyleOkOnly) {
        ++m_failedQueries;
        m_console.Message("A query failed: " + std::string(text));
        return;
    }
    if (!title.empty()) m_console.Message(title);
    m_console.Text(text);
}

Session::Session(Console& console) : platform(DefaultPlatform()) {
    desktop = std::make_shared<CliDesktop>(console);
    platform.desktop = desktop;
    platform.repositoryEngine = EngineForSources(platform.repositoryEngine);
}

void Session::ExpectNoFailedQuery(std::string_view work) const {
    const int failed = desktop->FailedQueries();
    if (failed == 0) return;
    throw Error(dao::QueryFailed, std::to_string(failed) + (failed == 1 ? " query" : " queries") +
                                      " failed (see above): " + std::string(work) + ".");
}

void OpenComplete(repository::Repository& repository, const std::string& connection) {
    repository.OpenRepository(connection);
    const std::vector<repository::SchemaGap> gaps = repository::CheckSchema(repository.Open());
    if (!gaps.empty()) repository::RaiseGaps(gaps, RepositoryName(connection));
}

std::vector<std::string> StorageNames(repository::Repository& repository) {
    const auto rows = repository.Open().OpenRecordset("select Storage from tDataDefs order by Storage",
                                                      dao::dbOpenSnapshot);
    std::vector<std::string> names;
    for (; !rows->Eof(); rows->MoveNext()) {
        names.push_back(automation::ToString(repository::Repository::FieldValue(rows->Fields("Storage"))));
    }
    rows->Close();
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

void ExpectStorage(repository::Repository& repository, const std::string& storage) {
    if (storage.find('\'') != std::string::npos) {
        throw Error(automation::InvalidProcedureCall, "The storage name " + automation::Quoted(storage) +
                                                          " holds a single quote; storage names must not.");
    }
    std::vector<std::string> names = StorageNames(repository);
    if (names.empty()) {
        throw Error(automation::InvalidProcedureCall, "The repository holds no definition.");
    }
    if (storage.empty() || std::find(names.begin(), names.end(), storage) != names.end()) return;
    throw Error(automation::InvalidProcedureCall,
                "No definition has the storage name " + automation::Quoted(storage) + "; there " +
                    (names.size() == 1 ? "is " : "are ") + JoinNames(names) + ".");
}

repository::Catalog ReadCatalog(const CommonOptions& options, Console& console, bool expectsDefinition) {
    repository::Repository repository(Session(console).platform);
    OpenComplete(repository, options.repository);
    if (expectsDefinition) ExpectStorage(repository, options.storage);
    return repository::Catalog::Read(repository.Open());
}

void CheckBeforeRun(const CommonOptions& options, Console& console) {
    repository::Repository repository(Session(console).platform);
    OpenComplete(repository, options.repository);
    ExpectStorage(repository, options.storage);
    try {
        const repository::Catalog catalog = repository::Catalog::Read(repository.Open());
        Findings findings;
        CheckDefinitions(catalog, options.storage, options.fkPrefix, findings);
        WarnOfDanger(findings, console);
    } catch (const Error&) {
        // What cannot be read or named ends the run itself, if it is part of it.
    }
}

std::shared_ptr<ado::Connection> NewConnection(Console& console) {
    return std::make_shared<CountedConnection>(console);
}

std::shared_ptr<ado::Connection> Connect(const std::string& connectionString, Console& console) {
    auto connection = NewConnection(console);
    connection->Open(connectionString);
    return connection;
}

}  // namespace korvex::cli
