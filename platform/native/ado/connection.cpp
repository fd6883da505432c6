#include "platform/native/ado/connection.h"

#include "platform/native/ado/recordset.h"
#include "platform/native/ado/target.h"
#include "platform/native/sql/engine_error.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace korvex::native::ado_engine {

namespace {

class NativeProvider final : public ado::Provider {
  public:
    explicit NativeProvider(std::shared_ptr<sql::Seam> seam) : m_seam(std::move(seam)) {}

    std::shared_ptr<ado::Connection> CreateConnection() override {
        return std::make_shared<NativeConnection>(m_seam);
    }
    std::shared_ptr<ado::Recordset> CreateRecordset() override { return std::make_shared<NativeRecordset>(); }

  private:
    std::shared_ptr<sql::Seam> m_seam;
};

}  // namespace

void NativeConnection::Open(std::string_view connectionString, std::string_view user,
                            std::string_view password, std::int32_t /*options*/) {
    if (m_session) throw automation::Error(ado::adErrObjectOpen, "The connection is open already.");
    m_session = OpenSession(ReadTarget(connectionString, user, password), m_seam);
}

void NativeConnection::Close() {
    if (Session().InTransaction()) {
        throw automation::Error(
            ado::adErrInTransaction,
            "The connection cannot be closed inside a transaction: commit it or roll it back first.");
    }
    m_session.reset();
}

std::shared_ptr<ado::Recordset> NativeConnection::Execute(std::string_view text, std::int32_t /*options*/,
                                                          std::int32_t* recordsAffected) {
    auto recordset = std::make_shared<NativeRecordset>();
    const std::int64_t affected =
        recordset->Run(std::static_pointer_cast<NativeConnection>(shared_from_this()), text);
    if (recordsAffected != nullptr) {
        constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();
        *recordsAffected = static_cast<std::int32_t>(std::min(affected, most));
    }
    return recordset;
}

std::shared_ptr<ado::Recordset> NativeConnection::Query(std::string_view text,
                                                        std::span<const automation::Variant> values) {
    auto recordset = std::make_shared<NativeRecordset>();
    recordset->Run(std::static_pointer_cast<NativeConnection>(shared_from_this()), text, values);
    return recordset;
}

std::int32_t NativeConnection::BeginTrans() {
    if (Session().InTransaction()) {
        throw automation::Error(ado::XactEExists,
                                "A transaction is active on this connection; transactions do not nest.");
    }
    WithErrors<AdoError>({}, [this] { m_session->Begin(); });
    return 1;
}

void NativeConnection::CommitTrans() {
    sql::Session& session = SessionInTransaction();
    WithErrors<AdoError>({}, [&session] { session.Commit(); });
}

void NativeConnection::RollbackTrans() {
    sql::Session& session = SessionInTransaction();
    WithErrors<AdoError>({}, [&session] { session.Rollback(); });
}

sql::Session& NativeConnection::Session() const {
    if (!m_session) throw automation::Error(ado::adErrObjectClosed, "The connection is not open.");
    return *m_session;
}

sql::Session& NativeConnection::SessionInTransaction() const {
    if (!Session().InTransaction()) {
        throw automation::Error(ado::XactENoTransaction, "No transaction is active on this connection.");
    }
    return *m_session;
}

std::shared_ptr<ado::Provider> CreateAdoProvider(std::shared_ptr<sql::Seam> seam) {
    return std::make_shared<NativeProvider>(std::move(seam));
}

}  // namespace korvex::native::ado_engine
