#include "automation/convert.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/data/data_session.h"
#include "hosts/cli/data/found_text.h"
#include "hosts/cli/target_options.h"
#include "objects/base64.h"
#include "persistence/statements.h"

#include <memory>
#include <string>
#include <utility>

namespace korvex::cli {

namespace {

using automation::Variant;

struct FieldOptions {
    std::string connection;
    std::string table;
    std::string keyField;
    std::string key;
    std::string field;
    std::string value;
    bool isNull = false;
};

/// A failure that left no code has its reason in the engine's error.
[[noreturn]] void FailField(const DataSession& session, const FieldOptions& options) {
    const auto& failure = session.Crud().TrappedError();
    if (session.Crud().LastResult() == dbNoError && failure) throw *failure;
    session.FailWithLastResult(RecordText(options.table, options.keyField, ReadKey(options.key)));
}

void RunGet(const FieldOptions& options, Console& console) {
    const Variant key = ReadKey(options.key);
    const DataSession session(options.connection, "", console);
    Variant value;
    if (!session.Crud().DbGetField(key, options.keyField, options.table, options.field, value)) {
        FailField(session, options);
    }
    console.Results() << LineOf(value) << '\n';
}

bool IsBinary(std::int32_t type) {
    return type == ado::adBinary || type == ado::adVarBinary || type == ado::adLongVarBinary;
}

/// The new value as the column takes it: binary data from the base64 text that `get` gives.
Variant NewValue(clsCRUD& crud, const FieldOptions& options) {
    if (options.isNull) return Variant::Null();
    if (options.table.empty() || options.field.empty()) return options.value;
    const auto records = crud.OpenRecordset(persistence::SelectAll(options.table));
    if (records == nullptr) return options.value;
    const bool isBinary = IsBinary(records->Fields(options.field)->Type());
    records->Close();
    if (!isBinary) return options.value;
    auto data = objects::FromBase64(options.value);
    if (data) return std::move(*data);
    throw automation::Error(automation::TypeMismatch,
                            options.table + "." + options.field +
                                " holds binary data: --value takes it in base64, as field get prints it.");
}

void RunSet(const FieldOptions& options, Console& console) {
    const Variant key = ReadKey(options.key);
    const DataSession session(options.connection, "", console);
    const Variant value = NewValue(session.Crud(), options);
    const bool isSet = session.Crud().DbSaveField(key, options.keyField, options.table, options.field, value);
    // A write that the database refuses does not show in the answer.
    if (!isSet || session.Crud().TrappedError()) FailField(session, options);
}

void AddFieldOptions(CLI::App& command, FieldOptions& options) {
    AddConnectionOption(command, options.connection);
    command.add_option("--table", options.table, "Table")->required()->type_name("T");
    command.add_option("--key-field", options.keyField, "Key column of the table")
        ->required()
        ->type_name("F");
    AddKeyOption(command, options.key);
    command.add_option("--field", options.field, "Column")->required()->type_name("N");
}

}  // namespace

void AddFieldGetCommand(CLI::App& parent, Console& console) {
    const auto options = std::make_shared<FieldOptions>();
    CLI::App* command = parent.add_subcommand("get", "Print the value");
    AddFieldOptions(*command, *options);
    AddExample(
        *command,
        "korvex field get --connection \"Provider=SQLite;Data Source=target.db\" --table tOrder --key-field OrderID --key 1 --field Total");
    command->callback([options, &console] { RunGet(*options, console); });
}

void AddFieldSetCommand(CLI::App& parent, Console& console) {
    const auto options = std::make_shared<FieldOptions>();
    CLI::App* command = parent.add_subcommand("set", "Write the value");
    AddFieldOptions(*command, *options);
    CLI::Option_group* what = command->add_option_group("value");
    what->add_option("--value", options->value,
                     "New value, converted to the column's type; base64 for a binary one")
        ->type_name("V");
    what->add_flag("--null", options->isNull, "Write Null");
    what->require_option(1);
    AddExample(
        *command,
        "korvex field set --connection \"Provider=SQLite;Data Source=target.db\" --table tOrder --key-field OrderID --key 1 --field Total --value 12.5");
    command->callback([options, &console] { RunSet(*options, console); });
}

}  // namespace korvex::cli
