#include "surface/cls_create_db.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "repository/names.h"
#include "repository/relationship_builder.h"
#include "repository/repository.h"
#include "repository/stored_rows.h"
#include "scriptgen/engine_dialect.h"
#include "scriptgen/generator.h"
#include "scriptgen/script_types.h"

#include <exception>
#include <iterator>
#include <string_view>
#include <utility>

namespace korvex {

using automation::Variant;
using scriptgen::ScriptKind;
using scriptgen::ScriptType;
using scriptgen::ScriptTypeInfo;

namespace {

constexpr std::string_view LongWarningTitle = "Script Creation Warning";
constexpr std::string_view LongWarning =
    "The scripts were created with the following warning!\r\n"
    "Some of the tables contain more than one \r\n"
    "LONG or LONG RAW fields.  You will not be able\r\n"
    "to create tables using the scripts.";

/// The members that give the texts of a run's scripts, in the order of these.
using TextMember = const std::string& (clsCreateDb::*)();
constexpr TextMember Texts[] = {&clsCreateDb::DbSQL, &clsCreateDb::DropSQL, &clsCreateDb::StoredProcSQL,
                                &clsCreateDb::FkConstraintSQL, &clsCreateDb::DropFkConstraintSQL};

template <class Action>
void IgnoreErrors(Action action) noexcept {
    try {
        action();
    } catch (const std::exception&) {
    }
}

/// Passes everything on, and knows whether a message box stands open. A modal box lets the host's calls in.
class WatchedDesktop final : public platform::Desktop {
  public:
    explicit WatchedDesktop(std::shared_ptr<platform::Desktop> desktop) : m_desktop(std::move(desktop)) {}

    void ShowMessage(std::string_view text, std::int32_t style, std::string_view title) override {
        struct OpenBox {
            explicit OpenBox(bool& flag) : isOpen(flag) { isOpen = true; }
            ~OpenBox() { isOpen = false; }
            bool& isOpen;
        };
        const OpenBox box(m_hasOpenBox);
        m_desktop->ShowMessage(text, style, title);
    }
    void OpenEditor(std::string_view path) override { m_desktop->OpenEditor(path); }

    /// The repository and the run belong to the call that shows a box until it is closed.
    void ExpectNoOpenBox() const {
        if (!m_hasOpenBox) return;
        throw automation::Error(automation::InvalidProcedureCall,
                                "A message box of this object is open; close it before the next call.");
    }

  private:
    std::shared_ptr<platform::Desktop> m_desktop;
    bool m_hasOpenBox = false;
};

Platform WithDesktop(Platform parts, std::shared_ptr<platform::Desktop> desktop) {
    parts.desktop = std::move(desktop);
    return parts;
}

// What a language service knows this library's texts by.
constexpr std::int16_t LibraryNumber = 410;
constexpr std::int16_t TextCategory = 13;

/// The service in an optional argument: Nothing when it is missing. ObjectRequired (424) for anything that is
/// no object.
automation::ObjectRef LanguageService(const Variant& oLanguageSvr) {
    if (oLanguageSvr.IsMissing() || oLanguageSvr.IsNothing()) return nullptr;
    return automation::ToObject(oLanguageSvr);
}

/// The service's text of that number; `sDefault` where it has none.
std::string GetLocalString(automation::Object& languageSvr, std::int32_t lStringID,
                           std::string_view sDefault) {
    Variant arguments[] = {LibraryNumber, TextCategory, lStringID};
    std::string text =
        automation::ToString(languageSvr.Invoke("GetString", automation::InvokeKind::Method, arguments));
    return text.empty() ? std::string(sDefault) : text;
}

/// What a host calls a dialect: its number, or its name at a language service.
std::string ScriptTypeName(const automation::ObjectRef& oLanguageSvr, const ScriptTypeInfo& type) {
    if (!oLanguageSvr) return std::to_string(type.stringNumber);
    return GetLocalString(*oLanguageSvr, type.stringNumber, type.displayName);
}

}  // namespace

struct clsCreateDb::Impl {
    explicit Impl(const Platform& parts)
        : desktop(std::make_shared<WatchedDesktop>(parts.desktop)),
          platform(WithDesktop(parts, desktop)),
          repository(platform) {}

