#include "surface/cls_crud.h"

#include "persistence/crud_state.h"
#include "persistence/public_members.h"
#include "persistence/record_members.h"

#include <exception>
#include <utility>

namespace korvex {

using automation::Variant;

/// The state of an instance, and the way by which the steps reach its public members.
struct clsCRUD::Impl final : persistence::PublicMembers {
    Impl(clsCRUD& owner, Platform platform) : self(owner), session(std::move(platform), *this) {}

    Variant DisconnectDB() override { return self.DisconnectDB(); }
    std::string GetTableName(const QORObject::Ref& coDataDef) override {
        return self.GetTableName(coDataDef);
    }
    std::string GetPrimaryKeyFieldName(const QORObject::Ref& coDataDef) override {
        return self.GetPrimaryKeyFieldName(coDataDef);
    }
    std::string GetForeignKeyFieldName(const QORObject::Ref& coDataDef) override {
        return self.GetForeignKeyFieldName(coDataDef);
    }
    std::shared_ptr<ado::Recordset> OpenRecordset(const std::string& sSQL) override {
        return self.OpenRecordset(sSQL);
    }
    std::int32_t DbGetData(const QORObject::Ref& coData, const Variant& lKey,
                           const std::string& sKeyFieldName) override {
        return self.DbGetData(coData, lKey, sKeyFieldName);
    }
    std::int32_t DbDeleteData(const QORObject::Ref& coData, const Variant& lKey,
                              const std::string& sSelKey) override {
        return self.DbDeleteData(coData, lKey, sSelKey);
    }

    clsCRUD& self;
    persistence::CrudState session;
};

clsCRUD::clsCRUD() : clsCRUD(DefaultPlatform()) {}

clsCRUD::clsCRUD(Platform platform) : m_impl(std::make_unique<Impl>(*this, std::move(platform))) {}

clsCRUD::~clsCRUD() {
    try {
        clsCRUD::DisconnectDB();
    } catch (const std::exception&) {
        // Nobody is left to hear that the connection did not close; it goes with its last reference.
    }
}

dbResults clsCRUD::LastResult() { return m_impl->session.LastResult(); }

std::size_t clsCRUD::Writes() const noexcept { return m_impl->session.Counts().writes; }

const std::optional<automation::Error>& clsCRUD::TrappedError() const noexcept {
    return m_impl->session.TrappedError();
}

std::string clsCRUD::FKPrefix() { return m_impl->session.FKPrefix(); }

void clsCRUD::FKPrefix(const std::string& value) { m_impl->session.FKPrefix(value); }

std::shared_ptr<ado::Connection> clsCRUD::DbConn() { return m_impl->session.DbConn(); }

void clsCRUD::DbConn(const std::shared_ptr<ado::Connection>& connection) {
    m_impl->session.DbConn(connection);
}

bool clsCRUD::ConnectDB(const Variant& sConnection, const Variant& sFKPrefix) {
    return m_impl->session.ConnectDB(sConnection, sFKPrefix);
}

Variant clsCRUD::DisconnectDB() {
    m_impl->session.DisconnectDB();
    return {};
}

bool clsCRUD::DbDataExists(const QORObject::Ref& coData, const Variant& lKey) {
    return persistence::DbDataExists(m_impl->session, coData, lKey);
}

bool clsCRUD::DbGetField(const Variant& lKey, const std::string& sKeyFieldName, const std::string& sTableName,
                         const std::string& sFieldName, Variant& vntFieldValue) {
    return persistence::DbGetField(m_impl->session, lKey, sKeyFieldName, sTableName, sFieldName,
                                   vntFieldValue);
}

bool clsCRUD::DbSaveField(const Variant& lKey, const std::string& sKeyFieldName,
                          const std::string& sTableName, const std::string& sFieldName,
                          const Variant& vntFieldValue) {
    return persistence::DbSaveField(m_impl->session, lKey, sKeyFieldName, sTableName, sFieldName,
                                    vntFieldValue);
}

std::int32_t clsCRUD::DbGetData(const QORObject::Ref& coData, const Variant& lKey,
                                const std::string& sKeyFieldName) {
    return persistence::DbGetData(m_impl->session, coData, lKey, sKeyFieldName);
}

std::int32_t clsCRUD::DbSaveData(const QORObject::Ref& coData) {
    return persistence::DbSaveData(m_impl->session, coData);
}

std::int32_t clsCRUD::DbUpdateData(const QORObject::Ref& coData, const Variant& lKey,
                                   const std::string& sKeyFieldName) {
    return persistence::DbUpdateData(m_impl->session, coData, lKey, sKeyFieldName);
}

std::int32_t clsCRUD::DbUpdateDataRetainRoot(const QORObject::Ref& coData, const Variant& lKey) {
    return persistence::DbUpdateDataRetainRoot(m_impl->session, coData, lKey);
}

std::int32_t clsCRUD::DbDeleteData(const QORObject::Ref& coData, const Variant& lKey,
                                   const std::string& sSelKey) {
    return persistence::DbDeleteData(m_impl->session, coData, lKey, sSelKey);
}

std::string clsCRUD::GetTableName(const QORObject::Ref& coDataDef) {
    return m_impl->session.GetTableName(coDataDef);
}

std::string clsCRUD::GetPrimaryKeyFieldName(const QORObject::Ref& coDataDef) {
    return m_impl->session.GetPrimaryKeyFieldName(coDataDef);
}

std::string clsCRUD::GetForeignKeyFieldName(const QORObject::Ref& coDataDef) {
    return m_impl->session.GetForeignKeyFieldName(coDataDef);
}

std::shared_ptr<ado::Recordset> clsCRUD::OpenRecordset(const std::string& sSQL) {
    return m_impl->session.OpenRecordset(sSQL);
}

}  // namespace korvex
