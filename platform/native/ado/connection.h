#pragma once

#include "platform/ado_query.h"
#include "platform/native/sql/seam.h"
#include "platform/native/sql/session.h"

#include <memory>
#include <string_view>

namespace korvex::native::ado_engine {

/// An ADO connection on the embedded engine or an ODBC driver. Its open recordsets keep it, and close with
/// it.
class NativeConnection final : public ado::Connection, public ado::BoundQueries {
  public:
    explicit NativeConnection(std::shared_ptr<sql::Seam> seam) : m_seam(std::move(seam)) {}

    void Open(std::string_view connectionString, std::string_view user, std::string_view password,
              std::int32_t options) override;
    void Close() override;
    std::shared_ptr<ado::Recordset> Execute(std::string_view text, std::int32_t options,
                                            std::int32_t* recordsAffected) override;
    std::shared_ptr<ado::Recordset> Query(std::string_view text,
                                          std::span<const automation::Variant> values) override;
    std::int32_t State() const override { return m_session ? ado::adStateOpen : ado::adStateClosed; }
    std::int32_t BeginTrans() override;
    void CommitTrans() override;
    void RollbackTrans() override;

    /// The session under it; adErrObjectClosed when there is none.
    sql::Session& Session() const;

  private:
    sql::Session& SessionInTransaction() const;

    std::shared_ptr<sql::Seam> m_seam;
    std::unique_ptr<sql::Session> m_session;
};

/// The target-database engine of the native build. Every engine call of its connections passes `seam`, if
/// any.
std::shared_ptr<ado::Provider> CreateAdoProvider(std::shared_ptr<sql::Seam> seam);

}  // namespace korvex::native::ado_engine
