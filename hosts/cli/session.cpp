#include "hosts/cli/session.h"

#include "automation/convert.h"
#include "automation/text.h"
#include "hosts/cli/check/check.h"
#include "hosts/cli/source.h"
#include "hosts/cli/suggest.h"
#include "repository/schema.h"

#include <algorithm>

namespace korvex::cli {

namespace {

using automation::Error;

/// The repository as messages name it; connection strings may hold passwords.
std::string RepositoryName(const std::string& connection) {
    return automation::ContainsIgnoreCase(connection, "DSN=") ? "the ODBC source" : connection;
}

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

void CheckBeforeRun(const std::string& connection, const std::string& storage, std::string_view fkPrefix,
                    Console& console) {
    repository::Repository repository(Session(console).platform);
    OpenComplete(repository, connection);
    ExpectStorage(repository, storage);
    try {
        const repository::Catalog catalog = repository::Catalog::Read(repository.Open());
        Findings findings;
        CheckDefinitions(catalog, storage, fkPrefix, findings);
        WarnOfDanger(findings, console);
    } catch (const Error&) {
        // What cannot be read or named ends the run itself, if it is part of it.
    }
    repository.Close();
}

}  // namespace korvex::cli
