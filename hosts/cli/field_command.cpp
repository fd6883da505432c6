#include "automation/convert.h"
#include "hosts/cli/commands.h"
#include "hosts/cli/data/data_session.h"
#include "hosts/cli/data/found_text.h"
#include "objects/base64.h"
#include "persistence/statements.h"

#include <memory>
#include <string>
#include <utility>

namespace korvex::cli {

namespace {

using automation::Variant;

struct FieldOptions : KeyOptions {
    std::string table;
    std::string keyField;
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
    const DataSession session(options, console);
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
    const DataSession session(options, console);
    const Variant value = NewValue(session.Crud(), options);
    const bool isSet = session.Crud().DbSaveField(key, options.keyField, options.table, options.field, value);
    // A write that the database refuses does not show in the answer.
    if (!isSet || session.Crud().TrappedError()) FailField(session, options);
}

/// get or set, with what both of them take; `rest` ends the example.
Command<FieldOptions> AddFieldCommand(CLI::App& parent, Console& console, const std::string& name,
                                      const std::string& text, const std::string& rest,
                                      void (*run)(const FieldOptions&, Console&)) {
    const auto added =
        AddCommand(parent, console, name, text,
                   "korvex field " + name +
                       " --connection \"Provider=SQLite;Data Source=target.db\" --table tOrder --key-field "
                       "OrderID --key 1 --field Total" +
                       rest,
                   run);
    const auto [command, options] = added;
    options.fkPrefix.clear();
    AddConnectionOption(command, options);
    AddOption(command, "--table", "T", options.table, "Table")->required();
    AddOption(command, "--key-field", "F", options.keyField, "Key column of the table")->required();
    AddKeyOption(command, options);
    AddOption(command, "--field", "N", options.field, "Column")->required();
    return added;
}

}  // namespace

void AddFieldGetCommand(CLI::App& parent, Console& console) {
    AddFieldCommand(parent, console, "get", "Print the value", "", RunGet);
}

void AddFieldSetCommand(CLI::App& parent, Console& console) {
    const auto [command, options] =
        AddFieldCommand(parent, console, "set", "Write the value", " --value 12.5", RunSet);
    CLI::Option_group* what = command.add_option_group("value");
    AddOption(*what, "--value", "V", options.value,
              "New value, converted to the column's type; base64 for a binary one");
    what->add_flag("--null", options.isNull, "Write Null");
    what->require_option(1);
}

}  // namespace korvex::cli
