#pragma once

#include "automation/error.h"
#include "hosts/cli/console.h"
#include "hosts/cli/options.h"
#include "platform/platform.h"
#include "repository/catalog.h"
#include "repository/repository.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// What every command does before and around its own work.
namespace korvex::cli {

/// Reports messages on standard error and remembers which files were to be opened in an editor.
class CliDesktop : public platform::Desktop {
  public:
    explicit CliDesktop(Console& console) : m_console(console) {}

    /// A plain message comes from a query that failed; anything else is shown as it stands.
    void ShowMessage(std::string_view text, std::int32_t style, std::string_view title) override;
    void OpenEditor(std::string_view path) override { m_paths.emplace_back(path); }

    int FailedQueries() const noexcept { return m_failedQueries; }
    const std::vector<std::string>& Paths() const noexcept { return m_paths; }

  private:
    Console& m_console;
    int m_failedQueries = 0;
    std::vector<std::string> m_paths;
};

/// This build's platform with the command's own desktop.
struct Session {
    explicit Session(Console& console);

    std::shared_ptr<CliDesktop> desktop;
    Platform platform;

    /// Raises QueryFailed (3146) when a query failed on the way; `work` says of what.
    void ExpectNoFailedQuery(std::string_view work) const;
};

/// Opens a repository and makes sure that it has all tables and columns; raises TableNotFound (3078) or
/// ItemNotFound (3265), naming what is missing.
void OpenComplete(repository::Repository& repository, const std::string& connection);

/// The storage names of the definitions, in order, each once.
std::vector<std::string> StorageNames(repository::Repository& repository);

/// Makes sure that the repository has a definition of that storage name, or any at all when it is empty.
/// Raises InvalidProcedureCall (5), listing the storage names there are; also for a name with a quote.
void ExpectStorage(repository::Repository& repository, const std::string& storage);

/// What the repository of the options holds. It must be complete and have the definition of their storage
/// name, or any at all when that is empty, unless no definition is expected.
repository::Catalog ReadCatalog(const CommonOptions& options, Console& console,
                                bool expectsDefinition = true);

/// Makes sure that the repository is complete and has the definition: before a command that changes or writes
/// anything. The errors of the definition, which do not hinder a run, are printed as warnings.
void CheckBeforeRun(const CommonOptions& options, Console& console);

/// A connection whose statements are steps of the work, and work of their own where nobody knows their
/// number: not open yet, and open.
std::shared_ptr<ado::Connection> NewConnection(Console& console);
std::shared_ptr<ado::Connection> Connect(const std::string& connectionString, Console& console);

}  // namespace korvex::cli
