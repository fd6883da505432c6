#include "hosts/cli/data/data_session.h"

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/app.h"
#include "hosts/cli/check/check.h"
#include "hosts/cli/data/result_text.h"
#include "hosts/cli/session.h"
#include "hosts/cli/source.h"
#include "hosts/cli/target_options.h"
#include "hosts/cli/text_file.h"
#include "objects/load_definition.h"
#include "repository/catalog.h"

#include <charconv>
#include <sstream>
#include <system_error>
#include <utility>

namespace korvex::cli {

namespace {

using automation::Error;

/// Says nothing: the connection's error is asked for.
class SilentDesktop final : public platform::Desktop {
  public:
    void ShowMessage(std::string_view, std::int32_t, std::string_view) override {}
    void OpenEditor(std::string_view) override {}
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

void AddDataOptions(CLI::App& command, DataOptions& options, bool isPositional) {
    AddRepositoryOption(command, options.repository, isPositional);
    AddStorageOption(command, options.storage)->required();
    AddConnectionOption(command, options.connection);
    command.add_option("--fk-prefix", options.fkPrefix, "Prefix of foreign-key columns (FK_ unless given)")
        ->type_name("P");
}

CLI::Option* AddKeyOption(CLI::App& command, std::string& key) {
    return command.add_option("--key", key, "Key of the record")->required()->type_name("K");
}

std::vector<std::int32_t> ReadKeys(const std::string& text) {
    if (text != "-") return {ReadKey(text)};
    std::vector<std::int32_t> keys;
    std::istringstream lines(ReadTextFile(text));
    for (std::string line; std::getline(lines, line);)
        if (const std::string_view key = automation::Trim(line); !key.empty())
            keys.push_back(ReadKey(std::string(key)));
    return keys;
}

std::int32_t ReadKey(const std::string& text) {
    std::int32_t key = 0;
    const char* end = text.data() + text.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, key);
    if (failure == std::errc::result_out_of_range) {
        throw Error(automation::Overflow, "The key " + automation::Quoted(text) + " does not fit 32 bits.");
    }
    if (failure != std::errc() || stop != end) {
        throw Error(automation::TypeMismatch,
                    "The key " + automation::Quoted(text) + " is not a whole number.");
    }
    return key;
}

std::string RecordText(std::string_view table, std::string_view keyColumn, std::int32_t key) {
    constexpr std::size_t longest = 60;
    return "record of " + automation::Readable(table, longest) + " with " +
           automation::Readable(keyColumn, longest) + " = " + std::to_string(key);
}

std::string RecordText(objects::Definition& definition, std::int32_t key) {
    const objects::ValueDefinition* value = definition.KeyValue();
    return RecordText(definition.StringAttribute(attTableName),
                      value == nullptr ? "its key" : value->Info().column, key);
}

DataSession::DataSession(const std::string& connection, const std::string& fkPrefix, Console& console)
    : m_console(console) {
    Platform platform = DefaultPlatform();
    platform.desktop = std::make_shared<SilentDesktop>();
    m_crud = std::make_shared<clsCRUD>(platform);
    if (!m_crud->ConnectDB(connection, fkPrefix)) Fail(dbConnectError);
}

void DataSession::Fail(dbResults code, std::string reason) const {
    const ResultText& text = TextOf(code);
    std::string_view remedy = text.remedy;
    const std::optional<Error>& failure = m_crud->TrappedError();
    if (reason.empty() && failure && (code == dbConnectError || code == dbCannotOpenRecordset)) {
        reason = failure->Description();
        // Only tables that are missing, or made otherwise, are to be made.
        if (code == dbCannotOpenRecordset && failure->Number() != ado::DbENoTable &&
            failure->Number() != ado::DbEStatement)
            remedy = {};
    }
    if (reason.empty()) reason = text.meaning;
    m_console.Message(std::string(NameOf(text.code)) + ": " +
                      automation::AddSentence(std::move(reason), remedy));
    throw CLI::RuntimeError(ExitFailed);
}

void DataSession::ExpectUsableKey(const std::shared_ptr<objects::DataObject>& object,
                                  std::int32_t key) const {
    if (key > 0 || !m_crud->DbDataExists(object, key)) return;
    Fail(dbPrimaryKeyMissing,
         "The " + RecordText(object->Type(), key) + " is no record of an object: keys are above 0.");
}

void DataSession::ExpectAllOpened() const {
    if (m_crud->TrappedError()) Fail(dbCannotOpenRecordset);
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
