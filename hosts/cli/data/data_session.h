#pragma once

#include "hosts/cli/session.h"
#include "objects/data_object.h"
#include "surface/cls_crud.h"

#include <CLI/CLI.hpp>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// What the commands that read and write objects have in common.
namespace korvex::cli {

struct KeyOptions : CommonOptions {
    std::string key;
};

/// --repository (also as the first word where `isPositional`), --storage, --connection and --fk-prefix.
void AddDataOptions(CLI::App& command, CommonOptions& options, bool isPositional = false);
/// --key, which is required.
CLI::Option* AddKeyOption(CLI::App& command, KeyOptions& options);
/// The example of a command with these options; `rest` is what it has besides.
std::string DataExample(const std::string& name, const std::string& rest, bool isPositional = false);

/// The key, or for "-" those that stand on standard input, one a line. Raises as ReadKey does.
std::vector<std::int32_t> ReadKeys(const std::string& text);

/// "record of TABLE with COLUMN = KEY".
std::string RecordText(std::string_view table, std::string_view keyColumn, std::int32_t key);
/// The same of an object's own record.
std::string RecordText(objects::Definition& definition, std::int32_t key);

/// A whole number of 32 bits. Raises TypeMismatch (13) or Overflow (6), naming it.
std::int32_t ReadKey(const std::string& text);

/// A connected clsCRUD. Failures are said on the console and end the command with RuntimeError.
class DataSession {
  public:
    /// Of a command's --connection and --fk-prefix.
    DataSession(const CommonOptions& options, Console& console);

    clsCRUD& Crud() const noexcept { return *m_crud; }

    /// Ends the command with the code that clsCRUD left; `record` is the one that was looked for.
    [[noreturn]] void FailWithLastResult(const std::string& record = {}) const {
        const dbResults code = m_crud->LastResult();
        Fail(code, code == dbNoMatchingRecord && !record.empty() ? "There is no " + record + "." : "");
    }
    /// Ends the command: "NAME: what is wrong. What to do." `reason` says it more closely than the code does.
    [[noreturn]] void Fail(dbResults code, std::string reason = {}) const;
    /// "NAME: what it means."
    void Say(dbResults code) const;
    /// Whether there is a record of that key.
    bool Exists(const std::shared_ptr<objects::DataObject>& object, std::int32_t key) const;
    /// Fills the object from its record.
    void Load(const std::shared_ptr<objects::DataObject>& object, std::int32_t key) const;
    /// Ends the command for a record whose key is 0 or less: nothing beneath it can be found.
    void ExpectUsableKey(const std::shared_ptr<objects::DataObject>& object, std::int32_t key) const;
    /// Ends the command when a table did not open in the last call, wherever in the tree that was.
    void ExpectAllOpened() const;

  private:
    Console& m_console;
    std::shared_ptr<clsCRUD> m_crud;
};

/// The definition of a storage name. Raises InvalidProcedureCall (5), listing the names there are, for one
/// that no definition has.
std::shared_ptr<objects::Definition> OpenDefinition(const CommonOptions& options, Console& console);
/// The same for a command that stores or deletes data: also refuses, with InvalidProcedureCall (5), a
/// definition with which data would be mixed up or lost.
std::shared_ptr<objects::Definition> OpenDefinitionForWriting(const CommonOptions& options, Console& console);

}  // namespace korvex::cli
