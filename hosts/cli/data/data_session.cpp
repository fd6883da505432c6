#include "hosts/cli/data/data_session.h"

#include "automation/error.h"
#include "hosts/cli/app.h"
#include "hosts/cli/check/check.h"
#include "hosts/cli/data/result_text.h"
#include "hosts/cli/session.h"
#include "hosts/cli/target_options.h"
#include "hosts/objects/load_definition.h"
#include "repository/catalog.h"

#include <charconv>
#include <system_error>
#include <utility>

namespace korvex::cli {

namespace {

using automation::Error;

/// Keeps what the connection's message box would say.
class MessageKeeper final : public platform::Desktop {
  public:
    void ShowMessage(std::string_view text, std::int32_t, std::string_view) override { m_text = text; }
    void OpenEditor(std::string_view) override {}
    const std::string& Text() const noexcept { return m_text; }

  private:
    std::string m_text;
};

repository::Catalog ReadCatalog(const DataOptions& options, Console& console) {
    repository::Repository repository(Session(console).platform);
    OpenComplete(repository, options.repository);
    ExpectStorage(repository, options.storage);
    repository::Catalog catalog = repository::Catalog::Read(repository.Open());
    repository.Close();
    return catalog;
}

}  // namespace

void AddDataOptions(CLI::App& command, DataOptions& options) {
    command.add_option("--repository", options.repository, "Repository file, or ODBC string with DSN=")
        ->required()
        ->type_name("R");
    command.add_option("--storage", options.storage, "Storage name of the definition")
        ->required()
        ->type_name("NAME");
    AddConnectionOption(command, options.connection);
    command.add_option("--fk-prefix", options.fkPrefix, "Prefix of foreign-key columns (FK_ unless given)")
        ->type_name("P");
}

void AddKeyOption(CLI::App& command, std::string& key) {
    command.add_option("--key", key, "Key of the record")->required()->type_name("K");
}

std::int32_t ReadKey(const std::string& text) {
    std::int32_t key = 0;
    const char* end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, key);
    if (failure == std::errc::result_out_of_range) {
        throw Error(automation::Overflow, "The key " + text + " does not fit 32 bits.");
    }
    if (failure != std::errc() || stop != end) {
        throw Error(automation::TypeMismatch, "The key \"" + text + "\" is not a whole number.");
    }
    return key;
}

DataSession::DataSession(const std::string& connection, const std::string& fkPrefix, Console& console)
    : m_console(console), m_failures(std::make_shared<FailureLog>()) {
    Platform platform = DefaultPlatform();
    const auto messages = std::make_shared<MessageKeeper>();
    platform.desktop = messages;
    platform.targetProvider = WatchProvider(platform.targetProvider, m_failures);
    m_crud = std::make_shared<clsCRUD>(platform);
    if (!m_crud->ConnectDB(connection, fkPrefix)) Fail(dbConnectError, messages->Text());
}

void DataSession::Fail(dbResults code, std::string_view reason) const {
    const ResultText& text = TextOf(code);
    if (reason.empty() && code == dbCannotOpenRecordset && m_failures->Opening()) {
        reason = m_failures->Opening()->Description();
    }
    std::string line = std::string(text.name) + ": " + std::string(text.meaning);
    for (const std::string_view part : {reason, text.remedy}) {
        if (part.empty()) continue;
        if (!line.ends_with('.')) line += '.';
        line += " " + std::string(part);
    }
    m_console.Message(line);
    throw CLI::RuntimeError(ExitFailed);
}

void DataSession::ExpectAllOpened() const {
    if (m_failures->Opening()) Fail(dbCannotOpenRecordset);
}

std::shared_ptr<objects::Definition> OpenDefinition(const DataOptions& options, Console& console) {
    return objects::LoadDefinition(ReadCatalog(options, console), options.storage, options.fkPrefix);
}

std::shared_ptr<objects::Definition> OpenDefinitionForWriting(const DataOptions& options, Console& console) {
    const repository::Catalog catalog = ReadCatalog(options, console);
    auto definition = objects::LoadDefinition(catalog, options.storage, options.fkPrefix);
    Findings findings;
    CheckDefinitions(catalog, options.storage, options.fkPrefix, findings);
    RefuseDanger(findings);
    return definition;
}

}  // namespace korvex::cli
