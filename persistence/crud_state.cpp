#include "persistence/crud_state.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "persistence/definition_walk.h"
#include "repository/names.h"

#include <utility>

namespace korvex::persistence {

using automation::Error;
using automation::Variant;

CrudState::CrudState(Platform platform, PublicMembers& members)
    : m_platform(std::move(platform)), m_members(members) {}

bool CrudState::Fail(dbResults code) noexcept {
    m_lLastResult = code;
    return false;
}

std::string CrudState::ForeignKeyColumn(const std::string& parentKeyColumn) const {
    return m_sFKPrefix + parentKeyColumn;
}

// DisconnectDB leaves dbNotConnected on an instance that has no connection yet, and nothing clears it: the
// first successful ConnectDB reports dbNotConnected, a reconnect dbNoError.
bool CrudState::ConnectDB(const Variant& sConnection, const Variant& sFKPrefix) {
    ResetLastResult();
    m_members.DisconnectDB();
    m_sFKPrefix =
        sFKPrefix.IsMissing() ? std::string(repository::DefaultFKPrefix) : automation::ToString(sFKPrefix);
    try {
        m_oConn = m_platform.targetProvider->CreateConnection();
        if (m_oConn != nullptr) m_oConn->Open(automation::ToString(sConnection), "", "", ado::adUnspecified);
        m_bConnected = true;
    } catch (const Error& error) {
        m_bConnected = false;
        m_oConn = nullptr;
        Trap(error);
        m_platform.desktop->ShowMessage(error.Description(), platform::StyleOkOnly, "");
        Fail(dbConnectError);
    }
    return m_bConnected;
}

void CrudState::DisconnectDB() {
    ResetLastResult();
    const auto connection = std::exchange(m_oConn, nullptr);
    const bool wasConnected = std::exchange(m_bConnected, false);
    if (connection == nullptr)
        Fail(dbNotConnected);
    else if (wasConnected)
        connection->Close();
}

std::shared_ptr<ado::Recordset> CrudState::OpenRecordset(const std::string& sSQL) {
    ResetLastResult();
    if (!m_bConnected) {
        Fail(dbNotConnected);
        return m_platform.targetProvider->CreateRecordset();
    }
    try {
        auto records = m_platform.targetProvider->CreateRecordset();
        records->CursorType(ado::adOpenKeyset);
        records->LockType(ado::adLockOptimistic);
        records->Open(sSQL, m_oConn, ado::adUnspecified, ado::adUnspecified, ado::adUnspecified);
        return records;
    } catch (const Error& error) {
        Trap(error);
        ++m_counts.failedOpens;
        Fail(dbCannotOpenRecordset);
        return nullptr;
    }
}

std::string CrudState::GetTableName(const QORObject::Ref& coDataDef) {
    ResetLastResult();
    if (Need(coDataDef, "data definition")->BooleanAttribute(attIsIncluded))
        return coDataDef->StringAttribute(attTableName);
    Fail(dbTableNotIncluded);
    return {};
}

std::string CrudState::GetPrimaryKeyFieldName(const QORObject::Ref& coDataDef) {
    ResetLastResult();
    return Read(Need(coDataDef, "data definition"))->keyColumn;
}

std::string CrudState::GetForeignKeyFieldName(const QORObject::Ref& coDataDef) {
    ResetLastResult();
    const auto keys = Need(coDataDef, "data definition")->ObjectAttribute(attForeignKeys);
    if (keys == nullptr) return {};
    const auto first = keys->NewEnum()->Next();
    return first ? ToQORObject(*first, "foreign-key entry")->StringAttribute(attForeignKeyField)
                 : std::string();
}

void CrudState::Execute(const std::string& sSQL) {
    if (m_oConn == nullptr) throw Error(automation::ObjectVariableNotSet, "There is no connection (DbConn).");
    m_oConn->Execute(sSQL, ado::adUnspecified);
    ++m_counts.writes;
}

QORObject::Ref CrudState::NewDataObject() const {
    const auto object = m_platform.newDataObject ? m_platform.newDataObject() : nullptr;
    return object != nullptr ? ToQORObject(object, "factory of data objects") : nullptr;
}

DefinitionReadings::Reading CrudState::Read(const QORObject::Ref& definition) {
    if (m_stack) return m_readings.Of(definition);
    return std::make_shared<const DefinitionReading>(ReadDefinition(*definition));
}

Descent::Descent(CrudState& session, bool isUpdate)
    : m_session(session), m_outermost(!session.m_stack), m_wasUpdating(session.m_isUpdating) {
    if (m_outermost) {
        session.m_trapped.reset();
        session.m_stack.emplace();
        session.m_counts.writes = 0;
    }
    if (!session.m_stack->HasRoom()) {
        if (m_outermost) session.m_stack.reset();
        throw Error(automation::OutOfStackSpace,
                    "The data objects are nested too deeply; is one of them its own ancestor?");
    }
    if (isUpdate) session.m_isUpdating = true;
}

Descent::~Descent() {
    m_session.m_isUpdating = m_wasUpdating;
    if (!m_outermost) return;
    m_session.m_stack.reset();
    m_session.m_readings.Forget();
}

}  // namespace korvex::persistence
