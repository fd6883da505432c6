#pragma once

#include "support/temp_folder.h"

#include <string>
#include <string_view>
#include <vector>

/// The korvex command as its users meet it: a process with arguments, output and an exit code.
namespace korvex::tests {

struct CommandResult {
    int exitCode = 0;
    std::string output;    ///< standard output
    std::string messages;  ///< standard error
};

/// Runs the command and waits for it. `environment` holds further "NAME=value" entries; `outputFile` receives
/// the standard output when it is named, which is then not part of the result; `inputFile` is the standard
/// input.
CommandResult RunKorvex(const std::vector<std::string>& arguments,
                        const std::vector<std::string>& environment = {}, const std::string& outputFile = {},
                        const std::string& inputFile = "/dev/null");

/// Runs the command in this process, as somebody without root's rights for whom `closedFolder` takes no new
/// files.
CommandResult RunKorvexAsOrdinaryUser(const std::string& closedFolder,
                                      const std::vector<std::string>& arguments);

/// The words of a command line; one in single quotes may hold blanks or nothing.
std::vector<std::string> Words(std::string_view line);

/// Expects this exit code, no results, and one message that holds `part`; wrong usage, 2, may add lines of
/// help.
void ExpectFailure(const CommandResult& result, std::string_view part, int exitCode = 1);

/// A repository in a folder of its own, which is the place for everything that a test writes.
class RepositoryFile {
  public:
    /// An empty one.
    RepositoryFile();
    /// One with the definitions of a model, given as JSON text.
    explicit RepositoryFile(std::string_view model);

    const TempFolder& Folder() const { return m_folder; }
    std::string Path() const { return m_folder.Path("repository.db"); }

    CommandResult Import(std::string_view model) const;
    /// Changes the repository behind the command's back, one statement a text.
    void Execute(const std::vector<std::string>& statements) const;

  private:
    TempFolder m_folder;
};

/// `text` with every occurrence of `part` replaced.
std::string Replace(std::string text, std::string_view part, std::string_view replacement);

}  // namespace korvex::tests
