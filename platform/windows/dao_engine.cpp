#include "automation/com/com_error.h"
#include "automation/com/host_object.h"
#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"
#include "platform/windows/windows_platform.h"

#include <windows.h>

#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace korvex::windows {

namespace {

using automation::Call;
using automation::Get;
using automation::Variant;
using com::AsHost;
using com::HostObject;

/// DAO's dbFailOnError: an action statement that fails raises, and nothing of it is kept.
constexpr std::int32_t dbFailOnError = 128;
/// DAO's dbLangGeneral, the sort order of a new database file.
constexpr std::string_view dbLangGeneral = ";LANGID=0x0409;CP=1252;COUNTRY=0";

constexpr std::string_view EngineClasses[] = {"DAO.DBEngine.36", "DAO.DBEngine.120"};
constexpr std::string_view Width = sizeof(void*) == 8 ? "64-bit" : "32-bit";

[[noreturn]] void RaiseNoEngine(HRESULT failure) {
    std::string description = "The database engine of the definition repository is not installed: ";
    description.append("neither DAO.DBEngine.36 nor DAO.DBEngine.120 can be created in this ").append(Width);
    description.append(" process (").append(com::SystemText(failure)).append("). The ").append(Width);
    description.append(" Microsoft Access Database Engine Redistributable installs DAO.DBEngine.120");
    if (sizeof(void*) == 4) description.append("; DAO.DBEngine.36 (dao360.dll) is a part of Windows");
    throw automation::Error(automation::CannotCreateObject, description.append("."));
}

std::shared_ptr<HostObject> CreateEngine() {
    HRESULT failure = S_OK;
    for (const std::string_view progId : EngineClasses) {
        if (auto engine = com::CreateHostObject(progId, failure)) return engine;
    }
    RaiseNoEngine(failure);
}

class DaoField final : public dao::Field {
  public:
    explicit DaoField(std::shared_ptr<HostObject> field)
        : m_field(std::move(field)), m_name(automation::ToString(Get(*m_field, "Name"))) {}

    std::string_view Name() const override { return m_name; }
    Variant Value() override { return Get(*m_field, "Value"); }
    void Value(const Variant& value) override { automation::Let(*m_field, "Value", value); }

  private:
    std::shared_ptr<HostObject> m_field;
    std::string m_name;
};

class DaoRecordset final : public dao::Recordset {
  public:
    explicit DaoRecordset(std::shared_ptr<HostObject> recordset) : m_recordset(std::move(recordset)) {}
    ~DaoRecordset() override {
        if (m_isClosed) return;
        try {
            Close();
        } catch (const std::exception&) {
            // The engine closes what is left open when the last reference goes.
        }
    }

    bool Eof() override { return automation::ToBoolean(Get(*m_recordset, "EOF")); }
    void MoveNext() override { Call(*m_recordset, "MoveNext"); }
    void MoveLast() override { Call(*m_recordset, "MoveLast"); }
    dao::Field& Fields(std::string_view name) override {
        for (const auto& field : m_fields) {
            if (automation::EqualsIgnoreCase(field->Name(), name)) return *field;
        }
        if (!m_fieldCollection) m_fieldCollection = AsHost(Get(*m_recordset, "Fields"));
        m_fields.push_back(std::make_unique<DaoField>(AsHost(Call(*m_fieldCollection, "Item", name))));
        return *m_fields.back();
    }
    void AddNew() override { Call(*m_recordset, "AddNew"); }
    void Edit() override { Call(*m_recordset, "Edit"); }
    void Update() override { Call(*m_recordset, "Update"); }
    void Close() override {
        m_isClosed = true;
        Call(*m_recordset, "Close");
    }

