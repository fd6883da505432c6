#include "platform/native/ado/provider.h"

#include "platform/native/ado/connection.h"
#include "platform/native/ado/recordset.h"

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

std::shared_ptr<ado::Provider> CreateAdoProvider(std::shared_ptr<sql::Seam> seam) {
    return std::make_shared<NativeProvider>(std::move(seam));
}

}  // namespace korvex::native::ado_engine
