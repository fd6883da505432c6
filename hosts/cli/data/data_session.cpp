#include "hosts/cli/data/data_session.h"

#include "automation/error.h"
#include "automation/text.h"
#include "hosts/cli/app.h"
#include "hosts/cli/check/check.h"
#include "hosts/cli/text_file.h"
#include "objects/load_definition.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <sstream>
#include <system_error>
#include <utility>

namespace korvex::cli {

namespace {

using automation::Error;

/// What a result code says, and what to do about it.
struct ResultText {
    dbResults code;
    std::string_view meaning;
    std::string_view remedy;  ///< empty for none
};

constexpr std::array Texts = {
    ResultText{dbNoError, "Nothing was done.", "Check the definition (korvex repository check)."},
    ResultText{dbConnectError, "The database cannot be opened.", "Check --connection."},
    ResultText{dbNotConnected, "There is no connection to the database.", "Check --connection."},
    ResultText{dbPrimaryKeyFieldNameMissing, "An object of the definition has no primary key.",
               "Check the definition (korvex repository check)."},
    ResultText{dbPrimaryKeyMissing, "A record has no key above 0.", "Correct the key in the database."},
    ResultText{dbTableNameMissing, "An object of the definition has no table.",
               "Check the definition (korvex repository check)."},
    ResultText{dbBadParameter, "A name is empty.", "Give --table, --key-field and --field."},
    ResultText{dbNoMatchingRecord, "No record has that key.", "Check the key."},
    ResultText{dbCannotOpenRecordset, "A table cannot be opened.",
               "Make the tables of the definition (korvex database create)."},
    ResultText{dbParentNotInDatabase, "The object's foreign key does not name the key of its parent.",
               "Check --fk-prefix."},
    ResultText{dbObjectNotModified, "Nothing differs from what is stored.", ""},
    ResultText{dbTableNotIncluded, "An object of the definition is not stored.",
               "Check the definition (korvex repository check)."},
};

const ResultText& TextOf(dbResults code) noexcept {
    const auto* found = std::ranges::find(Texts, code, &ResultText::code);
    return found == Texts.end() ? Texts.front() : *found;
}

/// Says nothing: the connection's error is asked for.
class SilentDesktop final : public platform::Desktop {
  public:
    void ShowMessage(std::string_view, std::int32_t, std::string_view) override {}
    void OpenEditor(std::string_view) override {}
};

}  // namespace

void AddDataOptions(CLI::App& command, CommonOptions& options, bool isPositional) {
    AddRepositoryOption(command, options, isPositional);
    AddStorageOption(command, options)->required();
    AddConnectionOption(command, options);
    AddFKPrefixOption(command, options);
}

CLI::Option* AddKeyOption(CLI::App& command, KeyOptions& options) {
    return AddOption(command, "--key", "K", options.key, "Key of the record")->required();
}

std::string DataExample(const std::string& name, const std::string& rest, bool isPositional) {
    return "korvex " + name + (isPositional ? " " : " --repository ") +
           "orders.db --storage Orders --connection \"Provider=SQLite;Data Source=target.db\" " + rest;
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

DataSession::DataSession(const CommonOptions& options, Console& console) : m_console(console) {
    Platform platform = DefaultPlatform();
    platform.desktop = std::make_shared<SilentDesktop>();
    m_crud = std::make_shared<clsCRUD>(platform);
    if (!m_crud->ConnectDB(options.connection, options.fkPrefix)) Fail(dbConnectError);
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

void DataSession::Say(dbResults code) const {
    m_console.Message(std::string(NameOf(code)) + ": " + std::string(TextOf(code).meaning));
}

bool DataSession::Exists(const std::shared_ptr<objects::DataObject>& object, std::int32_t key) const {
    const bool exists = m_crud->DbDataExists(object, key);
    ExpectAllOpened();
    if (!exists && m_crud->LastResult() != dbNoError) FailWithLastResult();
    return exists;
}

void DataSession::Load(const std::shared_ptr<objects::DataObject>& object, std::int32_t key) const {
    ExpectUsableKey(object, key);
    const std::int32_t loaded = m_crud->DbGetData(object, key);
    ExpectAllOpened();
    if (loaded < 1) FailWithLastResult(RecordText(object->Type(), key));
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

std::shared_ptr<objects::Definition> OpenDefinition(const CommonOptions& options, Console& console) {
    return objects::LoadDefinition(ReadCatalog(options, console), options.storage, options.fkPrefix);
}

std::shared_ptr<objects::Definition> OpenDefinitionForWriting(const CommonOptions& options,
                                                              Console& console) {
    const repository::Catalog catalog = ReadCatalog(options, console);
    auto definition = objects::LoadDefinition(catalog, options.storage, options.fkPrefix);
    RefuseDanger(catalog, options.storage, options.fkPrefix);
    return definition;
}

}  // namespace korvex::cli