  private:
    std::shared_ptr<HostObject> m_recordset;
    std::shared_ptr<HostObject> m_fieldCollection;
    std::vector<std::unique_ptr<DaoField>> m_fields;
    bool m_isClosed = false;
};

/// A Database (with transactions of `engine`'s default workspace) or a Connection (`engine` is null).
class DaoDatabase final : public dao::Database {
  public:
    DaoDatabase(std::shared_ptr<HostObject> database, std::shared_ptr<HostObject> engine)
        : m_database(std::move(database)), m_engine(std::move(engine)) {}

    std::unique_ptr<dao::Recordset> OpenRecordset(std::string_view sql, std::int32_t type,
                                                  std::int32_t options, std::int32_t lockEdit) override {
        return std::make_unique<DaoRecordset>(
            AsHost(Call(*m_database, "OpenRecordset", sql, type, Optional(options), Optional(lockEdit))));
    }

    void Execute(std::string_view sql) override {
        Call(*m_database, "Execute", sql, m_engine ? Variant(dbFailOnError) : Variant::Missing());
    }
    void Close() override { Call(*m_database, "Close"); }

    // A server behind ODBC may give up a whole transaction over one failed statement.
    bool BeginTrans() override {
        if (m_engine) Call(*m_engine, "BeginTrans");
        return m_engine != nullptr;
    }
    void CommitTrans() override { Call(*m_engine, "CommitTrans"); }
    void Rollback() override { Call(*m_engine, "Rollback"); }

  private:
    static Variant Optional(std::int32_t argument) {
        return argument == dao::dbOmitted ? Variant::Missing() : Variant(argument);
    }

    std::shared_ptr<HostObject> m_database;
    std::shared_ptr<HostObject> m_engine;
};

class DaoWorkspace final : public dao::Workspace {
  public:
    explicit DaoWorkspace(std::shared_ptr<HostObject> workspace) : m_workspace(std::move(workspace)) {}

    std::unique_ptr<dao::Database> OpenConnection(std::string_view name, bool readOnly,
                                                  std::string_view connect) override {
        return std::make_unique<DaoDatabase>(
            AsHost(Call(*m_workspace, "OpenConnection", name, Variant::Missing(), readOnly, connect)),
            nullptr);
    }

  private:
    std::shared_ptr<HostObject> m_workspace;
};

class DaoDBEngine final : public dao::DBEngine {
  public:
    std::shared_ptr<dao::Workspace> CreateWorkspace(std::string_view name, std::string_view user,
                                                    std::string_view password, std::int32_t type) override {
        return std::make_shared<DaoWorkspace>(
            AsHost(Call(*Engine(), "CreateWorkspace", name, user, password, type)));
    }
    std::unique_ptr<dao::Database> OpenDatabase(std::string_view name) override {
        return std::make_unique<DaoDatabase>(AsHost(Call(*Engine(), "OpenDatabase", name)), Engine());
    }
    std::unique_ptr<dao::Database> CreateDatabase(std::string_view name) override {
        return std::make_unique<DaoDatabase>(AsHost(Call(*Engine(), "CreateDatabase", name, dbLangGeneral)),
                                             Engine());
    }

  private:
    const std::shared_ptr<HostObject>& Engine() {
        if (!m_engine) m_engine = CreateEngine();
        return m_engine;
    }

    std::shared_ptr<HostObject> m_engine;
};

}  // namespace

std::shared_ptr<dao::DBEngine> DaoEngine() {
    // Shared while anything on the thread uses it: an engine kept longer would outlive the thread's
    // apartment. (A thread_local would keep the module in memory until the thread ends.)
    static std::mutex guard;
    static std::map<DWORD, std::weak_ptr<dao::DBEngine>> engines;
    const std::scoped_lock lock(guard);
    std::erase_if(engines, [](const auto& entry) { return entry.second.expired(); });
    std::weak_ptr<dao::DBEngine>& known = engines[GetCurrentThreadId()];
    std::shared_ptr<dao::DBEngine> engine = known.lock();
    if (!engine) known = engine = std::make_shared<DaoDBEngine>();
    return engine;
}

}  // namespace korvex::windows