    void DoRun(clsCreateDb& self, ScriptType type, const std::string& FileName,
               const std::string& storageName, const Variant& sFKPrefix);
    void SetupRun(clsCreateDb& self, const ScriptTypeInfo& type, const std::string& storageName,
                  const Variant& sFKPrefix);
    void ShowScript(const std::string& path, const std::string& text, bool isFirst);

    std::shared_ptr<WatchedDesktop> desktop;
    Platform platform;
    repository::Repository repository;
    scriptgen::RunState run;
    std::vector<automation::Error> unwritten;  ///< why files were not written
    std::string m_sFKPrefix;
    std::string m_sScriptFilePath;
};

/// One whole run. An error leaves it where it stands: the repository open, no further file written.
void clsCreateDb::Impl::DoRun(clsCreateDb& self, ScriptType type, const std::string& FileName,
                              const std::string& storageName, const Variant& sFKPrefix) {
    desktop->ExpectNoOpenBox();
    repository.OpenRepository(FileName);
    SetupRun(self, *scriptgen::FindScriptType(type), storageName, sFKPrefix);
    self.ShutDown();
}

void clsCreateDb::Impl::SetupRun(clsCreateDb& self, const ScriptTypeInfo& type,
                                 const std::string& storageName, const Variant& sFKPrefix) {
    const bool isOracle = type.type == ScriptType::Oracle;
    scriptgen::ResetRun(run);
    if (isOracle) run.m_bLongWarning = false;
    self.CreateRelationship(storageName, sFKPrefix);
    run.m_nScriptType = type.type;
    scriptgen::BuildScriptFileNames(run, self.ScriptFilePath(), platform.files->Separator());
    repository::StoredRows rows(repository);
    scriptgen::GenerateForStorage(run, rows, storageName);
    if (isOracle && run.m_bLongWarning) {
        platform.desktop->ShowMessage(LongWarning, platform::StyleExclamation, LongWarningTitle);
    }
}

/// Writes a text to its file and opens it; only a failure of the first file is raised.
void clsCreateDb::Impl::ShowScript(const std::string& path, const std::string& text, bool isFirst) {
    if (isFirst) unwritten.clear();
    try {
        platform.files->WriteText(path, text, automation::CrLf);
    } catch (const automation::Error& error) {
        if (isFirst) throw;
        unwritten.push_back(error);
    } catch (const std::exception&) {
        if (isFirst) throw;
    }
    IgnoreErrors([&] { platform.desktop->OpenEditor(path); });
}

clsCreateDb::clsCreateDb() : clsCreateDb(DefaultPlatform()) {}

clsCreateDb::clsCreateDb(const Platform& platform) : m_impl(std::make_unique<Impl>(platform)) {
    clsCreateDb::ScriptFilePath(m_impl->platform.files->LibraryFolder());
}

clsCreateDb::~clsCreateDb() = default;

std::shared_ptr<automation::Collection> clsCreateDb::ScriptTypes(const Variant& oLanguageSvr) {
    const automation::ObjectRef service = LanguageService(oLanguageSvr);
    auto names = std::make_shared<automation::Collection>();
    for (const ScriptTypeInfo& type : scriptgen::AllScriptTypes()) {
        names->Add(ScriptTypeName(service, type));
    }
    return names;
}

void clsCreateDb::DoScript(const std::string& sID, const std::string& sFilename,
                           const std::string& storageName, const Variant& sFKPrefix,
                           const Variant& oLanguageSvr) {
    const automation::ObjectRef service = LanguageService(oLanguageSvr);
    for (const ScriptTypeInfo& type : scriptgen::AllScriptTypes()) {
        if (sID != ScriptTypeName(service, type)) continue;
        switch (type.type) {
            case ScriptType::None:
                return;
            case ScriptType::SqlServer:
                return DoMSsqlDb(sFilename, storageName, sFKPrefix);
            case ScriptType::Oracle:
                return DoOracleDb(sFilename, storageName, sFKPrefix);
            case ScriptType::Sybase:
                return DoSybaseDb(sFilename, storageName, sFKPrefix);
        }
    }
}

std::string clsCreateDb::FKPrefix() { return m_impl->m_sFKPrefix; }
void clsCreateDb::FKPrefix(const std::string& value) { m_impl->m_sFKPrefix = value; }

std::string clsCreateDb::ScriptFilePath() { return m_impl->m_sScriptFilePath; }
void clsCreateDb::ScriptFilePath(const std::string& value) { m_impl->m_sScriptFilePath = value; }

void clsCreateDb::DoMSsqlDb(const std::string& FileName, const std::string& storageName,
                            const Variant& sFKPrefix) {
    m_impl->DoRun(*this, ScriptType::SqlServer, FileName, storageName, sFKPrefix);
}

void clsCreateDb::DoOracleDb(const std::string& FileName, const std::string& storageName,
                             const Variant& sFKPrefix) {
    m_impl->DoRun(*this, ScriptType::Oracle, FileName, storageName, sFKPrefix);
}

void clsCreateDb::DoSybaseDb(const std::string& FileName, const std::string& storageName,
                             const Variant& sFKPrefix) {
    m_impl->DoRun(*this, ScriptType::Sybase, FileName, storageName, sFKPrefix);
}

void clsCreateDb::CreateRelationship(const std::string& storageName, const Variant& sFKPrefix) {
    m_impl->desktop->ExpectNoOpenBox();
    // A host may set the property from a message box of this call.
    const std::string prefix =
        sFKPrefix.IsMissing() ? std::string(repository::DefaultFKPrefix) : automation::ToString(sFKPrefix);
    m_impl->m_sFKPrefix = prefix;
    repository::CreateRelationship(m_impl->repository, storageName, prefix);
}

void clsCreateDb::ShutDown() {
    m_impl->desktop->ExpectNoOpenBox();
    m_impl->repository.Close();
    ShowLog();
}

const std::string& clsCreateDb::DbSQL() { return m_impl->run.Text(ScriptKind::Create); }
const std::string& clsCreateDb::DropSQL() { return m_impl->run.Text(ScriptKind::Drop); }
const std::string& clsCreateDb::StoredProcSQL() { return m_impl->run.Text(ScriptKind::Procedures); }
const std::string& clsCreateDb::FkConstraintSQL() { return m_impl->run.Text(ScriptKind::CreateForeignKeys); }
const std::string& clsCreateDb::DropFkConstraintSQL() {
    return m_impl->run.Text(ScriptKind::DropForeignKeys);
}

void clsCreateDb::ShowLog() {
    if (m_impl->run.m_scripts.front().path.empty()) {
        throw automation::Error(
            automation::PathNotFound,
            "Path not found: the script files have no names before a run. DoScript or the run of "
            "a dialect names, writes and opens them.");
    }
    for (std::size_t i = 0; i < std::size(Texts); ++i)
        m_impl->ShowScript(m_impl->run.m_scripts[i].path, (this->*Texts[i])(), i == 0);
}

Variant clsCreateDb::ConnectDB(const std::string& /*sConnection*/) { return {}; }

void clsCreateDb::OpenRepository(const std::string& sConnection) {
    m_impl->desktop->ExpectNoOpenBox();
    m_impl->repository.OpenRepository(sConnection);
}

void clsCreateDb::CloseRepository() {
    m_impl->desktop->ExpectNoOpenBox();
    if (m_impl->repository.IsOpen()) IgnoreErrors([&] { m_impl->repository.Close(); });
}

const std::vector<automation::Error>& clsCreateDb::UnwrittenFiles() const noexcept {
    return m_impl->unwritten;
}

std::vector<std::string> clsCreateDb::DoEngineDb(const std::string& sEngine, const std::string& FileName,
                                                 const std::string& storageName, const Variant& sFKPrefix) {
    const scriptgen::EngineDialect& dialect = scriptgen::EngineDialectOf(sEngine);
    OpenRepository(FileName);
    CreateRelationship(storageName, sFKPrefix);
    repository::StoredRows rows(m_impl->repository);
    const auto tables = scriptgen::DescribeTables(rows, storageName);
    m_impl->repository.Close();
    const scriptgen::EngineScripts scripts = dialect.Write(tables);
    for (const scriptgen::EngineFile& file : dialect.Facts().files) {
        m_impl->ShowScript(
            scriptgen::ScriptFilePath(ScriptFilePath(), m_impl->platform.files->Separator(), file.name),
            scriptgen::ScriptText(scripts.*file.statements), &file == &dialect.Facts().files.front());
    }
    std::vector<std::string> notes = dialect.Problems(tables);
    notes.insert(notes.end(), scripts.notes.begin(), scripts.notes.end());
    return notes;
}

}  // namespace korvex
